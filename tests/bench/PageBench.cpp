#include "filling/ChartViewer.h"
#include "platform/runtime/Actions.h"
#include "platform/runtime/Dates.h"
#include "tests/bench/BenchTest.h"
#include "tests/bench/PaintCounter.h"

#include <QPushButton>

TEST_F(BenchTest, TurningAPageOf50JobsStoredAndPainted) {
    constexpr int jobs = 50;
    constexpr double limit = 6; // milliseconds
    const QString anna = QStringLiteral("Anna");
    const QString chart = QStringLiteral("Chores Anna");
    MakeAccount(anna, QStringLiteral("pw"), QStringLiteral("Student"));
    {
        FakeEditor editor;
        editor.rows.clear();
        // Each day has jobs of its own: everything that a page says is new.
        for (int job = 0; job < jobs; ++job)
            for (int day = 1; day <= 7; ++day)
                editor.rows.append({QStringLiteral("Job number %1 on day %2").arg(job).arg(day),
                                    DayAbbreviation(day), QStringLiteral("Mum"),
                                    day % 2 == 0 ? QStringLiteral("Easy") : QStringLiteral("Hard"),
                                    QString::number(day)});
        RunAction([&] {
            Database().WriteInfoToChart(chart, 0, false, anna, QDate(2001, 3, 4),
                                        QDate(2001, 3, 10), true);
        });
    }
    StartSession(anna, QStringLiteral("Student"));
    ChartViewers.RedimPreserve(0);
    auto& viewer = dynamic_cast<ChartViewer&>(ChartViewers.At(0));
    viewer.ChartName = chart;
    viewer.DayNumber = 3;
    viewer.Show();
    Settle();
    ASSERT_EQ(viewer.Instructions.Count(), jobs);

    auto* next = viewer.findChild<QPushButton*>(QStringLiteral("NextDay"));
    ASSERT_NE(next, nullptr);
    // As a press of the mouse does: the keyboard was at the first open mark.
    next->setFocus(Qt::MouseFocusReason);
    PaintCounter paints(viewer);
    ExpectTime("turning a page of 50 jobs", limit, [&] {
        const int day = viewer.DayNumber;
        paints.Paints = 0;
        const double time = TimeOf([&] {
            next->click();
            QCoreApplication::processEvents();
        });
        EXPECT_NE(viewer.DayNumber, day);
        EXPECT_GT(paints.Paints, 10) << "the page was not painted";
        EXPECT_EQ(viewer.Instructions.Count(), jobs);
        Settle();
        return time;
    });
}

#include "filling/ChartViewer.h"
#include "platform/forms/DefaultForms.h"
#include "platform/runtime/Actions.h"
#include "tests/bench/BenchTest.h"

#include <QPushButton>
#include <QTest>
#include <cstdio>

namespace {

/// Counts the paints of a form and what it holds.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget& form) : form_(form) { qApp->installEventFilter(this); }
    int Paints = 0;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && watched->isWidgetType() &&
            form_.isAncestorOf(static_cast<QWidget*>(watched)))
            ++Paints;
        return false;
    }

private:
    QWidget& form_;
};

} // namespace

TEST_F(BenchTest, TurningAPageOf50JobsStoredAndPainted) {
    constexpr int jobs = 50;
    constexpr double limit = 16; // milliseconds, one frame of a screen
    const QString anna = QStringLiteral("Anna");
    const QString chart = QStringLiteral("Chores Anna");
    MakeAccount(anna, QStringLiteral("pw"), QStringLiteral("Student"));
    {
        FakeEditor editor;
        editor.rows.clear();
        for (int job = 0; job < jobs; ++job)
            editor.rows.append({QStringLiteral("Job number %1").arg(job), QStringLiteral("Sun-Sat"),
                                QStringLiteral("Mum"), QStringLiteral("Easy"),
                                QStringLiteral("5")});
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
    PaintCounter paints(viewer);
    double median = 0;
    for (int attempt = 0; attempt < 3; ++attempt) {
        std::vector<double> runs;
        for (int run = 0; run < 21; ++run) {
            const int day = viewer.DayNumber;
            paints.Paints = 0;
            runs.push_back(TimeOf([&] {
                next->click();
                QCoreApplication::processEvents();
            }));
            ASSERT_NE(viewer.DayNumber, day);
            ASSERT_GT(paints.Paints, 10) << "the page was not painted";
            ASSERT_EQ(viewer.Instructions.Count(), jobs);
            Settle();
        }
        median = Median(runs);
        std::printf("%-44s %8.2f ms, less than %.0f ms\n", "turning a page of 50 jobs", median,
                    limit);
        if (median < limit)
            return;
    }
    ADD_FAILURE() << "a page takes " << median << " ms";
}

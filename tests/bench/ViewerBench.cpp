#include "filling/ChartViewer.h"
#include "filling/OpenFillfrm.h"
#include "tests/bench/BenchTest.h"
#include "tests/bench/PaintCounter.h"

#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QWheelEvent>

namespace {

constexpr int JobsOfViewer = 100;
/// Controls of a row that paint; what is seen of a viewer are seven rows.
constexpr int LeastPaintsOfViewer = 5 * 7;

/// A child with a chart of 100 jobs a day.
class ViewerBench : public BenchTest {
protected:
    void SetUp() override {
        MakeAccount(QStringLiteral("Anna"), QStringLiteral("pw"), QStringLiteral("Student"));
        QList<EditorRow> rows;
        for (int job = 0; job < JobsOfViewer; ++job)
            rows.append({QStringLiteral("Job number %1").arg(job), QStringLiteral("Sun-Sat"),
                         QStringLiteral("Mum"), QStringLiteral("Easy"), QStringLiteral("5")});
        StoreChart(QStringLiteral("Chores Anna"), rows, QStringLiteral("Anna"), QDate(2001, 3, 4),
                   QDate(2001, 3, 10), true);
        StartSession(QStringLiteral("Anna"), QStringLiteral("Student"));
    }

    /// The Ok button of the list of charts, in which the chart has been selected.
    static QPushButton& ChooseChart() {
        auto& dialog = Default<OpenFillfrm>();
        dialog.Show();
        Settle();
        Find<QListWidget>(dialog, QStringLiteral("ChartList")).setCurrentRow(0);
        return Find<QPushButton>(dialog, QStringLiteral("Ok"));
    }

    static ChartViewer& LastViewer() {
        return dynamic_cast<ChartViewer&>(*ChartViewers.Peek(ChartFormIndex - 1));
    }
};

} // namespace

TEST_F(ViewerBench, OpeningAChildsPageOf100JobsUntilItIsPainted) {
    PaintCounter paints(DefaultForm(QStringLiteral("MainForm")).Widget());
    // The chart of 700 rows is read, and a page is stored before it is left, on the disk.
    ExpectTime("opening a child's page of 100 jobs", 400, [&] {
        QPushButton& ok = ChooseChart();
        paints.Paints = 0;
        const double time = TimeOf([&] {
            ok.click();
            QCoreApplication::processEvents();
        });
        EXPECT_GE(paints.Paints, LeastPaintsOfViewer) << "the page was not painted";
        EXPECT_EQ(LastViewer().Instructions.Count(), JobsOfViewer);
        Settle();
        Find<QPushButton>(LastViewer(), QStringLiteral("Ok")).click();
        Settle();
        return time;
    });
}

TEST_F(ViewerBench, OneNotchOfTheWheelOverAChildsPageOf100JobsUntilItIsPainted) {
    ChooseChart().click();
    Settle();
    ChartViewer& viewer = LastViewer();
    auto& bar = Find<QScrollBar>(viewer, QStringLiteral("VScroll"));
    auto& list = Find(viewer, QStringLiteral("CleanUpList"));
    PaintCounter paints(viewer);
    int turn = -120;
    ExpectTime("one notch over a child's 100 jobs", 16, [&] {
        const int value = bar.value();
        const QPointF middle(list.rect().center());
        QWheelEvent notch(middle, list.mapToGlobal(middle), {}, QPoint(0, turn), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        paints.Paints = 0;
        const double time = TimeOf([&] {
            QCoreApplication::sendEvent(&list, &notch);
            QCoreApplication::processEvents();
        });
        EXPECT_EQ(std::abs(bar.value() - value), 3);
        EXPECT_GE(paints.Paints, LeastPaintsOfViewer) << "the rows were not painted";
        // Down to the middle of the list and up again.
        if (bar.value() >= JobsOfViewer / 2 || bar.value() == 0)
            turn = -turn;
        Settle();
        return time;
    });
}

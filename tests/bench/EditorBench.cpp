#include "app/RegisterForms.h"
#include "authoring/ChartEditor.h"
#include "authoring/Openfrm.h"
#include "platform/runtime/Actions.h"
#include "session/Session.h"
#include "tests/bench/BenchTest.h"
#include "tests/bench/PaintCounter.h"

#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QWheelEvent>

namespace {

constexpr int JobsToOpen = 100;
/// Controls of a row; what is painted of an editor are eleven rows and more.
constexpr int LeastPaints = 7 * 11;
const QString Chart = QStringLiteral("Chores Anna");

/// A chart of 100 jobs, and the adult who opens it.
class EditorBench : public BenchTest {
protected:
    void SetUp() override {
        MakeAccount(QStringLiteral("Mum"), QStringLiteral("pw"), QStringLiteral("Teacher"));
        QList<EditorRow> rows;
        for (int job = 0; job < JobsToOpen; ++job)
            rows.append({QStringLiteral("Job number %1").arg(job), QStringLiteral("Mon"),
                         QStringLiteral("Mum"), QStringLiteral("Easy"), QStringLiteral("5")});
        StoreChart(Chart, rows, QStringLiteral("Anna"), QDate(2001, 3, 4), QDate(2001, 3, 10),
                   true);
        StartSession(QStringLiteral("Mum"), QStringLiteral("Teacher"));
    }

    /// The Ok button of the list of charts, in which the chart has been selected.
    static QPushButton& ChooseChart() {
        auto& dialog = Default<Openfrm>();
        dialog.Show();
        Settle();
        auto& list = Find<QListWidget>(dialog, QStringLiteral("ChartList"));
        list.setCurrentItem(list.findItems(Chart, Qt::MatchExactly).value(0));
        return Find<QPushButton>(dialog, QStringLiteral("Ok"));
    }

    static ChartEditor& LastEditor() {
        return dynamic_cast<ChartEditor&>(*ChartEditors.Peek(ChartFormIndex - 1));
    }
};

} // namespace

TEST_F(EditorBench, OpeningAChartOf100JobsUntilItIsPainted) {
    PaintCounter paints(DefaultForm(QStringLiteral("MainForm")).Widget());
    ExpectTime("opening a chart of 100 jobs", 100, [&] {
        QPushButton& ok = ChooseChart();
        paints.Paints = 0;
        const double time = TimeOf([&] {
            ok.click();
            QCoreApplication::processEvents();
        });
        EXPECT_GE(paints.Paints, LeastPaints) << "the editor was not painted";
        EXPECT_EQ(LastEditor().RowCount(), JobsToOpen);
        EXPECT_EQ(LastEditor().Row(JobsToOpen - 1).Instructions,
                  QStringLiteral("Job number %1").arg(JobsToOpen - 1));
        Settle();
        LastEditor().Abandon();
        Settle();
        return time;
    });
}

TEST_F(EditorBench, OneNotchOfTheWheelOver100JobsUntilItIsPainted) {
    ChooseChart().click();
    Settle();
    ChartEditor& editor = LastEditor();
    auto& bar = Find<QScrollBar>(editor, QStringLiteral("VScroll"));
    auto& frame = Find(editor, QStringLiteral("EditChartFrame"));
    PaintCounter paints(editor);
    int turn = -120;
    ExpectTime("one notch of the wheel over 100 jobs", 16, [&] {
        const int value = bar.value();
        const QPointF middle(frame.rect().center());
        QWheelEvent notch(middle, frame.mapToGlobal(middle), {}, QPoint(0, turn), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        paints.Paints = 0;
        const double time = TimeOf([&] {
            QCoreApplication::sendEvent(&frame, &notch);
            QCoreApplication::processEvents();
        });
        EXPECT_EQ(std::abs(bar.value() - value), 3);
        EXPECT_GE(paints.Paints, LeastPaints) << "the rows were not painted";
        // Down to the middle of the list and up again.
        if (bar.value() >= JobsToOpen / 2 || bar.value() == 0)
            turn = -turn;
        Settle();
        return time;
    });
}

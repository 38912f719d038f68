#include "authoring/ChartEditor.h"
#include "platform/runtime/Actions.h"
#include "tests/bench/BenchTest.h"
#include "tests/bench/PlainRows.h"
#include "tests/bench/PlainTables.h"
#include "tests/common/FormerFile.h"

#include <QFile>

namespace {

constexpr int JobsToSave = 40;
const QDate Sunday(2001, 3, 4);
const QDate Saturday(2001, 3, 10);

/// What the list of children does on Ok for every child selected.
void SaveFor(const QString& child) {
    const QString chart = QStringLiteral("Chores ") + child;
    if (Database().ChartExist(chart)) {
        Database().DuplicateChartHistory(chart);
        Database().ClearChartPoints(chart);
        Database().WriteInfoToChart(chart, 0, false, child, Sunday, Saturday, true);
    } else {
        Database().WriteInfoToChart(chart, 0, false, child, Sunday, Saturday, true);
        Database().DuplicateChartHistory(chart);
    }
}

} // namespace

TEST_F(BenchTest, SavingAChartOf40JobsFor30ChildrenASecondTime) {
    OpenLargeDatabase();
    ChartEditors.RedimPreserve(0);
    auto& editor = dynamic_cast<ChartEditor&>(ChartEditors.At(0));
    editor.IsNewChart = true;
    editor.ChartName = QStringLiteral("Chores");
    editor.StartingFrom();
    for (int job = 0; job < JobsToSave; ++job) {
        if (job > 0)
            editor.NewTask_Click();
        editor.SetRow(job, {QStringLiteral("Job number %1").arg(job), QStringLiteral("Mon-Fri"),
                            QStringLiteral("Mum"), QStringLiteral("Easy"), QStringLiteral("5")});
    }
    ASSERT_EQ(editor.RowCount(), JobsToSave);
    const auto saveForAll = [] {
        RunAction([] {
            for (int child = 0; child < Children; ++child)
                SaveFor(ChildName(child));
        });
    };
    saveForAll();

    const auto expect = [&](const char* what, double limit, PlainSql& plain) {
        const auto savePlainly = [&] {
            plain.Begin();
            for (int child = 0; child < Children; ++child) {
                const std::string name = ChildName(child).toStdString();
                plain.SaveAgain("Chores " + name, "History Chores " + name + " from: 3/4/2001",
                                name, JobsToSave);
            }
            plain.Commit();
        };
        ExpectRatio(what, limit, [&] {
            return Measure([&] { return TimeOf(saveForAll); }, [&] { return TimeOf(savePlainly); });
        });
    };
    const QString formerFile = Path(QStringLiteral("former.sqlite"));
    WriteFormerFile(formerFile, PresentFile());
    PlainTables tables(formerFile);
    expect("a save for 30 children, to a table a chart", 0.6, tables);
    const QString plainFile = Path(QStringLiteral("plain.sqlite"));
    ASSERT_TRUE(QFile::copy(PresentFile(), plainFile));
    PlainRows plainRows(plainFile);
    expect("a save for 30 children, to this layout", 1.5, plainRows);

    // Both have written the same.
    EXPECT_EQ(TableNames().size(), Charts + HistoryTables + 2 * Children);
    const QStringList rows = Rows(QStringLiteral("Chores Child29"));
    EXPECT_EQ(rows.size(), JobsToSave * 5);
    ResetSession();
    QFile::remove(Path(QStringLiteral("Database/Charts.mdb")));
    ASSERT_TRUE(QFile::copy(plainFile, Path(QStringLiteral("Database/Charts.mdb"))));
    Database().InitDatabse();
    EXPECT_EQ(Rows(QStringLiteral("Chores Child29")), rows);
    EXPECT_EQ(Rows(QStringLiteral("History Chores Child29 from: 3/4/2001")).size(), rows.size());
}

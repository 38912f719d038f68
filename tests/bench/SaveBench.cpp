#include "authoring/ChartEditor.h"
#include "platform/runtime/Actions.h"
#include "tests/bench/BenchTest.h"
#include "tests/bench/PlainTables.h"

#include <QFile>

namespace {

constexpr int Jobs = 40;
const QDate FirstDate(2001, 3, 4);
const QDate LastDate(2001, 3, 10);

/// What the list of children does on Ok for every child selected.
void SaveFor(const QString& child) {
    const QString chart = QStringLiteral("Chores ") + child;
    if (Database().ChartExist(chart)) {
        Database().DuplicateChartHistory(chart);
        Database().ClearChartPoints(chart);
        Database().WriteInfoToChart(chart, 0, false, child, FirstDate, LastDate, true);
    } else {
        Database().WriteInfoToChart(chart, 0, false, child, FirstDate, LastDate, true);
        Database().DuplicateChartHistory(chart);
    }
}

} // namespace

TEST_F(BenchTest, SavingAChartOf40JobsFor30ChildrenASecondTime) {
    ChartEditors.RedimPreserve(0);
    auto& editor = dynamic_cast<ChartEditor&>(ChartEditors.At(0));
    editor.IsNewChart = true;
    editor.ChartName = QStringLiteral("Chores");
    editor.StartingFrom();
    for (int job = 0; job < Jobs; ++job) {
        if (job > 0)
            editor.NewTask_Click();
        editor.SetRow(job, {QStringLiteral("Job number %1").arg(job), QStringLiteral("Mon-Fri"),
                            QStringLiteral("Mum"), QStringLiteral("Easy"), QStringLiteral("5")});
    }
    ASSERT_EQ(editor.RowCount(), Jobs);
    const auto saveForAll = [] {
        RunAction([] {
            for (int child = 0; child < Children; ++child)
                SaveFor(ChildName(child));
        });
    };
    saveForAll();

    const QString plainFile = Path(QStringLiteral("plain.sqlite"));
    ASSERT_TRUE(QFile::copy(Path(QStringLiteral("Database/Charts.mdb")), plainFile));
    PlainTables plain(plainFile);
    const auto savePlainly = [&] {
        plain.Begin();
        for (int child = 0; child < Children; ++child) {
            const std::string name = ChildName(child).toStdString();
            plain.SaveAgain("Chores " + name, "History Chores " + name + " from: 3/4/2001", name,
                            Jobs);
        }
        plain.Commit();
    };
    ExpectRatio("a chart of 40 jobs saved for 30 children", 2, [&] {
        return Measure([&] { return TimeOf(saveForAll); }, [&] { return TimeOf(savePlainly); });
    });

    // Both have written the same.
    EXPECT_EQ(TableNames().size(), 2 * Children);
    const QStringList rows = Rows(QStringLiteral("Chores Child29"));
    EXPECT_EQ(rows.size(), Jobs * 5);
    ResetSession();
    QFile::remove(Path(QStringLiteral("Database/Charts.mdb")));
    ASSERT_TRUE(QFile::copy(plainFile, Path(QStringLiteral("Database/Charts.mdb"))));
    Database().InitDatabse();
    EXPECT_EQ(Rows(QStringLiteral("Chores Child29")), rows);
    EXPECT_EQ(Rows(QStringLiteral("History Chores Child29 from: 3/4/2001")).size(), rows.size());
}

#include "tests/bench/BenchTest.h"
#include "tests/bench/PlainTables.h"

#include "platform/runtime/Actions.h"

namespace {

class NamesOnly : public NameList {
public:
    QStringList Names;
    void Clear() override { Names.clear(); }
    void AddItem(const QString& text) override { Names += text; }
};

QStringList ListOf(bool ownOnly) {
    NamesOnly list;
    RunAction([&] { Database().PopulateChartList(list, ownOnly); });
    return list.Names;
}

} // namespace

TEST_F(BenchTest, ListOfAChildsCharts) {
    OpenLargeDatabase();
    CurrentUser = ChildName(7);
    PlainTables plain(Path(QStringLiteral("Database/Charts.mdb")));
    QStringList listed;
    QStringList wanted;
    ExpectRatio("a child's list among 1,000 charts", 3, [&] {
        return Measure([&] { return TimeOf([&] { listed = ListOf(true); }); },
                       [&] {
                           return TimeOf([&] {
                               wanted = plain.ChartsOf(ChildName(7).toStdString(), "2001-03-07",
                                                       "2001-02-28");
                           });
                       });
    });
    EXPECT_EQ(listed, wanted);
    EXPECT_EQ(listed.size(), 34);
}

TEST_F(BenchTest, ListOfAllCharts) {
    OpenLargeDatabase();
    PlainTables plain(Path(QStringLiteral("Database/Charts.mdb")));
    QStringList listed;
    QStringList wanted;
    ExpectRatio("an adult's list of 1,000 charts", 3, [&] {
        return Measure([&] { return TimeOf([&] { listed = ListOf(false); }); },
                       [&] { return TimeOf([&] { wanted = plain.ChartNames(); }); });
    });
    EXPECT_EQ(listed, wanted);
    EXPECT_EQ(listed.size(), Charts);
}

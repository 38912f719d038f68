#include "tests/bench/BenchTest.h"
#include "tests/bench/PlainRows.h"
#include "tests/bench/PlainTables.h"

#include "platform/runtime/Actions.h"

namespace {

QStringList ListOf(bool ownOnly) {
    FakeList list;
    RunAction([&] { Database().PopulateChartList(list, ownOnly); });
    return list.items;
}

} // namespace

TEST_F(BenchTest, ListOfAChildsCharts) {
    OpenLargeDatabase();
    CurrentUser = ChildName(7);
    QStringList listed;
    QStringList wanted;
    const auto expect = [&](const char* what, double limit, PlainSql& plain) {
        ExpectRatio(what, limit, [&] {
            return Measure([&] { return TimeOf([&] { listed = ListOf(true); }); },
                           [&] {
                               return TimeOf([&] {
                                   wanted = plain.ChartsOf(ChildName(7).toStdString(), "2001-03-07",
                                                           "2001-02-28");
                               });
                           });
        });
        wanted.sort(Qt::CaseInsensitive);
        EXPECT_EQ(listed, wanted);
        EXPECT_EQ(listed.size(), 34);
    };
    PlainTables tables(FormerFile());
    expect("a child's list, to a table a chart", 0.5, tables);
    PlainRows rows(PresentFile());
    expect("a child's list, to this layout", 1.5, rows);
}

TEST_F(BenchTest, ListOfAllCharts) {
    OpenLargeDatabase();
    QStringList listed;
    QStringList wanted;
    const auto expect = [&](const char* what, double limit, PlainSql& plain) {
        ExpectRatio(what, limit, [&] {
            return Measure([&] { return TimeOf([&] { listed = ListOf(false); }); },
                           [&] { return TimeOf([&] { wanted = plain.ChartNames(); }); });
        });
        wanted.sort(Qt::CaseInsensitive);
        EXPECT_EQ(listed, wanted);
        EXPECT_EQ(listed.size(), Charts);
    };
    PlainTables tables(FormerFile());
    expect("an adult's list, to a table a chart", 0.2, tables);
    PlainRows rows(PresentFile());
    expect("an adult's list, to this layout", 1.5, rows);
}

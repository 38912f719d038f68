#include "platform/runtime/Dates.h"
#include "tests/store/StoreTest.h"

namespace {

const QString History = QStringLiteral("History Chores Anna from: ");

class ChartHistoryTest : public StoreTest {
protected:
    ChartHistoryTest() { CurrentUser = QStringLiteral("Anna"); }

    void SaveSchoolChart() {
        SaveChart(Chores,
                  {Job(QStringLiteral("Board"), QStringLiteral("Mon")),
                   Job(QStringLiteral("Milk"), QStringLiteral("Tue"))},
                  CurrentUser, true, QDate(2001, 3, 5), QDate(2001, 3, 9));
    }

    void SaveHomeChart(bool autoCreate = true) {
        SaveChart(Chores,
                  {Job(QStringLiteral("Rake"), QStringLiteral("Mon")),
                   Job(QStringLiteral("Feed"), QStringLiteral("Tue"))},
                  CurrentUser, autoCreate);
    }

    /// Fills a child's list on that day, which rolls what is due, and commits as the list's handler
    /// does.
    static QStringList ChildsList(const QDate& today) {
        SetToday(today);
        FakeList list;
        Database().PopulateChartList(list, true);
        Database().Commit();
        return list.items;
    }
};

TEST_F(ChartHistoryTest, TheCopyHoldsTicksAndOwnerButNotAutoCreate) {
    SaveHomeChart();
    TickDay(Chores, QStringLiteral("Mon"));
    Database().DuplicateChartHistory(Chores);
    Database().Commit();
    EXPECT_EQ(Rows(History + QStringLiteral("3/4/2001")),
              (QStringList{QStringLiteral("Rake|Mon|Mum|Easy|5|-1|2001-03-04|2001-03-10|Anna|0"),
                           QStringLiteral("Feed|Tue|Mum|Easy|5|0|<null>|<null>|<null>|0")}));
    EXPECT_TRUE(Rows(Chores).value(0).endsWith(QStringLiteral("Anna|-1")));
}

TEST_F(ChartHistoryTest, ASecondCopyOfTheSameWeekReplacesTheFirst) {
    SaveHomeChart();
    Database().DuplicateChartHistory(Chores);
    TickDay(Chores, QStringLiteral("Mon"));
    Database().DuplicateChartHistory(Chores);
    Database().Commit();
    EXPECT_EQ(TableNames(), (QStringList{Chores, History + QStringLiteral("3/4/2001")}));
    EXPECT_TRUE(
        Rows(History + QStringLiteral("3/4/2001")).value(0).contains(QStringLiteral("|-1|2001")));
}

TEST_F(ChartHistoryTest, AnEmptyChartFailsAndLeavesNoHistory) {
    MakeEmptyChart(Chores);
    EXPECT_ERROR(3021, Database().DuplicateChartHistory(Chores));
    EXPECT_EQ(TableNames(), QStringList{Chores});
}

TEST_F(ChartHistoryTest, HistoryOfANobodyChartIsOwnedByNobodyAndFoundForNoChild) {
    SaveChart(Chores, {Job(QStringLiteral("a"), QStringLiteral("Mon"))}, QStringLiteral("Nobody"));
    Database().DuplicateChartHistory(Chores);
    FakeList list;
    Database().RetreveHistoryChartsAvailable(CurrentUser, list);
    EXPECT_EQ(list.items, QStringList());
    Database().RetreveHistoryChartsAvailable(QStringLiteral("Nobody"), list);
    EXPECT_EQ(list.items.size(), 1);
}

TEST_F(ChartHistoryTest, AFiveDayChartRestsOverTheWeekendAndRollsOnMonday) {
    SaveSchoolChart();
    EXPECT_EQ(ChildsList(QDate(2001, 3, 9)), QStringList{Chores}) << "Friday";
    EXPECT_EQ(ChildsList(QDate(2001, 3, 10)), QStringList()) << "Saturday";
    EXPECT_EQ(ChildsList(QDate(2001, 3, 11)), QStringList()) << "Sunday";
    EXPECT_EQ(TableNames(), QStringList{Chores});
    EXPECT_EQ(ChildsList(QDate(2001, 3, 12)), QStringList{Chores}) << "Monday";
    EXPECT_EQ(TableNames(), (QStringList{Chores, History + QStringLiteral("3/5/2001")}));
    Database().ReadDates(Chores);
    EXPECT_EQ(Database().FirstDateText, QStringLiteral("3/12/2001"));
    EXPECT_EQ(Database().LastDateText, QStringLiteral("3/16/2001"));
}

TEST_F(ChartHistoryTest, ASevenDayChartRollsOnTheFollowingSundayAndIsListedThatDay) {
    SaveHomeChart();
    EXPECT_EQ(ChildsList(QDate(2001, 3, 10)), QStringList{Chores});
    EXPECT_EQ(TableNames(), QStringList{Chores});
    EXPECT_EQ(ChildsList(QDate(2001, 3, 11)), QStringList{Chores});
    EXPECT_EQ(TableNames(), (QStringList{Chores, History + QStringLiteral("3/4/2001")}));
}

TEST_F(ChartHistoryTest, ARolledChartKeepsRowsAndAutoCreateAndLosesItsTicks) {
    SaveHomeChart();
    TickDay(Chores, QStringLiteral("Mon"));
    ChildsList(QDate(2001, 3, 11));
    EXPECT_EQ(Rows(Chores),
              (QStringList{QStringLiteral("Rake|Mon|Mum|Easy|5|0|2001-03-11|2001-03-17|Anna|-1"),
                           QStringLiteral("Feed|Tue|Mum|Easy|5|0|<null>|<null>|<null>|0")}));
    EXPECT_TRUE(
        Rows(History + QStringLiteral("3/4/2001")).value(0).contains(QStringLiteral("|5|-1|")));
}

TEST_F(ChartHistoryTest, OnlyTheFirstRowsDatesMove) {
    SaveChart(Chores, {Job(QStringLiteral("Feed"), QStringLiteral("Mon-Fri"))}, CurrentUser, true);
    ChildsList(QDate(2001, 3, 11));
    const QStringList rows = Rows(Chores);
    EXPECT_TRUE(rows.value(0).contains(QStringLiteral("2001-03-11|2001-03-17")));
    EXPECT_TRUE(rows.value(1).contains(QStringLiteral("2001-03-04|2001-03-10")));
}

TEST_F(ChartHistoryTest, AListFilledTwiceRollsAChartOnce) {
    SaveHomeChart();
    ChildsList(QDate(2001, 3, 11));
    ChildsList(QDate(2001, 3, 11));
    EXPECT_EQ(TableNames().size(), 2);
    Database().ReadDates(Chores);
    EXPECT_EQ(Database().FirstDateText, QStringLiteral("3/11/2001"));
}

TEST_F(ChartHistoryTest, EveryDueChartRollsInOneGoWhereverItsHistoryTableStands) {
    const QList<EditorRow> rows = {Job(QStringLiteral("a"), QStringLiteral("Mon"))};
    // Saved a second time, a chart stands behind its history table.
    SaveChart(Chores, rows, CurrentUser, true);
    Database().DuplicateChartHistory(Chores);
    SaveChart(Chores, rows, CurrentUser, true);
    SaveChart(QStringLiteral("Garden Anna"), rows, CurrentUser, true);
    EXPECT_EQ(ChildsList(QDate(2001, 3, 11)), (QStringList{Chores, QStringLiteral("Garden Anna")}));
}

TEST_F(ChartHistoryTest, AChartThatMissedItsWeekNeverRollsAgain) {
    SaveHomeChart();
    EXPECT_EQ(ChildsList(QDate(2001, 3, 18)), QStringList());
    EXPECT_EQ(ChildsList(QDate(2001, 3, 25)), QStringList());
    EXPECT_EQ(TableNames(), QStringList{Chores});
}

TEST_F(ChartHistoryTest, AChartThatDoesNotRollDropsOutOfTheList) {
    SaveHomeChart(false);
    EXPECT_EQ(ChildsList(QDate(2001, 3, 11)), QStringList());
    EXPECT_EQ(TableNames(), QStringList{Chores});
}

} // namespace

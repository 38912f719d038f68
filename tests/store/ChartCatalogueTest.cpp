#include "platform/runtime/Dates.h"
#include "store/ChartFields.h"
#include "tests/common/Charts.h"
#include "tests/store/StoreTest.h"

namespace {

class ChartCatalogueTest : public StoreTest {
protected:
    ChartCatalogueTest() { CurrentUser = QStringLiteral("Anna"); }

    void Save(const QString& name, const QDate& first, const QString& owner = CurrentUser,
              bool autoCreate = false) {
        SaveChart(name, {Job(QStringLiteral("a"), QStringLiteral("Mon"))}, owner, autoCreate, first,
                  first.addDays(6));
    }

    /// Fills a list, which rolls what is due, and commits as the list's handler does.
    static QStringList Charts(bool ownOnly) {
        FakeList list;
        Database().PopulateChartList(list, ownOnly);
        Database().Commit();
        return list.items;
    }

    /// The names in the lists of the reports.
    static QStringList ReportCharts(const QString& owner = CurrentUser) {
        FakeList list;
        Database().RetreveChartsAvailable(owner, list);
        return list.items;
    }
    static QStringList ReportHistory(const QString& owner = CurrentUser) {
        FakeList list;
        Database().RetreveHistoryChartsAvailable(owner, list);
        return list.items;
    }
    static QStringList HistoryOfMarch(const QString& owner = CurrentUser) {
        QStringList names;
        Database().CreateChartNames(owner, names, QDate(2001, 3, 1), QDate(2001, 3, 31));
        return names;
    }

    static QDate FirstDateOf(const QString& chart) {
        Database().ReadDates(chart);
        return DateFromText(Database().FirstDateText);
    }
};

TEST_F(ChartCatalogueTest, TheTwoExistenceTestsDifferInCase) {
    Save(QStringLiteral("Chores"), Sunday);
    EXPECT_FALSE(Database().CheckForDuplicates(QStringLiteral("chores")));
    EXPECT_TRUE(Database().CheckForDuplicates(QStringLiteral("Chores")));
    EXPECT_TRUE(Database().ChartExist(QStringLiteral("chores")));
    EXPECT_TRUE(Database().CheckForDuplicates(QStringLiteral("USERS")));
}

TEST_F(ChartCatalogueTest, ExistenceIgnoresCaseBeyondTheLatinAlphabet) {
    Save(QStringLiteral("Äpfel"), Sunday);
    EXPECT_TRUE(Database().ChartExist(QStringLiteral("äPFEL")));
}

TEST_F(ChartCatalogueTest, TheAdultsListHoldsAllChartsInTableOrderAndRollsNone) {
    Save(QStringLiteral("Old"), Sunday.addDays(-7), QStringLiteral("Ben"), true);
    Save(QStringLiteral("Now"), Sunday);
    Save(QStringLiteral("Next"), Sunday.addDays(7));
    EXPECT_EQ(Charts(false),
              (QStringList{QStringLiteral("Next"), QStringLiteral("Now"), QStringLiteral("Old")}));
    EXPECT_EQ(FirstDateOf(QStringLiteral("Old")), Sunday.addDays(-7));
}

TEST_F(ChartCatalogueTest, AChartOfNextWeekIsListedFromItsFirstDayOn) {
    Save(QStringLiteral("Next"), Sunday.addDays(7));
    SetToday(Sunday.addDays(6));
    EXPECT_EQ(Charts(true), QStringList());
    SetToday(Sunday.addDays(7));
    EXPECT_EQ(Charts(true), QStringList{QStringLiteral("Next")});
}

TEST_F(ChartCatalogueTest, AChartOfAnotherOwnerIsNotListedButRolledIfDue) {
    Save(QStringLiteral("Bens"), Sunday.addDays(-7), QStringLiteral("Ben"), true);
    EXPECT_EQ(Charts(true), QStringList());
    EXPECT_EQ(FirstDateOf(QStringLiteral("Bens")), Sunday);
    EXPECT_EQ(TableNames(), (QStringList{QStringLiteral("Bens"),
                                         QStringLiteral("History Bens from: 2/25/2001")}));
}

TEST_F(ChartCatalogueTest, TheListIsNotClearedFirst) {
    Save(QStringLiteral("Now"), Sunday);
    FakeList list;
    list.items = {QStringLiteral("before")};
    Database().PopulateChartList(list, true);
    EXPECT_EQ(list.items, (QStringList{QStringLiteral("before"), QStringLiteral("Now")}));
}

TEST_F(ChartCatalogueTest, AnEmptyChartIsJudgedByTheDatesReadBeforeIt) {
    Save(QStringLiteral("A former one"), Sunday.addDays(-7));
    MakeEmptyChart(QStringLiteral("Empty"));
    EXPECT_ERROR(3021, Charts(true));
}

TEST_F(ChartCatalogueTest, OwnerAndAutoCreateAreThoseOfTheFirstRow) {
    Save(QStringLiteral("Chores"), Sunday, QStringLiteral("Ben"), true);
    EXPECT_EQ(Database().ReturnExistingKidName(QStringLiteral("Chores")), QStringLiteral("Ben"));
    EXPECT_TRUE(Database().ReturnAutoCreate(QStringLiteral("Chores")));
    EXPECT_FALSE(Database().ReturnAutoCreate(QStringLiteral("none")));
    MakeEmptyChart(QStringLiteral("Empty"));
    EXPECT_FALSE(Database().ReturnAutoCreate(QStringLiteral("Empty")));
    EXPECT_ERROR(3021, Database().ReturnExistingKidName(QStringLiteral("Empty")));
}

TEST_F(ChartCatalogueTest, ReportListsCompareTheMonthsNumberOfAnyYear) {
    Save(QStringLiteral("Now"), Sunday);
    Save(QStringLiteral("Former March"), QDate(1999, 3, 7));
    Save(QStringLiteral("February"), QDate(2001, 2, 25));
    Save(QStringLiteral("Bens"), Sunday, QStringLiteral("Ben"));
    Database().DuplicateChartHistory(QStringLiteral("Now"));
    FakeList list;
    list.items = {QStringLiteral("cleared")};
    Database().RetreveChartsAvailable(CurrentUser, list);
    EXPECT_EQ(list.items, (QStringList{QStringLiteral("Former March"), QStringLiteral("Now")}));
    Database().RetreveHistoryChartsAvailable(CurrentUser, list);
    EXPECT_EQ(list.items, QStringList{QStringLiteral("History Now from: 3/4/2001")});
}

TEST_F(ChartCatalogueTest, PrefixesAreToldByTheirCaseInEveryList) {
    const QStringList names = {QStringLiteral("history"),        QStringLiteral("HISTORY of art"),
                               QStringLiteral("MSYS Anna"),      QStringLiteral("msystem"),
                               QStringLiteral("PRINTED matter"), QStringLiteral("printing"),
                               QStringLiteral("USERS Anna"),     QStringLiteral("users Anna two")};
    for (const QString& name : names)
        Save(name, Sunday);
    EXPECT_EQ(Charts(false), names);
    EXPECT_EQ(Charts(true), names);
    EXPECT_EQ(ReportCharts(), names);
    EXPECT_EQ(ReportHistory(), QStringList());
    EXPECT_EQ(HistoryOfMarch(), QStringList());
}

TEST_F(ChartCatalogueTest, TheEnginesTablesAreNeitherReadNorListedForReports) {
    Save(QStringLiteral("MSystem Anna"), Sunday);
    MakeEmptyChart(QStringLiteral("MSys empty"));
    Save(QStringLiteral("Chores"), Sunday);
    EXPECT_EQ(ReportCharts(), QStringList{QStringLiteral("Chores")});
    EXPECT_EQ(ReportHistory(), QStringList());
}

TEST_F(ChartCatalogueTest, AChartOfANullOwnerIsNobodysAndStopsNoList) {
    const QString history = QStringLiteral("History Lost from: 3/4/2001");
    for (const QString& name : {QStringLiteral("Lost"), history}) {
        Save(name, Sunday);
        SetNull(name, 0, ChartField::UserName);
    }
    Save(QStringLiteral("Now"), Sunday);
    Database().DuplicateChartHistory(QStringLiteral("Now"));
    EXPECT_EQ(Charts(true), QStringList{QStringLiteral("Now")});
    EXPECT_EQ(ReportCharts(), QStringList{QStringLiteral("Now")});
    const QStringList historyOfNow = {QStringLiteral("History Now from: 3/4/2001")};
    EXPECT_EQ(ReportHistory(), historyOfNow);
    EXPECT_EQ(HistoryOfMarch(), historyOfNow);
    CurrentUser.clear();
    EXPECT_EQ(Charts(true), QStringList()) << "nor is it the account's without a name";
    EXPECT_EQ(ReportCharts(), QStringList());
    EXPECT_EQ(ReportHistory(), QStringList());
    EXPECT_EQ(HistoryOfMarch(), QStringList());
}

TEST_F(ChartCatalogueTest, AModeThatIsNeitherTrueNorFalseListsAndRollsNothing) {
    Save(QStringLiteral("Due"), Sunday.addDays(-7), CurrentUser, true);
    FakeList list;
    for (const int mode : {1, -2, 2}) {
        Database().PopulateChartList(list, Mode(static_cast<qint16>(mode)));
        EXPECT_EQ(list.items, QStringList()) << mode;
    }
    EXPECT_EQ(FirstDateOf(QStringLiteral("Due")), Sunday.addDays(-7));
    Database().PopulateChartList(list, Mode(-1));
    EXPECT_EQ(list.items, QStringList{QStringLiteral("Due")});
}

TEST_F(ChartCatalogueTest, InANewMonthTheChartsOfTheFormerMonthVanishFromTheReportLists) {
    Save(QStringLiteral("Turn of the month"), QDate(2001, 2, 25));
    SetToday(QDate(2001, 3, 1));
    FakeList list;
    Database().RetreveChartsAvailable(CurrentUser, list);
    EXPECT_EQ(list.items, QStringList());
    SetToday(QDate(2001, 2, 28));
    Database().RetreveChartsAvailable(CurrentUser, list);
    EXPECT_EQ(list.items, QStringList{QStringLiteral("Turn of the month")});
}

TEST_F(ChartCatalogueTest, TheScratchTableIsListedForAnOwnerNamedPrinted) {
    Save(QStringLiteral("Printed"), Sunday, QStringLiteral("Printed"));
    FakeList list;
    Database().RetreveChartsAvailable(QStringLiteral("Printed"), list);
    EXPECT_EQ(list.items, QStringList{QStringLiteral("Printed")});
}

TEST_F(ChartCatalogueTest, HistoryWithinDatesIsCollectedInTableOrderOfThisMonthAlone) {
    for (const QDate& first : {Sunday, Sunday.addDays(7), QDate(2001, 2, 25), QDate(2000, 3, 5)}) {
        Save(QStringLiteral("Chores"), first);
        Database().DuplicateChartHistory(QStringLiteral("Chores"));
    }
    QStringList names;
    Database().CreateChartNames(CurrentUser, names, QDate(2000, 1, 1), QDate(2001, 3, 11));
    EXPECT_EQ(names, (QStringList{QStringLiteral("History Chores from: 3/11/2001"),
                                  QStringLiteral("History Chores from: 3/4/2001"),
                                  QStringLiteral("History Chores from: 3/5/2000")}));
    names = {QStringLiteral("as it came")};
    Database().CreateChartNames(CurrentUser, names, QDate(2002, 1, 1), QDate(2002, 3, 11));
    EXPECT_EQ(names, QStringList{QStringLiteral("as it came")});
    names = {QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")};
    Database().CreateChartNames(CurrentUser, names, Sunday, Sunday);
    EXPECT_EQ(names, QStringList{QStringLiteral("History Chores from: 3/4/2001")})
        << "the bounds are those of what was found";
    names.clear();
    Database().CreateChartNames(QStringLiteral("Ben"), names, QDate(2000, 1, 1),
                                QDate(2001, 12, 31));
    EXPECT_EQ(names, QStringList());
}

} // namespace

#include "tests/store/StoreTest.h"

using namespace Qt::StringLiterals;

namespace {

class ReturnDateRangeTest : public StoreTest {
protected:
    void Save(const QString& name, const QDate& first, const QDate& last,
              const QString& owner = u"Anna"_s) {
        SaveChart(name, {Job(u"Dust"_s, u"Mon"_s), Job(u"Sweep"_s, u"Tue"_s)}, owner, false, first,
                  last);
    }
    void SaveWeek(const QString& name, const QDate& first) { Save(name, first, first.addDays(6)); }

    static QString RangeOf(const QStringList& names, const QString& kid = u"Anna"_s) {
        return Database().ReturnDateRange(kid, names);
    }
};

TEST_F(ReturnDateRangeTest, OneTablesWeek) {
    SaveWeek(u"Chores"_s, Sunday);
    SaveWeek(u"Piano"_s, Sunday.addDays(7));
    EXPECT_EQ(RangeOf({u"Chores"_s}), u"Starting from: 3/4/2001 until 3/10/2001"_s);
    EXPECT_EQ(RangeOf({u"PIANO"_s}), u"Starting from: 3/11/2001 until 3/17/2001"_s);
}

TEST_F(ReturnDateRangeTest, FromTheEarliestBeginToTheLatestEnd) {
    SaveWeek(u"A"_s, Sunday);
    SaveWeek(u"B"_s, Sunday.addDays(-21));
    Save(u"C"_s, Sunday.addDays(-7), Sunday.addDays(40));
    SaveWeek(u"D"_s, Sunday.addDays(7));
    const QString whole = u"Starting from: 2/11/2001 until 4/13/2001"_s;
    EXPECT_EQ(RangeOf({u"A"_s, u"B"_s, u"C"_s, u"D"_s}), whole);
    EXPECT_EQ(RangeOf({u"D"_s, u"C"_s, u"B"_s, u"A"_s}), whole);
    EXPECT_EQ(RangeOf({u"A"_s, u"D"_s}), u"Starting from: 3/4/2001 until 3/17/2001"_s);
}

TEST_F(ReturnDateRangeTest, BothEndsGrowWhereWeeksOverlap) {
    SaveWeek(u"A"_s, Sunday);
    Save(u"B"_s, Sunday.addDays(-3), Sunday.addDays(16));
    EXPECT_EQ(RangeOf({u"A"_s, u"B"_s}), u"Starting from: 3/1/2001 until 3/20/2001"_s);
    EXPECT_EQ(RangeOf({u"B"_s, u"A"_s}), u"Starting from: 3/1/2001 until 3/20/2001"_s);
}

TEST_F(ReturnDateRangeTest, DatesStandInOrderAcrossYearsAndMonths) {
    Save(u"A"_s, QDate(2000, 12, 31), QDate(2001, 1, 6));
    Save(u"B"_s, QDate(2001, 10, 7), QDate(2001, 10, 13));
    Save(u"C"_s, QDate(2001, 9, 30), QDate(2001, 10, 6));
    EXPECT_EQ(RangeOf({u"A"_s, u"B"_s, u"C"_s}), u"Starting from: 12/31/2000 until 10/13/2001"_s);
}

TEST_F(ReturnDateRangeTest, NameBesideTheAccountsTableIsLeftOut) {
    SaveWeek(u"A"_s, Sunday);
    SaveWeek(u"B"_s, Sunday.addDays(7));
    SaveWeek(u"Zoo"_s, Sunday.addDays(70));
    ASSERT_EQ(TableNames(true), (QStringList{u"A"_s, u"B"_s, u"USERS"_s, u"Zoo"_s}));
    EXPECT_EQ(RangeOf({u"A"_s, u"B"_s, u"Zoo"_s}), u"Starting from: 3/4/2001 until 3/17/2001"_s);
    EXPECT_EQ(RangeOf({u"A"_s, u"A"_s, u"A"_s, u"B"_s}),
              u"Starting from: 3/4/2001 until 3/17/2001"_s);
    EXPECT_EQ(RangeOf({u"Zoo"_s}), u"Starting from: 5/13/2001 until 5/19/2001"_s);
}

TEST_F(ReturnDateRangeTest, NothingTakenLeavesBothDatesEmpty) {
    SaveWeek(u"Zoo"_s, Sunday);
    ASSERT_EQ(TableNames(true), (QStringList{u"USERS"_s, u"Zoo"_s}));
    EXPECT_EQ(RangeOf({u"Zoo"_s}), u"Starting from:  until "_s);
}

TEST_F(ReturnDateRangeTest, AllSpansEveryTableOfTheDatabaseWhoeverOwnsIt) {
    SaveWeek(u"Chores"_s, Sunday);
    Database().DuplicateChartHistory(u"Chores"_s);
    Save(u"History Garden"_s, QDate(2000, 5, 7), QDate(2000, 5, 13), u"Ben"_s);
    Save(u"Printed"_s, QDate(2003, 1, 1), QDate(2003, 1, 7), u"Nobody"_s);
    EXPECT_EQ(RangeOf({u"All"_s}), u"Starting from: 5/7/2000 until 1/7/2003"_s);
    EXPECT_EQ(RangeOf({u"All"_s}, u"nobody at all"_s), RangeOf({u"All"_s}));
}

TEST_F(ReturnDateRangeTest, AllLeavesOutNamesThatBeginLikeTheSystems) {
    SaveWeek(u"Chores"_s, Sunday);
    SaveWeek(u"USER manual"_s, Sunday.addDays(70));
    SaveWeek(u"MSystem"_s, Sunday.addDays(-70));
    SaveWeek(u"User"_s, Sunday.addDays(7));
    EXPECT_EQ(RangeOf({u"All"_s}), u"Starting from: 3/4/2001 until 3/17/2001"_s);
    SaveWeek(u"msystem"_s, Sunday.addDays(14));
    EXPECT_EQ(RangeOf({u"All"_s}), u"Starting from: 3/4/2001 until 3/24/2001"_s);
}

TEST_F(ReturnDateRangeTest, AllWithoutAChartIsEmpty) {
    EXPECT_EQ(RangeOf({u"All"_s}), u"Starting from:  until "_s);
}

TEST_F(ReturnDateRangeTest, TableWithoutRowsRaises3021) {
    SaveWeek(u"Chores"_s, Sunday);
    MakeEmptyChart(u"Empty"_s);
    EXPECT_ERROR(3021, RangeOf({u"All"_s}));
    EXPECT_ERROR(3021, RangeOf({u"Empty"_s}));
    EXPECT_NO_THROW(RangeOf({u"Chores"_s, u"Chores"_s, u"Empty"_s}))
        << "beside the accounts' table";
}

TEST_F(ReturnDateRangeTest, MissingTableRaises3078AndNoNamesRaise9) {
    SaveWeek(u"Chores"_s, Sunday);
    EXPECT_ERROR(3078, RangeOf({u"gone"_s}));
    EXPECT_ERROR(9, RangeOf({}));
    EXPECT_ERROR(9, RangeOf({u"Chores"_s, u"Chores"_s, u"Chores"_s}))
        << "more names than the catalogue has tables";
}

TEST_F(ReturnDateRangeTest, DatesAreInTheSystemsShortForm) {
    SaveWeek(u"Chores"_s, Sunday);
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(RangeOf({u"All"_s}), u"Starting from: 04.03.2001 until 10.03.2001"_s);
}

} // namespace

#include "store/TableNames.h"
#include "tests/common/SpoiledRows.h"
#include "tests/store/StoreTest.h"

namespace {

const QString Refusal = QStringLiteral("Sorry you have insufficient points to clear the account");

class PointsAndIncentivesTest : public StoreTest {
protected:
    PointsAndIncentivesTest() {
        Arrange([] {
            Database().AddUser(Anna, QStringLiteral("cat"), QStringLiteral("Student"),
                               PictureFile());
        });
    }

    static QString PointsOf(const QString& name) {
        FakeCaption label;
        Database().RetrievePoints(name, label);
        return label.caption;
    }
};

TEST_F(PointsAndIncentivesTest, PointsAddUpAndSurviveARestart) {
    Database().AddPoints(Anna, 15, false);
    Database().AddPoints(Anna, -5, false);
    Database().Commit();
    Restart();
    EXPECT_EQ(PointsOf(Anna), QStringLiteral("10"));
}

TEST_F(PointsAndIncentivesTest, ABalanceBelowZeroIsRefusedWithAMessageAndStays) {
    Database().AddPoints(Anna, 10, false);
    Boxes.Expect(Refusal);
    Database().AddPoints(Anna, -15, false);
    EXPECT_EQ(PointsOf(Anna), QStringLiteral("10"));
    ASSERT_EQ(Boxes.Shown().size(), 1);
    EXPECT_EQ(Boxes.Shown().first().Title, QStringLiteral("Sparkit Dutygrid"));
}

TEST_F(PointsAndIncentivesTest, CashingOutTheWholeBalanceLeavesZeroWithoutAMessage) {
    Database().AddPoints(Anna, 500, false);
    Database().AddPoints(Anna, -500, false);
    EXPECT_EQ(PointsOf(Anna), QStringLiteral("0"));
}

TEST_F(PointsAndIncentivesTest, ResetStoresZero) {
    Database().AddPoints(Anna, 77, false);
    Database().AddPoints(Anna, 0, true);
    EXPECT_EQ(PointsOf(Anna), QStringLiteral("0"));
}

TEST_F(PointsAndIncentivesTest, AResetIsToldByMinusOneAlone) {
    Database().AddPoints(Anna, 77, false);
    Database().AddPoints(Anna, 1, Mode(1));
    EXPECT_EQ(PointsOf(Anna), QStringLiteral("78"));
    Database().AddPoints(Anna, 1, Mode(-1));
    EXPECT_EQ(PointsOf(Anna), QStringLiteral("0"));
}

TEST_F(PointsAndIncentivesTest, AResetThatWouldFallBelowZeroIsRefusedToo) {
    Database().AddPoints(Anna, 10, false);
    Boxes.Expect(Refusal);
    Database().AddPoints(Anna, -15, true);
    EXPECT_EQ(PointsOf(Anna), QStringLiteral("10"));
}

TEST_F(PointsAndIncentivesTest, WithoutAnyAccountThereIsNoRecordToGoBackTo) {
    Database().AddPoints(QStringLiteral("Ben"), 5, false);
    Database().AddToy(QStringLiteral("Ben"), QStringLiteral("Bike"), QString(), 70);
    Database().DeleteAccount(Anna);
    EXPECT_ERROR(3021, Database().AddPoints(Anna, 5, false));
    EXPECT_ERROR(3021, Database().AddToy(Anna, QStringLiteral("Bike"), QString(), 70));
}

TEST_F(PointsAndIncentivesTest, ABalanceBeyond32767Overflows) {
    Database().AddPoints(Anna, 32767, false);
    EXPECT_ERROR(6, Database().AddPoints(Anna, 1, false));
    EXPECT_EQ(PointsOf(Anna), QStringLiteral("32767"));
}

TEST_F(PointsAndIncentivesTest, NullPointsFailTheConversion) {
    Spoil(UsersTable, QStringLiteral("Points = NULL"));
    EXPECT_ERROR(94, Database().AddPoints(Anna, 1, false));
}

TEST_F(PointsAndIncentivesTest, AnUnknownNameLeavesTheCaptionAsItIs) {
    EXPECT_EQ(PointsOf(QStringLiteral("Ben")), QStringLiteral("as it was"));
}

TEST_F(PointsAndIncentivesTest, AnIncentiveIsStoredWhole) {
    Database().AddToy(Anna, QStringLiteral("Bike"),
                      PictureFile(QStringLiteral("bike.png"), 0xffff0000), 700);
    FakeCaption name;
    FakeCaption cost;
    FakePicture picture;
    Database().RetrieveToy(Anna, name, picture, cost);
    EXPECT_EQ(name.caption, QStringLiteral("Bike"));
    EXPECT_EQ(cost.caption, QStringLiteral("700"));
    EXPECT_EQ(picture.picture.pixel(2, 2), 0xffff0000);
}

TEST_F(PointsAndIncentivesTest, ACostOfZeroAndAnEmptyNameBecomeNullAndLeaveTheCaptions) {
    Database().AddToy(Anna, QString(), PictureFile(), 0);
    Database().Commit();
    EXPECT_EQ(Rows(UsersTable), QStringList{QStringLiteral("Anna|cat|0|Student|<null>|<null>")});
    FakeCaption name;
    FakeCaption cost;
    FakePicture picture;
    Database().RetrieveToy(Anna, name, picture, cost);
    EXPECT_EQ(name.caption, QStringLiteral("as it was"));
    EXPECT_EQ(cost.caption, QStringLiteral("as it was"));
    EXPECT_FALSE(picture.picture.isNull());
}

TEST_F(PointsAndIncentivesTest, AnIncentiveWithoutAPictureClearsTheFormerPicture) {
    Database().AddToy(Anna, QStringLiteral("Bike"), PictureFile(), 700);
    Database().AddToy(Anna, QStringLiteral("Ball"), QString(), 70);
    FakeCaption name;
    FakeCaption cost;
    FakePicture picture;
    Database().RetrieveToy(Anna, name, picture, cost);
    EXPECT_TRUE(picture.picture.isNull());
    EXPECT_EQ(name.caption, QStringLiteral("Ball"));
}

TEST_F(PointsAndIncentivesTest, AllCheckedLooksAtEveryDay) {
    const QString chart = QStringLiteral("Chores Anna");
    SaveChart(chart, {Job(QStringLiteral("a"), QStringLiteral("Mon")),
                      Job(QStringLiteral("b"), QStringLiteral("Tue"))});
    EXPECT_FALSE(Database().AllChecked(chart));
    TickDay(chart, QStringLiteral("Mon"));
    EXPECT_FALSE(Database().AllChecked(chart)) << "Tuesday is still open";
    TickDay(chart, QStringLiteral("Tue"));
    EXPECT_TRUE(Database().AllChecked(chart));
}

TEST_F(PointsAndIncentivesTest, AChartWithoutRowsIsAllCheckedAndClearingItDoesNothing) {
    MakeEmptyChart(QStringLiteral("Empty"));
    EXPECT_TRUE(Database().AllChecked(QStringLiteral("Empty")));
    Arrange([] { Database().ClearChartPoints(QStringLiteral("Empty")); });
    EXPECT_EQ(Rows(QStringLiteral("Empty")), QStringList());
}

TEST_F(PointsAndIncentivesTest, ClearingAChartUnticksItAndKeepsTheBalance) {
    const QString chart = QStringLiteral("Chores Anna");
    SaveChart(chart, {Job(QStringLiteral("a"), QStringLiteral("Mon"))});
    TickDay(chart, QStringLiteral("Mon"));
    Database().AddPoints(Anna, 5, false);
    Database().ClearChartPoints(chart);
    EXPECT_FALSE(Database().AllChecked(chart));
    EXPECT_EQ(PointsOf(Anna), QStringLiteral("5"));
}

} // namespace

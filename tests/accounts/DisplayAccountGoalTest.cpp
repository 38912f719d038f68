#include "tests/accounts/AccountsTest.h"
#include "widgets/FittingLabel.h"
#include "widgets/GoalPath.h"
#include "widgets/GoalScene.h"

#include <QLabel>
#include <gtest/gtest.h>

namespace {

/// The way to the incentive in the account view.
class DisplayAccountGoalTest : public AccountsTest {
protected:
    static GoalPath& Way() { return Find<GoalPath>(View(), QStringLiteral("WayToGoal")); }
    static QString Words() { return Way().accessibleDescription(); }
    static void Choose(int row) {
        MousePress(row);
        MouseRelease(row);
    }
    inline static const QString NoGoal = QStringLiteral("No goal is set");
};

TEST_F(DisplayAccountGoalTest, TheWayIsThatOfTheChildWhoseFiguresAreShown) {
    OpenView();
    EXPECT_EQ(Words(), NoGoal) << "nobody is chosen";
    Choose(0);
    EXPECT_EQ(Figures(), QStringLiteral("80|Red bike|500"));
    EXPECT_EQ(Words(), QStringLiteral("80 of 500 points towards Red bike"));
    EXPECT_DOUBLE_EQ(Way().Way(), 80.0 / 500);
    ActivateAgain();
    EXPECT_EQ(Words(), NoGoal) << "the labels are empty again";
}

TEST_F(DisplayAccountGoalTest, AnEmptyCostIsNoGoal) {
    MakeChild(QStringLiteral("Zoe"), 30);
    Database().AddToy(QStringLiteral("Zoe"), QString(), QString(), 0);
    OpenView(QStringLiteral("Zoe"), QStringLiteral("Student"));
    EXPECT_EQ(Text("ToyValue"), QString());
    EXPECT_EQ(Text("Pointslbl"), QStringLiteral("30"));
    EXPECT_EQ(Words(), NoGoal);
    EXPECT_FALSE(Way().IsReached());
}

TEST_F(DisplayAccountGoalTest, CashingOutAndResettingAndANewIncentiveAreFollowed) {
    const QString zoe = QStringLiteral("Zoe");
    MakeChild(zoe, 30, QStringLiteral("Kite"), 20);
    OpenView();
    Choose(2);
    EXPECT_EQ(Words(), QStringLiteral("30 of 20 points towards Kite: goal reached"));
    Boxes.Expect(QStringLiteral("Are you sure you want to cash out?"), PromptAnswer::Yes);
    PressButton("Command1");
    Choose(2);
    EXPECT_EQ(Words(), QStringLiteral("10 of 20 points towards Kite"));
    Database().AddToy(zoe, QStringLiteral("Drum"), QString(), 40);
    Choose(2);
    EXPECT_EQ(Words(), QStringLiteral("10 of 40 points towards Drum"));
    Boxes.Expect(QStringLiteral("Are you sure you want to reset?"), PromptAnswer::Yes);
    PressButton("cmdReset");
    Choose(2);
    EXPECT_EQ(Words(), QStringLiteral("0 of 40 points towards Drum"));
}

TEST_F(DisplayAccountGoalTest, AChildSeesItsOwnWay) {
    LetChildrenSeeOthers(false);
    OpenView(Kim, QStringLiteral("Student"));
    EXPECT_EQ(Words(), QStringLiteral("80 of 500 points towards Red bike"));
}

TEST_F(DisplayAccountGoalTest, AChildThatSeesTheOthersSeesNoWayUntilItChooses) {
    LetChildrenSeeOthers(true);
    OpenView(Kim, QStringLiteral("Student"));
    EXPECT_EQ(Figures(), QStringLiteral("||"));
    EXPECT_EQ(Words(), NoGoal);
    Choose(0);
    EXPECT_EQ(Words(), QStringLiteral("80 of 500 points towards Red bike"));
}

TEST_F(DisplayAccountGoalTest, WithoutFiguresThereIsNoWayAndNothingMoves) {
    OpenView();
    const auto places = [] {
        QList<QRect> all;
        for (const char* part : {"AccountCard", "GoalCard", "Image2", "Okbtn"})
            all += Find(View(), QString::fromLatin1(part)).geometry();
        return all << View().geometry();
    };
    const QList<QRect> before = places();
    EXPECT_FALSE(Shown("WayToGoal")) << "nobody is chosen";
    Choose(1);
    EXPECT_TRUE(Shown("WayToGoal")) << "a way without a goal";
    Choose(0);
    EXPECT_TRUE(Shown("WayToGoal"));
    EXPECT_EQ(places(), before);
    ActivateAgain();
    EXPECT_FALSE(Shown("WayToGoal"));
    EXPECT_EQ(places(), before);
}

TEST_F(DisplayAccountGoalTest, AChildsWayShowsWithItsFigures) {
    LetChildrenSeeOthers(true);
    OpenView(Kim, QStringLiteral("Student"));
    EXPECT_FALSE(Shown("WayToGoal"));
    Choose(0);
    EXPECT_TRUE(Shown("WayToGoal"));
    LetChildrenSeeOthers(false);
    ActivateAgain();
    EXPECT_TRUE(Shown("WayToGoal"));
}

TEST_F(DisplayAccountGoalTest, TheGoalsCardTellsNameCostAndWhatIsNeededInTheirSizes) {
    OpenView();
    Choose(0);
    const auto font = [](const char* label) {
        return Find<QLabel>(View(), QString::fromLatin1(label)).font();
    };
    EXPECT_EQ(font("ToyName").pointSizeF(), 15);
    EXPECT_EQ(font("ToyName").weight(), QFont::DemiBold);
    EXPECT_EQ(font("ToyValue").pointSizeF(), 12.5);
    EXPECT_EQ(font("Label5").pointSizeF(), 24);
    EXPECT_EQ(GoalPictureSize(Way().height()), 48);
}

TEST_F(DisplayAccountGoalTest, TheLongestAndTheLargestHaveRoom) {
    const QString name =
        QStringLiteral("The long journey by train and ship to the seaside ").repeated(5).left(200);
    MakeChild(QStringLiteral("Zoe"), 0, name, 32767);
    OpenView();
    Choose(2);
    const auto& toy = Find<FittingLabel>(View(), QStringLiteral("ToyName"));
    EXPECT_EQ(toy.text(), name);
    EXPECT_EQ(toy.height() / toy.fontMetrics().height(), 2);
    for (const char* label : {"ToyValue", "Label5", "Label6"}) {
        const auto& figure = Find<QLabel>(View(), QString::fromLatin1(label));
        EXPECT_GE(figure.width(), figure.sizeHint().width()) << label;
        EXPECT_GE(figure.height(), figure.sizeHint().height()) << label;
    }
    LookAt(*View().window(), QStringLiteral("AccountGoal-long"));
}

TEST_F(DisplayAccountGoalTest, TheWayCanBeLookedAt) {
    OpenView();
    const auto show = [](const QString& name, qint16 points, const QString& picture) {
        Database().AddToy(Kim, QStringLiteral("Red bike"), picture, 500);
        Database().AddPoints(Kim, 0, true);
        Database().AddPoints(Kim, points, false);
        Choose(0);
        LookAt(*View().window(), QStringLiteral("AccountGoal-") + name);
    };
    const QString bike = Path(QStringLiteral("IncentivesPictures/Bike.gif"));
    LookAt(*View().window(), QStringLiteral("AccountGoal-nobody"));
    show(QStringLiteral("000"), 0, QString());
    show(QStringLiteral("040"), 200, bike);
    show(QStringLiteral("100"), 500, bike);
    EXPECT_TRUE(Way().IsReached());
}

} // namespace

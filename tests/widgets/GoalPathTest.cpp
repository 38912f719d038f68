#include "widgets/GoalPath.h"
#include "tests/common/FormTest.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

const QString Kite = QStringLiteral("Kite");

class GoalPathTest : public FormTest {
protected:
    GoalPathTest() {
        path.resize(640, 48);
        path.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&path));
    }

    QImage Look() { return path.grab().toImage(); }

    GoalPath path;
};

TEST_F(GoalPathTest, ThePartOfTheWayIsPointsOfCost) {
    path.Show(8, 20, Kite, {});
    EXPECT_TRUE(path.HasGoal());
    EXPECT_FALSE(path.IsReached());
    EXPECT_DOUBLE_EQ(path.Way(), 0.4);
}

TEST_F(GoalPathTest, BeforeTheStartIsTheStartAndBeyondTheGoalTheGoal) {
    path.Show(-3, 20, Kite, {});
    EXPECT_DOUBLE_EQ(path.Way(), 0);
    EXPECT_EQ(path.value(), 0);
    EXPECT_EQ(path.accessibleDescription(), QStringLiteral("-3 of 20 points towards Kite"));
    path.Show(19.5, 20, Kite, {});
    EXPECT_FALSE(path.IsReached());
    EXPECT_EQ(path.value(), 19);
    path.Show(20, 20, Kite, {});
    EXPECT_TRUE(path.IsReached());
    path.Show(32767, 20, Kite, {});
    EXPECT_DOUBLE_EQ(path.Way(), 1);
    EXPECT_EQ(path.value(), 20);
    EXPECT_EQ(path.accessibleDescription(),
              QStringLiteral("32767 of 20 points towards Kite: goal reached"));
}

TEST_F(GoalPathTest, ACostOfNothingOrLessIsNoGoal) {
    for (const double cost : {0.0, -5.0}) {
        path.Show(7, cost, Kite, {});
        EXPECT_FALSE(path.HasGoal());
        EXPECT_FALSE(path.IsReached());
        EXPECT_DOUBLE_EQ(path.Way(), 0);
        EXPECT_EQ(path.value(), 0);
        EXPECT_EQ(path.accessibleDescription(), QStringLiteral("No goal is set"));
    }
}

TEST_F(GoalPathTest, AScreenReaderFindsAProgressBarWithTheFiguresInWords) {
    path.Show(12, 20, QString(), {});
    QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(&path);
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->role(), QAccessible::ProgressBar);
    EXPECT_EQ(reader->text(QAccessible::Name), QStringLiteral("Way to the goal"));
    EXPECT_EQ(reader->text(QAccessible::Description),
              QStringLiteral("12 of 20 points towards the goal"));
    ASSERT_NE(reader->valueInterface(), nullptr);
    EXPECT_EQ(reader->valueInterface()->currentValue().toInt(), 12);
    EXPECT_EQ(reader->valueInterface()->maximumValue().toInt(), 20);
    path.WalkTo(13);
    EXPECT_EQ(reader->valueInterface()->currentValue().toInt(), 13);
}

TEST_F(GoalPathTest, AWalkIsAnnouncedOnceWithItsEnd) {
    DesktopCalls.LessMotion = false;
    path.Show(12, 20, Kite, {});
    const QSignalSpy announced(&path, &QProgressBar::valueChanged);
    path.WalkTo(15);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !path.IsMoving(); }, 3000));
    ASSERT_EQ(announced.size(), 1);
    EXPECT_EQ(announced.first().first().toInt(), 15);
}

TEST_F(GoalPathTest, NamesAreShownLetterByLetter) {
    for (const char* name : {"<b>%1 & %2</b>", "Cat & \"dog\"", "&lt;"}) {
        path.Show(1, 2, QString::fromLatin1(name), {});
        const QString words = QStringLiteral("1 of 2 points towards ") + QString::fromLatin1(name);
        EXPECT_EQ(path.accessibleDescription(), words);
        EXPECT_EQ(ShownTip(path.toolTip()), words);
    }
}

TEST_F(GoalPathTest, TheStarArrivesAndLooksAsIfItHadNeverMoved) {
    path.Show(15, 20, Kite, {});
    const QImage arrived = Look();
    DesktopCalls.LessMotion = false;
    path.Show(5, 20, Kite, {});
    const QImage before = Look();
    EXPECT_NE(before, arrived);
    path.WalkTo(15);
    EXPECT_TRUE(path.IsMoving());
    EXPECT_EQ(path.value(), 15);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !path.IsMoving(); }, 3000));
    EXPECT_EQ(Look(), arrived);
}

TEST_F(GoalPathTest, WithLessMotionTheStarIsThereAtOnce) {
    path.Show(15, 20, Kite, {});
    const QImage arrived = Look();
    path.Show(5, 20, Kite, {});
    path.WalkTo(15);
    EXPECT_FALSE(path.IsMoving());
    EXPECT_EQ(Look(), arrived);
}

TEST_F(GoalPathTest, AHiddenPathDoesNotMove) {
    DesktopCalls.LessMotion = false;
    path.Show(5, 20, Kite, {});
    path.WalkTo(10);
    path.hide();
    EXPECT_FALSE(path.IsMoving());
    path.WalkTo(15);
    EXPECT_FALSE(path.IsMoving());
    EXPECT_DOUBLE_EQ(path.Way(), 0.75);
}

TEST_F(GoalPathTest, ThePictureOfTheIncentiveStandsAtTheEndOfTheWay) {
    QImage red(64, 64, QImage::Format_RGB32);
    red.fill(Qt::red);
    path.Show(0, 20, Kite, red);
    const auto end = [this] { return Look().pixelColor(path.width() - 25, 24); };
    EXPECT_EQ(end(), QColor(Qt::red));
    path.Show(0, 20, Kite, {});
    EXPECT_NE(end(), QColor(Qt::red));
}

} // namespace

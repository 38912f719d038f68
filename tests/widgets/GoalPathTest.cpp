#include "widgets/GoalPath.h"
#include "look/LookColors.h"
#include "tests/common/FormTest.h"
#include "tests/common/Repaint.h"

#include <QAccessible>
#include <QDeadlineTimer>
#include <QSignalSpy>
#include <QTest>
#include <functional>
#include <gtest/gtest.h>

namespace {

const QString Kite = QStringLiteral("Kite");

class GoalPathTest : public FormTest {
protected:
    GoalPathTest() {
        path.resize(640, 48);
        path.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&path, Patience));
    }

    QImage Look() { return path.grab().toImage(); }

    /// Large enough to see how the star moves, with a picture that has nothing of its colours.
    void ShowLarge(double points) {
        QImage red(64, 64, QImage::Format_RGB32);
        red.fill(Qt::red);
        path.resize(640, 200);
        DesktopCalls.LessMotion = false;
        path.Show(points, 20, Kite, red);
    }
    /// What encloses all pixels of a colour.
    static QRect PlaceOf(const QColor& color, const QImage& seen) {
        QRect found;
        for (int y = 0; y < seen.height(); ++y)
            for (int x = 0; x < seen.width(); ++x)
                if (seen.pixel(x, y) == color.rgb())
                    found |= QRect(x, y, 1, 1);
        return found;
    }
    /// The star's edge and face are all that is painted in the colour of texts.
    QRect Star(const QImage& seen) const {
        return PlaceOf(path.palette().color(QPalette::WindowText), seen);
    }
    /// What shines at the goal, in the right half of its picture, where the star does not come.
    QRect Badge(const QImage& seen) const {
        return PlaceOf(path.palette().color(QPalette::Highlight), seen.copy(550, 0, 90, 200));
    }
    /// Shows each moment of a walk, as many as there is time for.
    void WatchWalk(double points, const std::function<void(const QImage&)>& moment) {
        path.WalkTo(points);
        ASSERT_TRUE(path.IsMoving());
        const QDeadlineTimer most(std::chrono::seconds(10));
        while (path.IsMoving() && !most.hasExpired()) {
            moment(Look());
            QCoreApplication::processEvents();
        }
        ASSERT_FALSE(path.IsMoving());
    }

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
    EXPECT_TRUE(QTest::qWaitFor([&] { return !path.IsMoving(); }, Patience));
    ASSERT_EQ(announced.size(), 1);
    EXPECT_EQ(announced.first().first().toInt(), 15);
}

TEST_F(GoalPathTest, NamesAreShownLetterByLetter) {
    for (const char* name : {"<b>%1 & %2</b>", "Cat & \"dog\"", "&lt;"}) {
        path.Show(1, 2, QString::fromLatin1(name), {});
        const QString words = QStringLiteral("1 of 2 points towards ") + QString::fromLatin1(name);
        EXPECT_EQ(path.accessibleDescription(), words);
        EXPECT_EQ(ShownTip(path.toolTip()), words);
        EXPECT_TRUE(path.toolTip().contains(QStringLiteral("2%1points").arg(QChar(QChar::Nbsp))) ||
                    path.toolTip().contains(QStringLiteral("2&nbsp;points")));
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
    EXPECT_TRUE(QTest::qWaitFor([&] { return !path.IsMoving(); }, Patience));
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

TEST_F(GoalPathTest, ThePictureIs48PixelsLargeInTheHeightThatThePathAsksFor) {
    QImage red(64, 64, QImage::Format_RGB32);
    red.fill(Qt::red);
    EXPECT_EQ(path.sizeHint().height(), 56);
    path.resize(640, path.sizeHint().height());
    path.Show(0, 20, Kite, red);
    const QImage seen = Look();
    const int scale = qRound(seen.devicePixelRatio());
    EXPECT_EQ(PlaceOf(Qt::red, seen), QRect(588 * scale, 4 * scale, 48 * scale, 48 * scale));
}

TEST_F(GoalPathTest, AllTheJoyIsInSight) {
    path.resize(640, 56);
    path.Show(20, 20, Kite, {});
    const QImage seen = Look();
    const QRect goal(580, 0, 60, 56);
    const QRect shine = PlaceOf(LookColors::Gold, seen.copy(goal));
    EXPECT_GT(shine.height(), 48);
    EXPECT_GT(shine.top(), 0) << "cut";
    EXPECT_LT(shine.bottom(), goal.height() - 1) << "cut";
    EXPECT_LT(shine.right(), goal.width() - 1) << "cut";
}

TEST_F(GoalPathTest, AGoalHasAsManyStonesHoweverWideItsWayIs) {
    QPalette colors = path.palette();
    colors.setColor(QPalette::Base, Qt::magenta);
    path.setPalette(colors);
    // Stretches of columns in which a stone ahead is seen.
    const auto stones = [this] {
        const QImage seen = Look();
        int count = 0;
        bool wasStone = false;
        for (int x = 0; x < seen.width(); ++x) {
            const bool isStone = !PlaceOf(Qt::magenta, seen.copy(x, 0, 1, seen.height())).isEmpty();
            count += isStone && !wasStone ? 1 : 0;
            wasStone = isStone;
        }
        return count;
    };
    // As wide as in the account view and in the viewer, designed and maximised.
    for (const int width : {366, 706, 1338}) {
        path.resize(width, 56);
        for (const auto& [cost, count] : {std::pair(1, 1), std::pair(5, 5), std::pair(10, 10),
                                          std::pair(11, 10), std::pair(32767, 10)}) {
            path.Show(0, cost, Kite, {});
            EXPECT_EQ(stones(), count) << cost << " points, " << width << " pixels";
        }
    }
}

TEST_F(GoalPathTest, TheStarHopsStretchedAndSquatsWhenItLands) {
    ShowLarge(0);
    const QRect rest = Star(Look());
    EXPECT_GT(rest.height(), 100);
    bool isLifted = false;
    bool isStretched = false;
    bool isSquat = false;
    // Under load a walk may be over before it has been seen.
    for (int walk = 0; walk < 20 && !(isLifted && isStretched && isSquat); ++walk) {
        WatchWalk(0, [&](const QImage& seen) {
            const QRect star = Star(seen);
            isLifted = isLifted || star.bottom() < rest.bottom() - 4;
            isStretched = isStretched || star.height() > rest.height() + 5;
            isSquat = isSquat || star.height() < rest.height() - 8;
            EXPECT_LE(std::abs(star.center().x() - rest.center().x()), 8);
        });
        EXPECT_EQ(Star(Look()), rest);
    }
    EXPECT_TRUE(isLifted);
    EXPECT_TRUE(isStretched);
    EXPECT_TRUE(isSquat);
}

TEST_F(GoalPathTest, TheStarIsOnItsWayUntilItLandsAndTheJoyComesThen) {
    ShowLarge(20);
    const int goal = Star(Look()).center().x();
    ShowLarge(10);
    const int start = Star(Look()).center().x();
    WatchWalk(20, [&](const QImage& seen) {
        const int star = Star(seen).center().x();
        EXPECT_GE(star, start - 8);
        EXPECT_LE(star, goal + 8);
        EXPECT_TRUE(PlaceOf(LookColors::Sky, seen).isEmpty() || std::abs(star - goal) <= 8)
            << "joy before the goal";
    });
    EXPECT_FALSE(PlaceOf(LookColors::Sky, Look()).isEmpty());
}

TEST_F(GoalPathTest, TheJoyGrowsAsTheStarLands) {
    QSet<int> heights;
    // Under load a walk may be over before it has been seen.
    for (int walk = 0; walk < 20 && heights.size() < 3; ++walk) {
        ShowLarge(10);
        heights.clear();
        WatchWalk(20, [&](const QImage& seen) {
            if (const QRect badge = Badge(seen); !badge.isEmpty())
                heights += badge.height();
        });
    }
    EXPECT_GE(heights.size(), 3);
}

TEST_F(GoalPathTest, AStarThatIsAtTheGoalStaysGlad) {
    ShowLarge(20);
    const QRect before = Badge(Look());
    EXPECT_FALSE(before.isEmpty());
    WatchWalk(25, [&](const QImage& seen) { EXPECT_EQ(Badge(seen), before); });
}

TEST_F(GoalPathTest, AWalkIsPaintedToItsEnd) {
    DesktopCalls.LessMotion = false;
    path.Show(5, 20, Kite, {});
    Settle();
    path.WalkTo(15);
    EXPECT_TRUE(IsPaintedAtRest(path));
}

TEST_F(GoalPathTest, OtherColoursAreShownAtOnce) {
    path.Show(5, 20, Kite, {});
    const QImage before = Look();
    QPalette colors = path.palette();
    colors.setColor(QPalette::Highlight, Qt::magenta);
    EXPECT_TRUE(IsRepainted(path, [&] { path.setPalette(colors); }));
    EXPECT_NE(Look(), before);
}

} // namespace

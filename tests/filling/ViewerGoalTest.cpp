#include "tests/common/Repaint.h"
#include "tests/filling/FillingTest.h"
#include "widgets/GoalPath.h"
#include "widgets/GoalScene.h"

#include <QPointer>
#include <QTest>
#include <gtest/gtest.h>

namespace {

/// The way to the incentive on the viewer, and what moves at a tick.
class ViewerGoalTest : public FillingTest {
protected:
    ChartViewer& OpenWithJobsOf(const QStringList& points) {
        QList<Job> jobs;
        for (const QString& value : points)
            jobs += Job{QStringLiteral("Job for ") + value, QStringLiteral("Wed"), value};
        MakeChart(QStringLiteral("Chores Anna"), jobs);
        return OpenChart(QStringLiteral("Chores Anna"));
    }
    static GoalPath& Way(const ChartViewer& viewer) {
        return Find<GoalPath>(viewer, QStringLiteral("WayToGoal"));
    }
    static QString Words(const ChartViewer& viewer) { return Way(viewer).accessibleDescription(); }
    static void Tick(ChartViewer& viewer, int row) {
        QTest::mouseClick(&viewer.ClearImg[row], Qt::LeftButton);
    }
};

TEST_F(ViewerGoalTest, TheWayFollowsTheLabelsAtEveryTickAndUntick) {
    SetGoal(QStringLiteral("Bicycle"), 13);
    SetPoints(3);
    ChartViewer& viewer = OpenWithJobsOf({QStringLiteral("5"), QStringLiteral("5")});
    EXPECT_EQ(Words(viewer), QStringLiteral("3 of 13 points towards Bicycle"));
    Click(viewer.ClearImg[0]);
    EXPECT_EQ(Words(viewer), QStringLiteral("8 of 13 points towards Bicycle"));
    EXPECT_DOUBLE_EQ(Way(viewer).Way(), 8.0 / 13);
    EXPECT_EQ(TextAt(viewer, QStringLiteral("Label5")), QStringLiteral("5"));
    Click(viewer.CheckImg[0]);
    EXPECT_DOUBLE_EQ(Way(viewer).Way(), 3.0 / 13);
}

TEST_F(ViewerGoalTest, TheGoalIsReachedWhenNoPointsAreNeededAndStaysSoAfterTheMessage) {
    SetGoal(QStringLiteral("Bicycle"), 10);
    ChartViewer& viewer =
        OpenWithJobsOf({QStringLiteral("9"), QStringLiteral("1"), QStringLiteral("1")});
    Click(viewer.ClearImg[0]);
    EXPECT_FALSE(Way(viewer).IsReached());
    Click(viewer.ClearImg[1]);
    EXPECT_TRUE(Way(viewer).IsReached());
    EXPECT_EQ(TextAt(viewer, QStringLiteral("Label5")), QStringLiteral("0"));
    Boxes.Expect(GoalMessage, PromptAnswer::Ok, [&] {
        EXPECT_EQ(Words(viewer), QStringLiteral("11 of 10 points towards Bicycle: goal reached"));
    });
    Click(viewer.ClearImg[2]);
    EXPECT_EQ(viewer.GoalPoints, 0);
    EXPECT_TRUE(Way(viewer).IsReached());
    EXPECT_DOUBLE_EQ(Way(viewer).Way(), 1);
}

TEST_F(ViewerGoalTest, ARefusedUntickLeavesTheStarWhereItIs) {
    SetGoal(QStringLiteral("Bicycle"), 10);
    ChartViewer& viewer = OpenWithJobsOf({QStringLiteral("5")});
    Click(viewer.ClearImg[0]);
    SetPoints(3);
    Boxes.Expect(TooFewPoints);
    Click(viewer.CheckImg[0]);
    EXPECT_EQ(Words(viewer), QStringLiteral("3 of 10 points towards Bicycle"));
}

TEST_F(ViewerGoalTest, ANewIncentiveIsShownAtTheNextActivation) {
    SetGoal(QStringLiteral("Bicycle"), 10);
    SetPoints(5);
    ChartViewer& viewer = OpenWithJobsOf({QStringLiteral("5")});
    SetGoal(QStringLiteral("Kite"), 50);
    ShowList();
    viewer.Show();
    Settle();
    EXPECT_EQ(Words(viewer), QStringLiteral("5 of 50 points towards Kite"));
}

TEST_F(ViewerGoalTest, TheWayNamesWhatIsStoredNotTheGrownCaption) {
    SetGoal(QString(), 500);
    SetPoints(5);
    ChartViewer& viewer = OpenWithJobsOf({QStringLiteral("5")});
    EXPECT_EQ(Words(viewer), QStringLiteral("5 of 500 points towards the goal"));
    ShowList();
    viewer.Show();
    Settle();
    const QString grown = QStringLiteral(" 500 Points 500 Points");
    EXPECT_TRUE(TextAt(viewer, QStringLiteral("ToyName")).endsWith(grown))
        << TextAt(viewer, QStringLiteral("ToyName")).toStdString();
    EXPECT_EQ(Words(viewer), QStringLiteral("5 of 500 points towards the goal"));
    EXPECT_EQ(ShownTip(Way(viewer).toolTip()), Words(viewer));

    SetGoal(QStringLiteral("Kite"), 500);
    ShowList();
    viewer.Show();
    Settle();
    EXPECT_EQ(Words(viewer), QStringLiteral("5 of 500 points towards Kite"));
    SetGoal(QString(), 500);
    ShowList();
    viewer.Show();
    Settle();
    EXPECT_EQ(TextAt(viewer, QStringLiteral("ToyName")),
              QStringLiteral("Kite 500 Points 500 Points"));
    EXPECT_EQ(Words(viewer), QStringLiteral("5 of 500 points towards the goal"));
}

TEST_F(ViewerGoalTest, PointsInThePlaceOfACostThatIsNotStoredAreNoGoal) {
    SetGoal(QString(), 0);
    SetPoints(5);
    ChartViewer& viewer = OpenWithJobsOf({QStringLiteral("5")});
    ShowList();
    viewer.Show();
    Settle();
    EXPECT_EQ(viewer.GoalPoints, 5);
    EXPECT_EQ(Words(viewer), QStringLiteral("No goal is set"));
    EXPECT_FALSE(Way(viewer).IsReached());
}

TEST_F(ViewerGoalTest, ACostReadAsZeroIsNoGoal) {
    SetGoal(QStringLiteral("Hug"), 0);
    ChartViewer& viewer = OpenWithJobsOf({QStringLiteral("5")});
    EXPECT_EQ(Words(viewer), QStringLiteral("No goal is set"));
    ShowList();
    viewer.Show();
    Settle();
    EXPECT_EQ(TextAt(viewer, QStringLiteral("ToyName")), QStringLiteral("Hug 0 Points"));
    EXPECT_EQ(Words(viewer), QStringLiteral("No goal is set"));
    Click(viewer.ClearImg[0]);
    EXPECT_FALSE(Way(viewer).HasGoal());
}

TEST_F(ViewerGoalTest, TheWholeWayIsSeenOnASmallScreenAndCoversNothing) {
    ChartViewer& viewer = OpenWithJobsOf({QStringLiteral("5")});
    const auto placeOf = [&](const QWidget& widget) {
        return QRect(widget.mapTo(&viewer, QPoint(0, 0)), widget.size());
    };
    const GoalPath& way = Way(viewer);
    for (const bool withResponsible : {false, true}) {
        if (withResponsible)
            Click(viewer.Instructions[0]);
        const QRect place = placeOf(way);
        EXPECT_GE(place.height(), way.minimumSizeHint().height());
        EXPECT_TRUE(viewer.rect().contains(place));
        for (const char* other :
             {"Shape1", "Shape7", "Shape8", "CleanUpList", "Shape5", "Shape6"}) {
            const auto& widget = Find<QWidget>(viewer, QLatin1String(other));
            EXPECT_FALSE(widget.isVisible() && placeOf(widget).intersects(place)) << other;
        }
        EXPECT_LE(way.mapTo(viewer.window(), QPoint(0, way.height())).y(),
                  viewer.window()->height());
    }
}

TEST_F(ViewerGoalTest, ThePictureAtTheEndIs48PixelsLarge) {
    SetGoal(QStringLiteral("Bicycle"), 20, Path(QStringLiteral("IncentivesPictures/Bike.gif")));
    const ChartViewer& viewer = OpenWithJobsOf({QStringLiteral("5")});
    EXPECT_EQ(viewer.height(), 8700 / 15);
    EXPECT_EQ(GoalPictureSize(Way(viewer).height()), 48);
    Click(viewer.Instructions[0]);
    EXPECT_EQ(viewer.height(), 9800 / 15);
    EXPECT_EQ(GoalPictureSize(Way(viewer).height()), 48);
}

TEST_F(ViewerGoalTest, ATickPopsInAndTheStarHopsWhereMotionIsWelcome) {
    SetGoal(QStringLiteral("Bicycle"), 20);
    DesktopCalls.LessMotion = false;
    ChartViewer& viewer = OpenWithJobsOf({QStringLiteral("5"), QStringLiteral("5")});
    EXPECT_FALSE(Way(viewer).IsMoving()) << "opening a chart moves nothing";
    Tick(viewer, 0);
    EXPECT_TRUE(viewer.CheckImg[0].IsMoving());
    EXPECT_TRUE(Way(viewer).IsMoving());
    EXPECT_EQ(PointsIn(), QStringLiteral("5")) << "the points do not wait for the star";
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return !viewer.CheckImg[0].IsMoving() && !Way(viewer).IsMoving(); }, Patience));
}

TEST_F(ViewerGoalTest, ATickIsPaintedUntilItHasComeToRest) {
    DesktopCalls.LessMotion = false;
    ChartViewer& viewer = OpenWithJobsOf({QStringLiteral("5"), QStringLiteral("5")});
    Tick(viewer, 0);
    EXPECT_TRUE(IsPaintedAtRest(viewer.CheckImg[0]));
}

TEST_F(ViewerGoalTest, NothingMovesForThoseWhoAskForLessMotion) {
    SetGoal(QStringLiteral("Bicycle"), 20);
    DesktopCalls.LessMotion = true;
    ChartViewer& viewer = OpenWithJobsOf({QStringLiteral("5")});
    Tick(viewer, 0);
    EXPECT_FALSE(viewer.CheckImg[0].IsMoving());
    EXPECT_FALSE(Way(viewer).IsMoving());
    EXPECT_DOUBLE_EQ(Way(viewer).Way(), 0.25);
}

TEST_F(ViewerGoalTest, ATurnedPageAndAClosedFormEndTheMovementsUnderWay) {
    SetGoal(QStringLiteral("Bicycle"), 20);
    DesktopCalls.LessMotion = false;
    ChartViewer& viewer = OpenWithJobsOf({QStringLiteral("5"), QStringLiteral("5")});
    const QPointer<ChartViewer> form = &viewer;
    Tick(viewer, 1);
    QTest::mouseClick(&Button(viewer, QStringLiteral("NextDay")), Qt::LeftButton);
    EXPECT_TRUE(viewer.CheckVisible(1));
    EXPECT_FALSE(viewer.CheckImg[1].IsMoving());
    QTest::mouseClick(&viewer.ClearImg[0], Qt::LeftButton);
    QTest::mouseClick(&Button(viewer, QStringLiteral("Ok")), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(form.isNull());
}

TEST_F(ViewerGoalTest, TheWayCanBeLookedAt) {
    Arrange([] {
        Database().ChangePicture(QStringLiteral("Anna"),
                                 Path(QStringLiteral("UsersPictures/Fox.png")));
    });
    const QString bike = Path(QStringLiteral("IncentivesPictures/Bike.gif"));
    SetGoal(QStringLiteral("New bicycle"), 300, bike);
    ChartViewer& viewer = OpenWithJobsOf({QStringLiteral("40"), QStringLiteral("150")});
    const auto show = [&](const QString& name, qint16 points) {
        SetPoints(points);
        ShowList();
        viewer.Show();
        Settle();
        LookAt(viewer.Frame(), name);
    };
    show(QStringLiteral("000"), 0);
    show(QStringLiteral("040"), 120);
    show(QStringLiteral("100"), 300);
    EXPECT_TRUE(Way(viewer).IsReached());
    SetGoal(QStringLiteral("Cinema"), 8);
    show(QStringLiteral("few"), 3);
    SetGoal(QStringLiteral("Nothing"), 0);
    // The points of the former activation are taken for the cost that is not there.
    show(QStringLiteral("none-before"), 0);
    show(QStringLiteral("none"), 0);
}

} // namespace

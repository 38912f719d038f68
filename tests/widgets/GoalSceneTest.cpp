#include "widgets/GoalScene.h"
#include "tests/common/FormTest.h"
#include "tests/common/Pictures.h"
#include "tests/common/Sheet.h"

#include <QApplication>
#include <gtest/gtest.h>

namespace {

constexpr QSize Room(900, 130);

/// Paints moments of the way larger than any window shows it, so that its smallest parts count.
class GoalSceneTest : public FormTest {
protected:
    static QPixmap Picture(const QSize& size) {
        QPixmap picture(size);
        picture.fill(Qt::darkBlue);
        return picture;
    }

    static GoalScene OnTheWay(double cost, double place) {
        GoalScene scene;
        scene.HasGoal = true;
        scene.Cost = cost;
        scene.Place = place;
        return scene;
    }

    static GoalScene Reached(double joy) {
        GoalScene scene = OnTheWay(300, 1);
        scene.IsReached = true;
        scene.Joy = joy;
        return scene;
    }

    static void ExpectScenes(const QList<GoalScene>& scenes, const QString& name) {
        Sheet sheet(Room, 1, static_cast<int>(scenes.size()));
        for (const GoalScene& scene : scenes)
            sheet.Add([&](QPainter& painter, const QRect& room) {
                PaintGoalScene(painter, room, QApplication::palette(), scene);
            });
        ExpectPicture(sheet.Image(), name);
    }
};

TEST_F(GoalSceneTest, TheWayThere) {
    const GoalScene noGoal;
    GoalScene pictured = OnTheWay(300, 0.4);
    pictured.Picture = Picture(QSize(104, 60));
    GoalScene inTheAir = OnTheWay(8, 0.6);
    inTheAir.Lift = 0.5;
    inTheAir.Squeeze = 1.1;
    GoalScene landing = OnTheWay(1, 0.95);
    landing.Squeeze = 0.84;
    ExpectScenes({noGoal, OnTheWay(300, 0), pictured, inTheAir, landing}, QStringLiteral("way"));
}

TEST_F(GoalSceneTest, TheJoyAtTheGoal) {
    GoalScene pictured = Reached(1);
    pictured.Picture = Picture(QSize(60, 104));
    // Before the last stone, which then leaves its pen to what is painted next.
    GoalScene early = Reached(1);
    early.Place = 0.9;
    ExpectScenes({Reached(0.2), Reached(0.6), Reached(1), pictured, early}, QStringLiteral("joy"));
}

TEST_F(GoalSceneTest, ThePainterIsLeftWhereItWas) {
    QImage image(Room, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.translate(7, 5);
    const QTransform before = painter.worldTransform();
    for (const GoalScene& scene : {GoalScene(), OnTheWay(20, 0.5), Reached(1)}) {
        PaintGoalScene(painter, QRectF(QPointF(), Room), QApplication::palette(), scene);
        EXPECT_EQ(painter.worldTransform(), before);
    }
}

} // namespace

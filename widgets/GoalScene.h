#pragma once

#include <QPixmap>
#include <QRectF>

class QPainter;
class QPalette;

/// The picture of the way to a goal at one moment.
struct GoalScene {
    bool HasGoal = false;
    bool IsReached = false;
    /// Points that the goal costs: a short way has a stone for each.
    double Cost = 0;
    /// Where the star is, from 0 at the start to 1 at the goal.
    double Place = 0;
    /// How high the star is in its hop, from 0 to 1, and how much it is squeezed, 1 as it stands.
    double Lift = 0;
    double Squeeze = 1;
    /// How far the joy at the goal has come, from 0 to 1.
    double Joy = 1;
    /// The incentive's picture; null for a present.
    QPixmap Picture;
};

/// The side of the goal's picture in a scene of that height, in pixels.
int GoalPictureSize(double height);

void PaintGoalScene(QPainter& painter, const QRectF& area, const QPalette& palette,
                    const GoalScene& scene);

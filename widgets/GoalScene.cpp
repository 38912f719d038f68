#include "widgets/GoalScene.h"

#include "look/LookColors.h"
#include "look/TickPath.h"
#include "widgets/Present.h"
#include "widgets/StarPath.h"

#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace {

constexpr double Pi = std::numbers::pi;

/// The places of a scene, in pixels.
class Way {
public:
    Way(const QRectF& area, const GoalScene& scene) : area_(area), starSize_(area.height() * 0.7) {
        const double goal = GoalPictureSize(area.height());
        // Whole pixels keep the picture sharp.
        rays_ = std::floor((area.height() - goal) / 2);
        goal_ = QRectF(area.right() - goal - rays_, area.top() + rays_, goal, goal);
        from_ = area.left() + starSize_ / 2 + 2;
        to_ = goal_.left() - rays_ - starSize_ / 2;
        // As many for one goal wherever it is shown, however wide.
        constexpr double mostStones = 10;
        stones_ = std::max(1, static_cast<int>(std::min(scene.Cost, mostStones)));
    }

    /// The middle of the ground at a place from 0 to 1: a path with three gentle bends.
    QPointF At(double place) const {
        const double bend = area_.height() * 0.06;
        return {from_ + (to_ - from_) * place,
                area_.bottom() - area_.height() * 0.2 + bend * std::sin(place * 3 * Pi)};
    }
    QPainterPath Ground(double until) const {
        constexpr int pieces = 60;
        QPainterPath path(At(0));
        for (int piece = 1; piece <= pieces; ++piece)
            path.lineTo(At(until * piece / pieces));
        return path;
    }
    const QRectF& Goal() const { return goal_; }
    /// How far the joy shines beyond the goal, on all sides.
    double Rays() const { return rays_; }
    double StarSize() const { return starSize_; }
    double StoneSize() const { return area_.height() * 0.26; }
    int Stones() const { return stones_; }
    double PlaceOf(int stone) const { return static_cast<double>(stone) / stones_; }

private:
    QRectF area_;
    double starSize_;
    QRectF goal_;
    double rays_ = 0;
    double from_ = 0;
    double to_ = 0;
    int stones_ = 1;
};

class Brush {
public:
    Brush(QPainter& painter, const QPalette& palette)
        : painter_(painter), ink_(palette.color(QPalette::WindowText)),
          paper_(palette.color(QPalette::Base)), done_(palette.color(QPalette::Highlight)),
          ground_(palette.color(QPalette::AlternateBase).darker(120)),
          edge_(palette.color(QPalette::AlternateBase).darker(165)), shine_(LookColors::Gold) {}

    void Ground(const Way& way, const GoalScene& scene) {
        painter_.setBrush(Qt::NoBrush);
        const double width = way.StoneSize() * 0.5;
        if (!scene.HasGoal) {
            painter_.setPen(QPen(edge_, width * 0.5, Qt::CustomDashLine, Qt::RoundCap));
            QPen dots = painter_.pen();
            dots.setDashPattern({0.01, 4});
            painter_.setPen(dots);
            painter_.drawPath(way.Ground(1));
            return;
        }
        painter_.setPen(QPen(ground_, width, Qt::SolidLine, Qt::RoundCap));
        painter_.drawPath(way.Ground(1));
        painter_.setPen(QPen(done_, width, Qt::SolidLine, Qt::RoundCap));
        if (scene.Place > 0)
            painter_.drawPath(way.Ground(scene.Place));
        for (int stone = 1; stone <= way.Stones(); ++stone)
            Stone(way.At(way.PlaceOf(stone)), way.StoneSize(),
                  scene.Place >= way.PlaceOf(stone) - 1e-9);
    }

    /// One that has been reached is full and marked, one ahead is hollow.
    void Stone(const QPointF& middle, double across, bool isReached) {
        const QRectF round(middle.x() - across / 2, middle.y() - across / 2, across, across);
        painter_.setPen(QPen(isReached ? done_.darker(130) : edge_, 1.6));
        painter_.setBrush(isReached ? done_ : paper_);
        painter_.drawEllipse(round);
        if (isReached) {
            painter_.setPen(Qt::NoPen);
            painter_.setBrush(shine_);
            painter_.drawEllipse(middle, across * 0.2, across * 0.2);
        }
    }

    void Star(const Way& way, const GoalScene& scene) {
        const double size = way.StarSize();
        const QPointF foot = way.At(scene.Place);
        painter_.save();
        // Stretched as it is at the top of its hop, it still stays below the upper edge.
        const double headroom = std::max(0.0, foot.y() - size * 1.06 - 1);
        painter_.translate(foot.x(), foot.y() + size * 0.06 - scene.Lift * headroom);
        painter_.scale(2 - scene.Squeeze, scene.Squeeze);
        painter_.translate(0, -size / 2);
        painter_.setPen(QPen(ink_, size * 0.055, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter_.setBrush(shine_);
        painter_.drawPath(StarPath(size / 2));
        Face(size, scene.IsReached);
        painter_.restore();
    }

    void Goal(const Way& way, const GoalScene& scene) {
        const QRectF& goal = way.Goal();
        if (scene.IsReached)
            Sunburst(goal, way.Rays() * (0.3 + 0.7 * scene.Joy));
        if (!scene.HasGoal) {
            painter_.setPen(QPen(edge_, 2, Qt::DashLine, Qt::RoundCap));
            painter_.setBrush(paper_);
            painter_.drawEllipse(goal.adjusted(3, 3, -3, -3));
            QFont font = painter_.font();
            font.setPixelSize(std::max(8, static_cast<int>(goal.height() * 0.5)));
            font.setBold(true);
            painter_.setFont(font);
            painter_.drawText(goal, Qt::AlignCenter, QStringLiteral("?"));
            return;
        }
        if (scene.Picture.isNull()) {
            PaintPresent(painter_, goal, {ink_, done_, done_.lighter(125), LookColors::Coral});
        } else {
            const QSizeF size = scene.Picture.deviceIndependentSize();
            painter_.drawPixmap(QPointF(goal.center().x() - size.width() / 2,
                                        goal.center().y() - size.height() / 2),
                                scene.Picture);
        }
        if (scene.IsReached)
            Badge(QPointF(goal.right() - goal.width() * 0.14, goal.bottom() - goal.width() * 0.17),
                  goal.width() * 0.2 * scene.Joy);
    }

    /// Paper stars, discs and flags over the whole way, in the program's colours.
    void Confetti(const QRectF& area, const Way& way, double joy) {
        const std::array<QColor, 4> colors = {shine_, done_, LookColors::Coral, LookColors::Sky};
        const double right = way.Goal().left() - way.StarSize() * 1.3 - way.Rays();
        const double from = area.left() + 6;
        const double bottom = area.top() + area.height() * 0.55;
        constexpr double step = 17;
        const int pieces = std::max(0, static_cast<int>((right - from) / step));
        for (int piece = 0; piece < pieces; ++piece) {
            // A spread without a pattern that is the same at each paint.
            const double fall = std::fmod(piece * 0.618034 + 0.2, 1);
            const QPointF at(from + step * piece + 5 * std::sin(piece * 2.4),
                             area.top() + 5 + (bottom - area.top() - 5) * fall * joy);
            painter_.save();
            painter_.translate(at);
            painter_.rotate(piece * 47 + 180 * joy);
            painter_.setPen(Qt::NoPen);
            painter_.setBrush(colors.at(static_cast<std::size_t>(piece) % colors.size()));
            if (piece % 3 == 0)
                painter_.drawPath(StarPath(5));
            else if (piece % 3 == 1)
                painter_.drawEllipse(QPointF(0, 0), 2.6, 2.6);
            else
                painter_.drawRoundedRect(QRectF(-3.5, -1.8, 7, 3.6), 1, 1);
            painter_.restore();
        }
    }

private:
    /// Round a middle at 0, 0. A glad one laughs.
    void Face(double size, bool isGlad) {
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(ink_);
        const double eye = size * 0.045;
        for (const double side : {-1.0, 1.0})
            painter_.drawEllipse(QPointF(side * size * 0.11, -size * 0.04), eye, eye * 1.3);
        const QRectF mouth(-size * 0.11, -size * 0.04, size * 0.22, size * 0.2);
        if (isGlad) {
            painter_.drawChord(mouth.adjusted(0, size * 0.01, 0, size * 0.03), 180 * 16, 180 * 16);
        } else {
            painter_.setPen(QPen(ink_, size * 0.045, Qt::SolidLine, Qt::RoundCap));
            painter_.setBrush(Qt::NoBrush);
            painter_.drawArc(mouth, 205 * 16, 130 * 16);
        }
    }

    void Sunburst(const QRectF& goal, double reach) {
        constexpr int rays = 16;
        painter_.save();
        painter_.translate(goal.center());
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(shine_);
        const double radius = goal.width() / 2;
        for (int ray = 0; ray < rays; ++ray) {
            painter_.drawPolygon(
                QPolygonF({QPointF(-radius * 0.15, -radius * 0.9), QPointF(0, -radius - reach),
                           QPointF(radius * 0.15, -radius * 0.9)}));
            painter_.rotate(360.0 / rays);
        }
        const double rim = radius + reach * 0.4;
        painter_.drawEllipse(QPointF(0, 0), rim, rim);
        painter_.restore();
    }

    void Badge(const QPointF& middle, double radius) {
        painter_.setPen(QPen(paper_, radius * 0.22));
        painter_.setBrush(done_);
        painter_.drawEllipse(middle, radius, radius);
        painter_.setBrush(Qt::NoBrush);
        painter_.setPen(QPen(paper_, radius * 0.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter_.drawPath(TickPath(QRectF(middle - QPointF(radius * 0.53, radius * 0.52),
                                          QSizeF(radius * 1.07, radius * 1.03))));
    }

    QPainter& painter_;
    QColor ink_;
    QColor paper_;
    QColor done_;
    QColor ground_;
    QColor edge_;
    QColor shine_;
};

} // namespace

int GoalPictureSize(double height) {
    return static_cast<int>(height * 6 / 7);
}

void PaintGoalScene(QPainter& painter, const QRectF& area, const QPalette& palette,
                    const GoalScene& scene) {
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const Way way(area, scene);
    Brush brush(painter, palette);
    brush.Ground(way, scene);
    if (scene.IsReached)
        brush.Confetti(area, way, scene.Joy);
    brush.Goal(way, scene);
    brush.Star(way, scene);
}

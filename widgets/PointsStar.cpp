#include "widgets/PointsStar.h"

#include "look/LookColors.h"
#include "widgets/StarPath.h"

#include <QPainter>

namespace {

constexpr int PointsStarSide = 16; // pixels
constexpr int PointsStarGap = 6;

} // namespace

void PaintPointsStar(QPainter& painter, const QRectF& place) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(LookColors::Outline, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(LookColors::Gold);
    // Its upper points reach further than its lower ones.
    painter.translate(place.center() + QPointF(0, 0.5));
    painter.drawPath(StarPath((place.height() - 1) / 2));
    painter.restore();
}

PointsLabel::PointsLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setContentsMargins(PointsStarSide + PointsStarGap, 0, 0, 0);
    constexpr qreal size = 12.5; // points
    QFont face = font();
    face.setPointSizeF(size);
    face.setWeight(QFont::DemiBold);
    setFont(face);
}

void PointsLabel::paintEvent(QPaintEvent* event) {
    QLabel::paintEvent(event);
    if (text().isEmpty())
        return;
    QPainter painter(this);
    PaintPointsStar(painter,
                    QRect(0, (height() - PointsStarSide) / 2, PointsStarSide, PointsStarSide));
}

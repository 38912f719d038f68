#include "widgets/PointsStar.h"

#include "look/LookColors.h"
#include "widgets/KeptPicture.h"
#include "widgets/StarPath.h"

#include <QPainter>
#include <QStyleOption>

namespace {

constexpr int Side = 16; // pixels

}

void PaintPointsStar(QLabel& label) {
    if (label.text().isEmpty())
        return;
    const QRect place(0, (label.height() - Side) / 2, Side, Side);
    PaintFromPicture(label, place, QStringLiteral("star"), {}, [](QPainter& painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(LookColors::Outline, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(LookColors::Gold);
        // Its upper points reach further than its lower ones.
        painter.translate(Side / 2.0, Side / 2.0 + 0.5);
        painter.drawPath(StarPath((Side - 1) / 2.0));
    });
}

PointsLabel::PointsLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setContentsMargins(PointsStarRoom, 0, 0, 0);
    constexpr qreal size = 12.5; // points
    QFont face = font();
    face.setPointSizeF(size);
    face.setWeight(QFont::DemiBold);
    setFont(face);
}

void PointsLabel::paintEvent(QPaintEvent* event) {
    QLabel::paintEvent(event);
    PaintPointsStar(*this);
}

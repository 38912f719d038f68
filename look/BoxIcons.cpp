#include "look/BoxIcons.h"

#include "look/DrawnIcon.h"
#include "look/LookColors.h"

#include <QPainter>
#include <QPainterPath>

using namespace LookColors;

namespace {

constexpr int BoxUnits = 40; // the side of the square that is drawn in

void DrawExclamation(QPainter& painter, const QColor& color, double top) {
    painter.setPen(QPen(color, 4, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(20, top), QPointF(20, top + 9));
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(QPointF(20, top + 16), 2.4, 2.4);
}

void DrawWarning(QPainter& painter, QIcon::Mode) {
    QPainterPath triangle;
    triangle.addPolygon(QPolygonF{{20, 6}, {35, 33}, {5, 33}});
    triangle.closeSubpath();
    painter.setPen(QPen(Ink, 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Gold);
    painter.drawPath(triangle);
    painter.setPen(QPen(Gold, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(triangle);
    DrawExclamation(painter, Ink, 14);
}

void DrawError(QPainter& painter, QIcon::Mode) {
    painter.setPen(QPen(Ink, 2));
    painter.setBrush(Coral);
    painter.drawEllipse(QPointF(20, 20), 17, 17);
    DrawExclamation(painter, Card, 12);
}

} // namespace

QIcon WarningIcon() {
    return DrawnIcon(BoxUnits, DrawWarning);
}

QIcon ErrorIcon() {
    return DrawnIcon(BoxUnits, DrawError);
}

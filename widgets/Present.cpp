#include "widgets/Present.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

void PaintPresent(QPainter& painter, const QRectF& place, const PresentColors& colors) {
    const auto part = [&place](double left, double top, double width, double height) {
        return QRectF(place.left() + place.width() * left, place.top() + place.height() * top,
                      place.width() * width, place.height() * height);
    };
    painter.setPen(QPen(colors.Outline, std::max(1.2, place.width() * 0.035), Qt::SolidLine,
                        Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(colors.Box);
    painter.drawRoundedRect(part(0.16, 0.48, 0.68, 0.44), 2, 2);
    painter.setBrush(colors.Ribbon);
    painter.drawRect(part(0.43, 0.48, 0.14, 0.44));
    painter.setBrush(colors.Lid);
    painter.drawRoundedRect(part(0.1, 0.32, 0.8, 0.2), 2, 2);
    painter.setBrush(colors.Ribbon);
    painter.drawRect(part(0.43, 0.32, 0.14, 0.2));
    for (const double side : {-1.0, 1.0}) {
        const QPointF knot(place.center().x(), place.top() + place.height() * 0.32);
        QPainterPath bow(knot);
        bow.cubicTo(knot + QPointF(side * place.width() * 0.1, -place.height() * 0.32),
                    knot + QPointF(side * place.width() * 0.42, -place.height() * 0.26), knot);
        painter.drawPath(bow);
    }
}

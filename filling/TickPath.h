#pragma once

#include <QPainterPath>
#include <QRectF>

/// The stroke of a tick that fills a square from its left to its right edge.
inline QPainterPath TickPath(const QRectF& square) {
    const auto at = [&square](double across, double down) {
        return QPointF(square.left() + across * square.width(),
                       square.top() + down * square.height());
    };
    QPainterPath tick(at(0.1, 0.55));
    tick.lineTo(at(0.38, 0.85));
    tick.lineTo(at(0.92, 0.17));
    return tick;
}

#pragma once

#include <QPainterPath>
#include <QRectF>

/// The stroke of a tick that fills a place from its left to its right edge.
inline QPainterPath TickPath(const QRectF& place) {
    const auto at = [&place](double across, double down) {
        return QPointF(place.left() + across * place.width(), place.top() + down * place.height());
    };
    QPainterPath tick(at(0.1, 0.543));
    tick.lineTo(at(0.384, 0.85));
    tick.lineTo(at(0.92, 0.17));
    return tick;
}

#include "look/CrispLine.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

void FillCrispLine(QPainter& painter, const QRectF& line, const QColor& color) {
    const QTransform& toScreen = painter.deviceTransform();
    const QRectF place = toScreen.mapRect(line);
    const double thin = std::max(1.0, std::floor(toScreen.m11()));
    const double left = std::round(place.left());
    const double top = std::round(place.top());
    const QRectF crisp(left, top, line.width() <= 1 ? thin : std::round(place.right()) - left,
                       line.height() <= 1 ? thin : std::round(place.bottom()) - top);
    const bool wasSmooth = painter.testRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(toScreen.inverted().mapRect(crisp), color);
    painter.setRenderHint(QPainter::Antialiasing, wasSmooth);
}

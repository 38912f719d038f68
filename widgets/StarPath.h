#pragma once

#include <QPainterPath>
#include <cmath>
#include <numbers>

/// A plump star of five points, its middle at 0, 0.
inline QPainterPath StarPath(double radius) {
    constexpr int corners = 10;
    QPainterPath path;
    for (int corner = 0; corner < corners; ++corner) {
        const double reach = corner % 2 == 0 ? radius : radius * 0.56;
        const double angle = std::numbers::pi * (2.0 * corner / corners - 0.5);
        const QPointF at(reach * std::cos(angle), reach * std::sin(angle));
        corner == 0 ? path.moveTo(at) : path.lineTo(at);
    }
    path.closeSubpath();
    return path;
}

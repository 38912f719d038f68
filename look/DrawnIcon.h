#pragma once

#include <QIcon>
#include <functional>

/// Draws in a square of so many units; the mode tells whether what it stands on can be used.
using Drawing = std::function<void(QPainter& painter, QIcon::Mode mode)>;

/// An icon that is drawn at whatever size it is asked for.
QIcon DrawnIcon(int units, Drawing drawing);

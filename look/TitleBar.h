#pragma once

#include <QStyleOptionTitleBar>

class QPainter;
class QWidget;

/// Height of the title bar of a form inside the main window, in pixels.
inline constexpr int TitleBarHeight = 28;

/// Paints one: a flat band, pale unless the form is in front, the title in its middle, and
/// the buttons as strokes.
void DrawTitleBar(const QStyleOptionTitleBar& option, QPainter& painter, const QWidget* widget);

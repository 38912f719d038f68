#pragma once

class QColor;
class QPainter;
class QRectF;

/// Fills a line one pixel wide, across or down. On a screen of any scale all such lines are equally
/// wide and stand on whole pixels of the screen.
void FillCrispLine(QPainter& painter, const QRectF& line, const QColor& color);

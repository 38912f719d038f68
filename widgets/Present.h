#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

struct PresentColors {
    QColor Outline;
    QColor Box;
    QColor Lid;
    QColor Ribbon;
};

/// A box with a bow, in a square: a goal of which there is no picture.
void PaintPresent(QPainter& painter, const QRectF& place, const PresentColors& colors);

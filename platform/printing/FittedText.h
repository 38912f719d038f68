#pragma once

#include <QFont>
#include <QList>
#include <QPointF>
#include <QString>

class QPaintDevice;

/// A line of text, or a part of one, in its place on a device.
struct FittedText {
    QString Text;
    QFont Font;
    /// In device dots.
    QPointF BaseLine;
};

/// The text as it fits into `room` device dots. One that needs more is drawn behind its first
/// `lead` letters in a smaller font, and ends in dots where that would be smaller than one can
/// read.
QList<FittedText> Fitted(const FittedText& whole, double room, qsizetype lead,
                         const QPaintDevice& device);

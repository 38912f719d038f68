#pragma once

#include <QRect>
#include <QString>
#include <functional>

class QPainter;
class QStyleOption;
class QWidget;

/// Paints a part of a control by `paint` the first time, and from a picture that is kept from then
/// on: a rounded border of a style sheet takes longer than all else of a small control, and a list
/// that is scrolled has dozens of them.
///
/// `place` is where the part stands in the control; `paint` paints it from 0, 0. What it looks like
/// may depend on the size of its place, on `option`'s state and palette and on `kind`, and on
/// nothing else.
void PaintFromPicture(QWidget& control, const QRect& place, const QString& kind,
                      const QStyleOption& option, const std::function<void(QPainter&)>& paint);

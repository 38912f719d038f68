#pragma once

#include <QString>
#include <functional>

class QPainter;
class QStyleOption;
class QWidget;

/// Paints a part of a control by `paint` the first time, and from a picture that is kept from then
/// on: a rounded border of a style sheet takes longer than all else of a small control, and a list
/// that is scrolled has dozens of them.
///
/// What the part looks like may depend on the control's size, on `option`'s state and palette and
/// on `kind`, and on nothing else.
void PaintFromPicture(QWidget& control, const QString& kind, const QStyleOption& option,
                      const std::function<void(QPainter&)>& paint);

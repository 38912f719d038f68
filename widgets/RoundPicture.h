#pragma once

#include <QPixmap>

class QPainter;

/// The middle of a picture as a disc, `side` logical pixels wide and as sharp as a screen of that
/// scale; nobody's disc for the empty picture.
QPixmap RoundPicture(const QImage& picture, int side, qreal scale);

/// Nobody's: a disc with a pale head and shoulders.
void PaintNobody(QPainter& painter, const QRectF& place);

#pragma once

#include <QImage>

class QImageReader;
class QIODevice;

/// Reading a larger one would keep somebody waiting who has not asked for it.
inline constexpr qint64 MostSmallPictureBytes = 32 << 20;

/// True for a picture of a kind that the program takes; told by what it is, not by a name.
bool IsTakenKind(const QImageReader& reader);

/// What a reader reads, without a palette: scaling would dither to that.
QImage ReadInFullColour(QImageReader& reader);

/// A picture to be shown small: as it is or, where that is larger, so that its shorter side has
/// about `side` pixels. The empty picture for what is no whole picture of a kind that the program
/// takes, and for a huge one.
QImage ReadSmallPicture(QIODevice& device, int side);

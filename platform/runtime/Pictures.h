#pragma once

#include <QImage>
#include <QString>

class QFile;

/// More than any picture has, and less than the database takes for one value.
inline constexpr qint64 MostPictureBytes = qint64{900} << 20;

/// Opens a file that is to be a picture for reading. Raises 53 if it is not there, 75 if it cannot
/// be read, 481 if it is larger than MostPictureBytes.
void OpenPicture(QFile& file);

/// Loads a picture file of any format the platform knows; "" gives the empty picture.
/// Raises 53 for a file that is not there, 75 for one that cannot be read, 481 for one that is no
/// picture or too large. Bytes behind the picture's end do not matter.
QImage LoadPicture(const QString& path);

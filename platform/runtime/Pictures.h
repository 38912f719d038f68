#pragma once

#include <QImage>
#include <QString>

/// Loads a picture file of any format the platform knows; "" gives the empty picture.
/// Raises 53 for a file that is not there, 75 for one that cannot be read, 481 for one that is no
/// picture. Bytes behind the picture's end do not matter.
QImage LoadPicture(const QString& path);

#pragma once

#include <QString>
#include <functional>

class QImage;

/// Looks whether something is painted as it was when somebody last looked at it: as in the picture
/// SUITE-NAME.png of tests/pictures, at half its size. Where it is not, the test fails and what was
/// seen is left in the folder pictures-seen. With DUTYGRID_PICTURES=FOLDER nothing is compared:
/// what is seen is left in that folder. Nothing is compared either at another scale than 1. Another
/// version of the toolkit paints otherwise: the test is skipped then, but for what else it expects,
/// or fails where CI is set.
void ExpectPicture(const QImage& painted, const QString& name);

/// The same for what may still be moving, a button that fades in or a list that slides: looks at it
/// until it is as in its picture, for two seconds at most.
void ExpectPicture(const std::function<QImage()>& painted, const QString& name);

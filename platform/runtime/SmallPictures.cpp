#include "platform/runtime/SmallPictures.h"

#include <QImageReader>
#include <algorithm>

bool IsTakenKind(const QImageReader& reader) {
    // A drawing could lead to other files and to the net.
    static const QList<QByteArray> kinds{"png", "jpg", "jpeg", "gif", "bmp", "ico", "wmf"};
    return kinds.contains(reader.format());
}

QImage ReadInFullColour(QImageReader& reader) {
    const QImage picture = reader.read();
    if (picture.colorCount() == 0)
        return picture;
    return picture.convertToFormat(picture.hasAlphaChannel() ? QImage::Format_ARGB32
                                                             : QImage::Format_RGB32);
}

QImage ReadSmallPicture(QIODevice& device, int side) {
    constexpr qint64 mostPixels = 64'000'000;
    if (device.size() > MostSmallPictureBytes)
        return {};
    QImageReader reader(&device);
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    if (!IsTakenKind(reader) || qint64{size.width()} * size.height() > mostPixels)
        return {};
    reader.setAutoTransform(true);
    const QSize small = size.scaled(side, side, Qt::KeepAspectRatioByExpanding);
    const bool isLarge = std::min(size.width(), size.height()) > side;
    // A photo is made smaller while it is read, which takes a small part of the time. Of the other
    // kinds the toolkit would leave steps on what is round.
    const bool isPhoto = reader.format() == "jpeg";
    if (isLarge && isPhoto)
        reader.setScaledSize(small);
    const QImage picture = ReadInFullColour(reader);
    return isLarge && !isPhoto && !picture.isNull()
               ? picture.scaled(small, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
               : picture;
}

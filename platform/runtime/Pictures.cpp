#include "platform/runtime/Pictures.h"

#include "platform/runtime/RuntimeError.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

QImage LoadPicture(const QString& path) {
    if (path.isEmpty())
        return {};
    const QFileInfo info(path);
    if (!info.exists())
        throw RuntimeError(ErrorNumber::FileNotFound);
    QFile file(path);
    if (!info.isFile() || !file.open(QIODevice::ReadOnly))
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    // By content, not by name: a scratch picture has no extension.
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    // A drawing could lead to other files and to the net.
    static const QList<QByteArray> formats{"png", "jpg", "jpeg", "gif", "bmp", "ico", "wmf"};
    if (!formats.contains(reader.format()))
        throw RuntimeError(ErrorNumber::InvalidPicture);
    reader.setAutoTransform(true);
    const QImage picture = reader.read();
    if (picture.isNull())
        throw RuntimeError(ErrorNumber::InvalidPicture);
    return picture;
}

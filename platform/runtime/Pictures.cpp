#include "platform/runtime/Pictures.h"

#include "platform/runtime/FileFaults.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

namespace {

RuntimeError NoPicture(const QString& path) {
    RuntimeError error(ErrorNumber::InvalidPicture);
    error.SetAdvice(QStringLiteral("%1 is no whole picture of a known kind. Choose a PNG, JPEG, "
                                   "GIF, BMP or ICO file.")
                        .arg(QDir::toNativeSeparators(path)));
    return error;
}

} // namespace

void OpenPicture(QFile& file) {
    const QString path = file.fileName();
    const QFileInfo info(path);
    if (!info.exists())
        throw ReadFault(ErrorNumber::FileNotFound, path);
    if (info.isFile() && info.size() > MostPictureBytes)
        throw TooLargeFault(ErrorNumber::InvalidPicture, path, MostPictureBytes);
    if (!info.isFile() || !file.open(QIODevice::ReadOnly))
        throw ReadFault(ErrorNumber::PathFileAccessError, path);
}

QImage LoadPicture(const QString& path) {
    if (path.isEmpty())
        return {};
    QFile file(path);
    OpenPicture(file);
    // By content, not by name: a scratch picture has no extension.
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    // A drawing could lead to other files and to the net.
    static const QList<QByteArray> formats{"png", "jpg", "jpeg", "gif", "bmp", "ico", "wmf"};
    if (!formats.contains(reader.format()))
        throw NoPicture(path);
    reader.setAutoTransform(true);
    const QImage picture = reader.read();
    if (picture.isNull())
        throw NoPicture(path);
    return picture;
}

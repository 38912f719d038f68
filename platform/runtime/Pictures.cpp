#include "platform/runtime/Pictures.h"

#include "platform/runtime/FileFaults.h"
#include "platform/runtime/SmallPictures.h"

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
    if (!IsTakenKind(reader))
        throw NoPicture(path);
    reader.setAutoTransform(true);
    const QImage picture = ReadInFullColour(reader);
    if (picture.isNull())
        throw NoPicture(path);
    return picture;
}

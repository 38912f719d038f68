#include "store/Pictures.h"

#include "platform/runtime/Actions.h"
#include "platform/runtime/FileFaults.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Pictures.h"
#include "platform/runtime/ProgramFolder.h"
#include "platform/runtime/SmallPictures.h"
#include "platform/runtime/WholeFiles.h"
#include "store/ChartFields.h"
#include "store/Rows.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>

namespace {

constexpr qint64 PieceSize = 32768;

/// Reads `size` bytes; what lies behind the file's end stays zero. Raises 75 if the disk refuses
/// them.
QByteArray ReadPiece(QFile& file, qint64 size) {
    QByteArray piece = file.read(size);
    if (file.error() != QFileDevice::NoError)
        throw ReadFault(ErrorNumber::PathFileAccessError, file.fileName());
    piece.resize(size, '\0');
    return piece;
}

/// True for a name that a file can bear on any system, as it stands.
bool IsFileName(const QString& name) {
    constexpr int longest = 230; // bytes; while it is written it has a longer name
    static const QRegularExpression letters(
        QStringLiteral(R"(^[^\x{0}-\x{1f}\x{7f}/\\:*?"<>|]+\z)"));
    static const QRegularExpression devices(
        QStringLiteral(R"(^(CON|PRN|AUX|NUL|(COM|LPT)[0-9])(\.|$))"),
        QRegularExpression::CaseInsensitiveOption);
    return letters.match(name).hasMatch() && !devices.match(name).hasMatch() &&
           !name.endsWith(QLatin1Char('.')) && !name.endsWith(QLatin1Char(' ')) &&
           name.toUtf8().size() <= longest;
}

} // namespace

QString ScratchFileName(const QString& account) {
    if (IsFileName(account))
        return account;
    constexpr int longest = 120;
    const QByteArray encoded = QUrl::toPercentEncoding(account, QByteArray(), QByteArray("."));
    return QStringLiteral("picture-") + QString::fromLatin1(encoded.left(longest));
}

namespace {

/// Writes the field's bytes over the scratch file from its start: a smaller picture keeps the tail
/// of the one before behind it. A file of its own takes the place of the former, so that no link
/// there leads the bytes out of the folder.
void WriteScratchFile(const Recordset& rows, const QString& field, const QString& scratch) {
    const qint64 size = rows.FieldSize(field);
    const qint64 rest = size % PieceSize;
    QByteArray content = rows.GetChunk(field, 0, rest);
    for (qint64 piece = 0; piece < size / PieceSize; ++piece)
        content += rows.GetChunk(field, piece * PieceSize + rest, PieceSize);
    WithErrorsSkipped([&] {
        if (!QFileInfo(scratch).isSymLink())
            content += ReadWholeFile(scratch, MostPictureBytes).mid(content.size());
    });
    ReplaceScratchFile(scratch, content);
}

void ShowSmall(const Recordset& rows, const QString& field, PictureTarget& target) {
    const qint64 size = rows.FieldSize(field);
    if (size == 0)
        return;
    QByteArray content =
        size > MostSmallPictureBytes ? QByteArray() : rows.GetChunk(field, 0, size);
    QBuffer buffer(&content);
    buffer.open(QIODevice::ReadOnly);
    target.SetPicture(ReadSmallPicture(buffer, target.SmallSide()));
}

} // namespace

void StorePicture(Recordset& rows, const QString& field, const QString& path) {
    QFile file(path);
    OpenPicture(file);
    const qint64 length = file.size();
    // Every piece is one byte longer than its size: the stored value ends in as many bytes
    // without meaning as there are pieces.
    rows.AppendChunk(field, ReadPiece(file, length % PieceSize + 1));
    for (qint64 piece = 0; piece < length / PieceSize; ++piece) {
        rows.AppendChunk(field, ReadPiece(file, PieceSize + 1));
        DoEvents();
    }
}

void ShowPictures(Recordset& accounts, const QString& account, const QString& field,
                  PictureTarget& target, const std::function<void()>& beforePicture) {
    if (target.SmallSide() > 0) {
        ForEachRowOf(account, accounts, [&] {
            beforePicture();
            WithErrorsSkipped([&] { ShowSmall(accounts, field, target); });
        });
        return;
    }
    // The first row's name, not the wanted account's: one scratch file serves every picture.
    const QString folder = InProgramFolder(QStringLiteral("DeleteMe"));
    const QString scratch =
        folder + QLatin1Char('/') + ScratchFileName(TextOf(accounts.Value(AccountField::Name)));

    // Fails from the second picture on, as the folder is there then.
    QDir().mkdir(folder);
    ForEachRowOf(account, accounts, [&] {
        beforePicture();
        WithErrorsSkipped([&] {
            if (accounts.FieldSize(field) == 0)
                return;
            // Not skipped by itself: what lies there could be another child's picture.
            WriteScratchFile(accounts, field, scratch);
            target.SetPicture(LoadPicture(scratch));
        });
    });
}

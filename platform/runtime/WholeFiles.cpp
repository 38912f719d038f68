#include "platform/runtime/WholeFiles.h"

#include "platform/runtime/FileFaults.h"
#include "platform/runtime/FileHandle.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

namespace {

/// Has the disk keep what has been written to an open file.
bool Sync(QFile& file) {
    return ::fsync(file.handle()) == 0;
}

/// A file that is not yet whole, beside the one whose place it will take; removed unless it does.
class Draft {
public:
    explicit Draft(const QFileInfo& target) : target_(target) {
        // A name that nobody foresees, and a file that nobody has laid there.
        file_.setFileName(QStringLiteral("%1.%2.new").arg(target.filePath(), UnforeseenName()));
        if (!file_.open(QIODevice::WriteOnly | QIODevice::NewOnly))
            throw Fault();
    }
    ~Draft() {
        if (!isWhole_)
            file_.remove();
    }
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;

    void TakeRights() {
        if (target_.exists() && !file_.setPermissions(target_.permissions()))
            throw Fault();
    }

    void Write(const QByteArray& content, bool isKept) {
        // The last bytes may be refused as late as when the file is flushed, synced or closed.
        const bool isWritten =
            file_.write(content) == content.size() && file_.flush() && (!isKept || Sync(file_));
        file_.close();
        if (!isWritten || file_.error() != QFileDevice::NoError)
            throw Fault();
    }

    void TakeItsPlace(bool isKept) {
        std::error_code fault;
        std::filesystem::rename(file_.filesystemFileName(), target_.filesystemFilePath(), fault);
        isWhole_ = !fault;
        if (!isWhole_ || (isKept && !SyncPath(target_.path())))
            throw Fault();
    }

private:
    RuntimeError Fault() const {
        return WriteFault(ErrorNumber::PathFileAccessError, target_.filePath());
    }

    QFileInfo target_;
    QFile file_;
    bool isWhole_ = false;
};

/// Removes the drafts of writes that were killed; one of another copy's may still be written.
void RemoveLeftDrafts(const QFileInfo& target) {
    constexpr qint64 longestWrite = 2; // seconds
    const QString drafts = target.fileName() + QStringLiteral(".????????????????.new");
    const QDateTime before = QDateTime::currentDateTime().addSecs(-longestWrite);
    for (const QFileInfo& draft : target.dir().entryInfoList({drafts}, QDir::Files | QDir::Hidden))
        if (draft.lastModified() < before)
            QFile::remove(draft.filePath());
}

} // namespace

QString UnforeseenName() {
    const quint64 number = QRandomGenerator::system()->generate64();
    return QStringLiteral("%1").arg(number, 16, 16, QLatin1Char('0'));
}

bool SyncPath(const QString& path) {
    // Not waiting for the other end of a pipe that somebody has laid there.
    const FileHandle handle(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    return handle.IsOpen() && ::fsync(handle.Number()) == 0;
}

QByteArray ReadWholeFile(const QString& path, qint64 most) {
    const QFileInfo info(path);
    if (!info.dir().exists())
        throw ReadFault(ErrorNumber::PathNotFound, path);
    if (!info.exists())
        throw ReadFault(ErrorNumber::FileNotFound, path);
    if (info.isFile() && info.size() > most)
        throw TooLargeFault(ErrorNumber::PathFileAccessError, path, most);
    QFile file(path);
    if (!info.isFile() || !file.open(QIODevice::ReadOnly))
        throw ReadFault(ErrorNumber::PathFileAccessError, path);
    // One byte more tells that it has grown, and that what seems empty cannot be read.
    const QByteArray content = file.read(info.size() + 1);
    if (file.error() != QFileDevice::NoError || content.size() != info.size())
        throw ReadFault(ErrorNumber::PathFileAccessError, path);
    return content;
}

void RefuseToReplace(const QString& path) {
    const QFileInfo info(path);
    if (!info.dir().exists())
        throw WriteFault(ErrorNumber::PathNotFound, path);
    // A link could lead anywhere, and a rename would get past the protection of a read-only file.
    if (info.isSymLink() || (info.exists() && (!info.isFile() || !info.isWritable())))
        throw WriteFault(ErrorNumber::PathFileAccessError, path);
}

void ReplaceFile(const QString& path, const QByteArray& content) {
    RefuseToReplace(path);
    const QFileInfo target(path);
    RemoveLeftDrafts(target);
    Draft draft(target);
    draft.TakeRights();
    draft.Write(content, true);
    draft.TakeItsPlace(true);
}

void ReplaceScratchFile(const QString& path, const QByteArray& content) {
    const QFileInfo target(path);
    RemoveLeftDrafts(target);
    Draft draft(target);
    draft.Write(content, false);
    draft.TakeItsPlace(false);
}

bool RenameToFreeName(const QString& from, const QString& to) {
    const QByteArray former = QFile::encodeName(from);
    const QByteArray next = QFile::encodeName(to);
    if (::renameat2(AT_FDCWD, former.constData(), AT_FDCWD, next.constData(), RENAME_NOREPLACE) ==
        0)
        return true;
    // Not every file system knows how to; these know two names for a file.
    return errno == EINVAL && ::link(former.constData(), next.constData()) == 0 &&
           ::unlink(former.constData()) == 0;
}

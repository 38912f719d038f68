#include "platform/runtime/DraftFolder.h"

#include "platform/runtime/FileFaults.h"
#include "platform/runtime/WholeFiles.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

namespace fs = std::filesystem;

constexpr mode_t OwnersFile = S_IRUSR | S_IWUSR;

fs::path PathOf(const QString& path) {
    return QFileInfo(path).filesystemFilePath();
}

QString DraftName() {
    return UnforeseenName() + QStringLiteral(".new");
}

/// A file or folder in an open one, itself and no link. Not waiting for the other end of a pipe.
FileHandle OpenIn(const FileHandle& folder, const QString& name, int flags) {
    return FileHandle(::openat(folder.Number(), QFile::encodeName(name).constData(),
                               flags | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, OwnersFile));
}

FileHandle OpenFolder(const QString& path) {
    return FileHandle(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

/// Makes a folder that only its owner can enter; a closed handle if it cannot be made.
FileHandle MakeFolder(const FileHandle& parent, const QString& name) {
    if (::mkdirat(parent.Number(), QFile::encodeName(name).constData(), S_IRWXU) != 0)
        return FileHandle();
    FileHandle folder = OpenIn(parent, name, O_RDONLY | O_DIRECTORY);
    struct stat made {};
    // Another user who may write beside it may have put one of his own there meanwhile.
    if (::fstat(folder.Number(), &made) != 0 || made.st_uid != ::geteuid())
        return FileHandle();
    return folder;
}

bool Sync(const FileHandle& handle) {
    return ::fsync(handle.Number()) == 0;
}

bool IsSame(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

/// The rights of owner and group on a file, and its group, for something else. Best effort: not
/// every file system knows them, and until here only the owner had any.
void ShareAs(const FileHandle& handle, const QString& like) {
    struct stat model {};
    struct stat now {};
    if (::stat(QFile::encodeName(like).constData(), &model) != 0 ||
        ::fstat(handle.Number(), &now) != 0)
        return;
    mode_t rights = model.st_mode & (S_IRGRP | S_IWGRP);
    if (now.st_gid != model.st_gid &&
        ::fchown(handle.Number(), static_cast<uid_t>(-1), model.st_gid) != 0)
        rights = 0;
    rights |= S_IRUSR | S_IWUSR;
    if (S_ISDIR(now.st_mode)) {
        rights |= S_IXUSR;
        if ((rights & S_IRGRP) != 0)
            rights |= S_IXGRP;
    }
    ::fchmod(handle.Number(), rights);
}

/// Only those that no living process can still be at.
void RemoveLeftDrafts(const QString& parent) {
    constexpr qint64 longest = 600; // seconds
    const QDateTime before = QDateTime::currentDateTime().addSecs(-longest);
    for (const QFileInfo& draft : QDir(parent).entryInfoList(
             {QStringLiteral("????????????????.new")}, QDir::Dirs | QDir::NoSymLinks))
        if (draft.lastModified() < before) {
            std::error_code fault;
            fs::remove_all(draft.filesystemFilePath(), fault);
        }
}

} // namespace

DraftFolder::DraftFolder(const QString& parent, const QString& like) : like_(like) {
    const QFileInfo info(parent);
    if (!info.isDir()) {
        if (!info.dir().exists())
            throw RuntimeError(ErrorNumber::PathNotFound);
        const FileHandle folder = MakeFolder(OpenFolder(info.path()), info.fileName());
        if (!folder.IsOpen())
            throw WriteFault(ErrorNumber::PathFileAccessError, parent);
        ShareAs(folder, like);
    }
    RemoveLeftDrafts(parent);
    // The folder itself may be reached by a link, as where a package keeps its data elsewhere.
    parentPath_ = info.canonicalFilePath();
    parent_ = OpenFolder(parentPath_);
    name_ = DraftName();
    folder_ = MakeFolder(parent_, name_);
    if (!folder_.IsOpen())
        throw WriteFault(ErrorNumber::PathFileAccessError, parentPath_ + QLatin1Char('/') + name_);
}

DraftFolder::~DraftFolder() {
    std::error_code fault;
    if (!isWhole_)
        fs::remove_all(PathOf(parentPath_ + QLatin1Char('/') + name_), fault);
}

RuntimeError DraftFolder::Fault(const QString& name) const {
    return WriteFault(ErrorNumber::PathFileAccessError, Path(name));
}

QString DraftFolder::Path(const QString& name) const {
    return parentPath_ + QLatin1Char('/') + name_ + QLatin1Char('/') + name;
}

QString DraftFolder::MakeFile(const QString& name) {
    Write(name, {});
    return Path(name);
}

void DraftFolder::Write(const QString& name, const QByteArray& bytes) {
    FileHandle handle = OpenIn(folder_, name, O_WRONLY | O_CREAT | O_EXCL);
    QFile file;
    if (!handle.IsOpen() ||
        !file.open(handle.Release(), QIODevice::WriteOnly, QFile::AutoCloseHandle))
        throw Fault(name);
    files_ += name;
    const bool isWritten = file.write(bytes) == bytes.size() && file.flush();
    file.close();
    if (!isWritten || file.error() != QFileDevice::NoError)
        throw Fault(name);
}

void DraftFolder::TakeName(const QString& name) {
    for (const QString& file : std::as_const(files_)) {
        const FileHandle handle = OpenIn(folder_, file, O_RDONLY);
        ShareAs(handle, like_);
        if (!Sync(handle))
            throw Fault(file);
    }
    ShareAs(folder_, like_);
    if (!Sync(folder_))
        throw Fault(files_.value(0));
    const QByteArray draft = QFile::encodeName(name_);
    const QByteArray whole = QFile::encodeName(name);
    struct stat written {};
    struct stat named {};
    // A rename would put a folder in the place of an empty one.
    if (::fstatat(parent_.Number(), whole.constData(), &named, AT_SYMLINK_NOFOLLOW) == 0 ||
        ::renameat(parent_.Number(), draft.constData(), parent_.Number(), whole.constData()) != 0)
        throw Fault(files_.value(0));
    isWhole_ = true;
    // What has the name now may be what somebody else has put in the place of the draft.
    if (::fstat(folder_.Number(), &written) != 0 ||
        ::fstatat(parent_.Number(), whole.constData(), &named, AT_SYMLINK_NOFOLLOW) != 0 ||
        !IsSame(written, named) || !Sync(parent_))
        throw Fault(files_.value(0));
}

bool RemoveFolder(const QString& path) {
    const QString nameless = QFileInfo(path).path() + QLatin1Char('/') + DraftName();
    std::error_code fault;
    fs::rename(PathOf(path), PathOf(nameless), fault);
    if (!fault)
        fs::remove_all(PathOf(nameless), fault);
    return !fault;
}

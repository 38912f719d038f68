#include "platform/runtime/DraftFolder.h"

#include "platform/runtime/RuntimeError.h"
#include "platform/runtime/WholeFiles.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <filesystem>
#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace {

namespace fs = std::filesystem;

constexpr QFile::Permissions OwnersAlone =
    QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;

[[noreturn]] void RefuseAccess() {
    throw RuntimeError(ErrorNumber::PathFileAccessError);
}

fs::path PathOf(const QString& path) {
    return QFileInfo(path).filesystemFilePath();
}

QString DraftName() {
    return UnforeseenName() + QStringLiteral(".new");
}

/// The rights of owner and group on a file, and its group, for something else. Best effort: not
/// every file system knows them, and until here only the owner had any.
void ShareAs(const QString& path, const QString& like) {
    const QFileInfo model(like);
    std::error_code fault;
    fs::perms rights = fs::status(PathOf(like), fault).permissions() &
                       (fs::perms::group_read | fs::perms::group_write);
#ifdef Q_OS_UNIX
    if (::lchown(QFile::encodeName(path).constData(), static_cast<uid_t>(-1), model.groupId()) !=
            0 &&
        QFileInfo(path).groupId() != model.groupId())
        rights = fs::perms::none;
#endif
    rights |= fs::perms::owner_read | fs::perms::owner_write;
    if (QFileInfo(path).isDir()) {
        rights |= fs::perms::owner_exec;
        if ((rights & fs::perms::group_read) != fs::perms::none)
            rights |= fs::perms::group_exec;
    }
    fs::permissions(PathOf(path), rights, fault);
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

void MakeParent(const QString& path, const QString& like) {
    const QFileInfo info(path);
    if (info.isDir())
        return;
    if (!info.dir().exists())
        throw RuntimeError(ErrorNumber::PathNotFound);
    if (!info.dir().mkdir(info.fileName(), OwnersAlone | QFile::ExeOwner | QFile::ExeUser))
        RefuseAccess();
    ShareAs(path, like);
}

} // namespace

DraftFolder::DraftFolder(const QString& parent, const QString& like) : like_(like) {
    MakeParent(parent, like);
    RemoveLeftDrafts(parent);
    // The folder itself may be reached by a link, as where a package keeps its data elsewhere.
    parent_ = QFileInfo(parent).canonicalFilePath();
    const QString name = DraftName();
    if (!QDir(parent_).mkdir(name, OwnersAlone | QFile::ExeOwner | QFile::ExeUser))
        RefuseAccess();
    path_ = parent_ + QLatin1Char('/') + name;
}

DraftFolder::~DraftFolder() {
    std::error_code fault;
    if (!isWhole_)
        fs::remove_all(PathOf(path_), fault);
}

QString DraftFolder::Path(const QString& name) const {
    return path_ + QLatin1Char('/') + name;
}

QString DraftFolder::MakeFile(const QString& name) const {
    QFile file(Path(name));
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly, OwnersAlone))
        RefuseAccess();
    return file.fileName();
}

void DraftFolder::Write(const QString& name, const QByteArray& bytes) const {
    QFile file(Path(name));
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly, OwnersAlone) ||
        file.write(bytes) != bytes.size() || !file.flush())
        RefuseAccess();
    file.close();
    if (file.error() != QFileDevice::NoError)
        RefuseAccess();
}

void DraftFolder::TakeName(const QString& name) {
    for (const QFileInfo& file : QDir(path_).entryInfoList(QDir::Files | QDir::Hidden)) {
        ShareAs(file.filePath(), like_);
        if (!SyncPath(file.filePath()))
            RefuseAccess();
    }
    ShareAs(path_, like_);
    if (!SyncPath(path_))
        RefuseAccess();
    const QString whole = parent_ + QLatin1Char('/') + name;
    // A rename would put a folder in the place of an empty one.
    const QFileInfo taken(whole);
    std::error_code fault;
    if (taken.exists() || taken.isSymLink())
        RefuseAccess();
    fs::rename(PathOf(path_), PathOf(whole), fault);
    isWhole_ = !fault;
    if (!isWhole_ || !SyncPath(parent_))
        RefuseAccess();
}

bool RemoveFolder(const QString& path) {
    const QString nameless = QFileInfo(path).path() + QLatin1Char('/') + DraftName();
    std::error_code fault;
    fs::rename(PathOf(path), PathOf(nameless), fault);
    if (!fault)
        fs::remove_all(PathOf(nameless), fault);
    return !fault;
}

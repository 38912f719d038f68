#include "platform/runtime/FolderUse.h"

#include "platform/runtime/RuntimeError.h"

#include <QFile>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <utility>

namespace {

enum class Answer { Granted, InUse, Unknown };

/// The lock lies on the folder itself: there is no file that could be left over.
Answer Lock(const QString& path, int kind, FileHandle& folder) {
    folder =
        FileHandle(::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.IsOpen())
        return Answer::Unknown;
    if (::flock(folder.Number(), kind | LOCK_NB) == 0)
        return Answer::Granted;
    const bool isInUse = errno == EWOULDBLOCK;
    folder = FileHandle();
    return isInUse ? Answer::InUse : Answer::Unknown;
}

} // namespace

std::unique_ptr<FolderUse> FolderUse::Shared(const QString& path) {
    FileHandle folder;
    if (Lock(path, LOCK_SH, folder) == Answer::InUse)
        return nullptr;
    return std::unique_ptr<FolderUse>(new FolderUse(std::move(folder)));
}

std::unique_ptr<FolderUse> FolderUse::Alone(const QString& path) {
    FileHandle folder;
    switch (Lock(path, LOCK_EX, folder)) {
    case Answer::InUse:
        return nullptr;
    case Answer::Unknown:
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    case Answer::Granted:
        break;
    }
    return std::unique_ptr<FolderUse>(new FolderUse(std::move(folder)));
}

#include "platform/runtime/FolderUse.h"

#include "platform/runtime/RuntimeError.h"

#ifdef Q_OS_UNIX
#include <QFile>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace {

enum class Answer { Granted, InUse, Unknown };

#ifdef Q_OS_UNIX
/// The lock lies on the folder itself: there is no file that could be left over.
Answer Lock(const QString& folder, int kind, int& handle) {
    handle = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return Answer::Unknown;
    if (::flock(handle, kind | LOCK_NB) == 0)
        return Answer::Granted;
    const bool isInUse = errno == EWOULDBLOCK;
    ::close(handle);
    handle = -1;
    return isInUse ? Answer::InUse : Answer::Unknown;
}
#endif

} // namespace

std::unique_ptr<FolderUse> FolderUse::Shared([[maybe_unused]] const QString& folder) {
    int handle = -1;
#ifdef Q_OS_UNIX
    if (Lock(folder, LOCK_SH, handle) == Answer::InUse)
        return nullptr;
#endif
    return std::unique_ptr<FolderUse>(new FolderUse(handle));
}

std::unique_ptr<FolderUse> FolderUse::Alone([[maybe_unused]] const QString& folder) {
    int handle = -1;
#ifdef Q_OS_UNIX
    switch (Lock(folder, LOCK_EX, handle)) {
    case Answer::InUse:
        return nullptr;
    case Answer::Unknown:
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    case Answer::Granted:
        break;
    }
#endif
    return std::unique_ptr<FolderUse>(new FolderUse(handle));
}

FolderUse::~FolderUse() {
#ifdef Q_OS_UNIX
    if (handle_ >= 0)
        ::close(handle_);
#endif
}

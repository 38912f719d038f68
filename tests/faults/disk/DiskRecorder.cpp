// Loaded into a process before all other libraries: notes every call by which the process changes
// the files of one folder, so that what a power cut leaves of them can be worked out afterwards.
// The environment's DUTYGRID_DISK_FOLDER names the folder, DUTYGRID_DISK_RECORD the file of notes.
// With DUTYGRID_DISK_KILL=2 * n the process ends, as a killed one does, before the n-th of these
// calls (0 the first), with 2 * n + 1 after it. With DUTYGRID_DISK_FAIL=n and DUTYGRID_DISK_ERROR=e
// the n-th call, those that only open and read included, fails by the error number e, and with
// DUTYGRID_DISK_STAYS=1 so do all after it.

#include "tests/faults/disk/DiskRecord.h"

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <mutex>
#include <string>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

struct Recorder {
    std::string folder;
    int notes = -1;
    long killAt = -1;
    long failAt = -1;
    long failsWith = 0;
    bool staysBad = false;
    long changes = 0;
    long calls = 0;
    std::array<bool, 4096> isOurs{};
    std::mutex lock;

    Recorder() {
        const char* where = std::getenv("DUTYGRID_DISK_FOLDER");
        const char* file = std::getenv("DUTYGRID_DISK_RECORD");
        if (where != nullptr)
            folder = std::string(where) + '/';
        if (file != nullptr)
            notes = static_cast<int>(syscall(SYS_openat, AT_FDCWD, file,
                                             O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600));
        killAt = Number("DUTYGRID_DISK_KILL", -1);
        failAt = Number("DUTYGRID_DISK_FAIL", -1);
        failsWith = Number("DUTYGRID_DISK_ERROR", 0);
        staysBad = Number("DUTYGRID_DISK_STAYS", 0) == 1;
    }

    static long Number(const char* variable, long otherwise) {
        const char* text = std::getenv(variable);
        return text != nullptr ? std::atol(text) : otherwise;
    }

    bool IsInside(const char* path) const {
        // Without its slash it is the folder itself.
        return !folder.empty() && (std::strncmp(path, folder.c_str(), folder.size()) == 0 ||
                                   std::string(path) + '/' == folder);
    }
    bool IsOurs(int fd) const {
        return fd >= 0 && static_cast<std::size_t>(fd) < isOurs.size() &&
               isOurs[static_cast<std::size_t>(fd)];
    }
    void SetOurs(int fd, bool ours) {
        if (fd >= 0 && static_cast<std::size_t>(fd) < isOurs.size())
            isOurs[static_cast<std::size_t>(fd)] = ours;
    }

    void Note(FileCall call, int fd, int64_t number, const void* bytes, std::size_t size) {
        if (notes < 0)
            return;
        const DiskNote note{call, fd, number, size};
        const iovec pieces[] = {{const_cast<DiskNote*>(&note), sizeof note},
                                {const_cast<void*>(bytes), size}};
        if (syscall(SYS_writev, notes, pieces, 2) != static_cast<long>(sizeof note + size))
            _exit(5);
    }
};

Recorder& Tap() {
    static Recorder recorder;
    return recorder;
}

/// The function that this library stands before.
template <class Function>
Function* Real(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// One call: it may fail.
template <class Call>
auto Failing(Call&& call) -> decltype(call()) {
    Recorder& tap = Tap();
    const long number = tap.calls++;
    if (tap.failAt >= 0 && (number == tap.failAt || (tap.staysBad && number > tap.failAt))) {
        errno = static_cast<int>(tap.failsWith);
        return -1;
    }
    return call();
}

/// One changing call: it may fail, and the process may end before or after it.
template <class Call>
auto Counted(Call&& call) -> decltype(call()) {
    Recorder& tap = Tap();
    const long number = tap.changes++;
    if (tap.killAt == 2 * number)
        _exit(KilledByRecorder);
    const auto result = Failing(call);
    if (tap.killAt == 2 * number + 1)
        _exit(KilledByRecorder);
    return result;
}

/// One changing call on a name.
template <class Call>
int CountedOn(const char* path, FileCall what, const std::string& noted, Call&& call) {
    Recorder& tap = Tap();
    if (!tap.IsInside(path))
        return call();
    const std::lock_guard guard(tap.lock);
    const int result = Counted(call);
    if (result == 0)
        tap.Note(what, -1, 0, noted.data(), noted.size());
    return result;
}

/// The path of a name in an open folder.
std::string PathIn(int folder, const char* name) {
    if (folder == AT_FDCWD || name[0] == '/')
        return name;
    std::array<char, 4096> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(folder);
    const ssize_t size = readlink(link.c_str(), path.data(), path.size());
    return size < 0 ? name : std::string(path.data(), static_cast<std::size_t>(size)) + '/' + name;
}

int Open(const char* call, int folder, const char* name, int flags, mode_t mode) {
    static auto* const real = Real<int(int, const char*, int, ...)>(call);
    Recorder& tap = Tap();
    const std::lock_guard guard(tap.lock);
    const std::string path = PathIn(folder, name);
    if (!tap.IsInside(path.c_str())) {
        const int fd = real(folder, name, flags, mode);
        tap.SetOurs(fd, false);
        return fd;
    }
    const bool isThere = access(path.c_str(), F_OK) == 0;
    const bool makes = (flags & O_CREAT) != 0 && !isThere;
    const bool empties = (flags & O_TRUNC) != 0 && isThere;
    const auto open = [&] { return real(folder, name, flags, mode); };
    const int fd = makes || empties ? Counted(open) : Failing(open);
    tap.SetOurs(fd, fd >= 0);
    if (fd < 0)
        return fd;
    tap.Note(makes ? FileCall::Make : FileCall::Open, fd, 0, path.data(), path.size());
    if (empties)
        tap.Note(FileCall::Truncate, fd, 0, nullptr, 0);
    return fd;
}

mode_t ModeOf(int flags, va_list arguments) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

ssize_t Write(int fd, const void* bytes, std::size_t size, off64_t offset) {
    static auto* const real = Real<ssize_t(int, const void*, std::size_t, off64_t)>("pwrite64");
    Recorder& tap = Tap();
    if (!tap.IsOurs(fd))
        return real(fd, bytes, size, offset);
    const std::lock_guard guard(tap.lock);
    tap.Note(FileCall::Write, fd, offset, bytes, size);
    return Counted([&] { return real(fd, bytes, size, offset); });
}

int Truncate(int fd, off64_t size) {
    static auto* const real = Real<int(int, off64_t)>("ftruncate64");
    Recorder& tap = Tap();
    if (!tap.IsOurs(fd))
        return real(fd, size);
    const std::lock_guard guard(tap.lock);
    tap.Note(FileCall::Truncate, fd, size, nullptr, 0);
    return Counted([&] { return real(fd, size); });
}

template <class Call>
ssize_t Read(int fd, Call&& call) {
    Recorder& tap = Tap();
    if (!tap.IsOurs(fd))
        return call();
    const std::lock_guard guard(tap.lock);
    tap.Note(FileCall::Other, fd, 0, nullptr, 0);
    return Failing(call);
}

int Sync(const char* name, int fd) {
    Recorder& tap = Tap();
    auto* const real = Real<int(int)>(name);
    if (!tap.IsOurs(fd))
        return real(fd);
    const std::lock_guard guard(tap.lock);
    // The disk itself need not be waited for: what it would hold is worked out.
    const int result = Counted([] { return 0; });
    tap.Note(FileCall::Sync, fd, 0, nullptr, 0);
    return result;
}

} // namespace

extern "C" {

int open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeOf(flags, arguments);
    va_end(arguments);
    return Open("openat", AT_FDCWD, path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeOf(flags, arguments);
    va_end(arguments);
    return Open("openat", AT_FDCWD, path, flags | O_LARGEFILE, mode);
}

int openat(int folder, const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeOf(flags, arguments);
    va_end(arguments);
    return Open("openat", folder, path, flags, mode);
}

int openat64(int folder, const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeOf(flags, arguments);
    va_end(arguments);
    return Open("openat", folder, path, flags | O_LARGEFILE, mode);
}

int close(int fd) {
    static auto* const real = Real<int(int)>("close");
    Tap().SetOurs(fd, false);
    return real(fd);
}

ssize_t write(int fd, const void* bytes, size_t size) {
    static auto* const real = Real<ssize_t(int, const void*, size_t)>("write");
    Recorder& tap = Tap();
    if (fd == STDOUT_FILENO && size == sizeof(int32_t)) {
        int32_t number = 0;
        std::memcpy(&number, bytes, size);
        tap.Note(FileCall::Report, fd, number, nullptr, 0);
    }
    if (!tap.IsOurs(fd))
        return real(fd, bytes, size);
    const std::lock_guard guard(tap.lock);
    tap.Note(FileCall::Write, fd, lseek64(fd, 0, SEEK_CUR), bytes, size);
    return Counted([&] { return real(fd, bytes, size); });
}

ssize_t pwrite(int fd, const void* bytes, size_t size, off_t offset) {
    return Write(fd, bytes, size, offset);
}

ssize_t pwrite64(int fd, const void* bytes, size_t size, off64_t offset) {
    return Write(fd, bytes, size, offset);
}

int ftruncate(int fd, off_t size) noexcept {
    return Truncate(fd, size);
}

int ftruncate64(int fd, off64_t size) noexcept {
    return Truncate(fd, size);
}

int fsync(int fd) {
    return Sync("fsync", fd);
}

int fdatasync(int fd) {
    return Sync("fdatasync", fd);
}

ssize_t read(int fd, void* bytes, size_t size) {
    static auto* const real = Real<ssize_t(int, void*, size_t)>("read");
    return Read(fd, [&] { return real(fd, bytes, size); });
}

ssize_t pread(int fd, void* bytes, size_t size, off_t offset) {
    return pread64(fd, bytes, size, offset);
}

ssize_t pread64(int fd, void* bytes, size_t size, off64_t offset) {
    static auto* const real = Real<ssize_t(int, void*, size_t, off64_t)>("pread64");
    return Read(fd, [&] { return real(fd, bytes, size, offset); });
}

int unlink(const char* path) noexcept {
    static auto* const real = Real<int(const char*)>("unlink");
    return CountedOn(path, FileCall::Unlink, path, [&] { return real(path); });
}

int unlinkat(int folder, const char* name, int flags) noexcept {
    static auto* const real = Real<int(int, const char*, int)>("unlinkat");
    const std::string path = PathIn(folder, name);
    return CountedOn(path.c_str(), (flags & AT_REMOVEDIR) != 0 ? FileCall::Other : FileCall::Unlink,
                     path, [&] { return real(folder, name, flags); });
}

int mkdir(const char* path, mode_t mode) noexcept {
    static auto* const real = Real<int(const char*, mode_t)>("mkdir");
    return CountedOn(path, FileCall::Other, path, [&] { return real(path, mode); });
}

int mkdirat(int folder, const char* name, mode_t mode) noexcept {
    static auto* const real = Real<int(int, const char*, mode_t)>("mkdirat");
    const std::string path = PathIn(folder, name);
    return CountedOn(path.c_str(), FileCall::Other, path, [&] { return real(folder, name, mode); });
}

int rename(const char* from, const char* to) noexcept {
    static auto* const real = Real<int(const char*, const char*)>("rename");
    return CountedOn(from, FileCall::Rename, std::string(from) + '\n' + to,
                     [&] { return real(from, to); });
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
              unsigned flags) noexcept {
    static auto* const real = Real<int(int, const char*, int, const char*, unsigned)>("renameat2");
    const std::string former = PathIn(fromFolder, from);
    return CountedOn(former.c_str(), FileCall::Rename, former + '\n' + PathIn(toFolder, to),
                     [&] { return real(fromFolder, from, toFolder, to, flags); });
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept {
    return renameat2(fromFolder, from, toFolder, to, 0);
}

} // extern "C"

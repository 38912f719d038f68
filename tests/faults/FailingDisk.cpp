#include "tests/faults/FailingDisk.h"

namespace {

struct {
    sqlite3_vfs* plain = nullptr;
    sqlite3_vfs failing{};
    DiskCall call{};
    int counted = 0;
    int callsToGo = 0;
    int code = SQLITE_OK;
    bool forGood = false;
    bool hasFailed = false;
} Disk;

/// The code with which a call fails, SQLITE_OK if it is to be made.
int Failure(DiskCall call) {
    if (call != Disk.call)
        return SQLITE_OK;
    ++Disk.counted;
    if (Disk.code == SQLITE_OK)
        return SQLITE_OK;
    if (Disk.callsToGo > 0 && --Disk.callsToGo > 0)
        return SQLITE_OK;
    if (Disk.hasFailed && !Disk.forGood)
        return SQLITE_OK;
    Disk.hasFailed = true;
    return Disk.code;
}

/// A file of the engine; the plain one stands behind it in memory.
struct File {
    sqlite3_file base;

    sqlite3_file* Plain() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

sqlite3_file* Plain(sqlite3_file* file) {
    return reinterpret_cast<File*>(file)->Plain();
}

int Close(sqlite3_file* file) {
    return Plain(file)->pMethods->xClose(Plain(file));
}

int Read(sqlite3_file* file, void* bytes, int size, sqlite3_int64 offset) {
    const int failure = Failure(DiskCall::Read);
    return failure ? failure : Plain(file)->pMethods->xRead(Plain(file), bytes, size, offset);
}

int Write(sqlite3_file* file, const void* bytes, int size, sqlite3_int64 offset) {
    const int failure = Failure(DiskCall::Write);
    return failure ? failure : Plain(file)->pMethods->xWrite(Plain(file), bytes, size, offset);
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    const int failure = Failure(DiskCall::Truncate);
    return failure ? failure : Plain(file)->pMethods->xTruncate(Plain(file), size);
}

int Sync(sqlite3_file* file, int flags) {
    const int failure = Failure(DiskCall::Sync);
    return failure ? failure : Plain(file)->pMethods->xSync(Plain(file), flags);
}

int FileSize(sqlite3_file* file, sqlite3_int64* size) {
    return Plain(file)->pMethods->xFileSize(Plain(file), size);
}

int Lock(sqlite3_file* file, int lock) {
    return Plain(file)->pMethods->xLock(Plain(file), lock);
}

int Unlock(sqlite3_file* file, int lock) {
    return Plain(file)->pMethods->xUnlock(Plain(file), lock);
}

int CheckReservedLock(sqlite3_file* file, int* result) {
    return Plain(file)->pMethods->xCheckReservedLock(Plain(file), result);
}

int FileControl(sqlite3_file* file, int what, void* argument) {
    return Plain(file)->pMethods->xFileControl(Plain(file), what, argument);
}

int SectorSize(sqlite3_file* file) {
    return Plain(file)->pMethods->xSectorSize(Plain(file));
}

int Characteristics(sqlite3_file* file) {
    return Plain(file)->pMethods->xDeviceCharacteristics(Plain(file));
}

int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    static const sqlite3_io_methods methods = [] {
        sqlite3_io_methods calls{};
        calls.iVersion = 1;
        calls.xClose = Close;
        calls.xRead = Read;
        calls.xWrite = Write;
        calls.xTruncate = Truncate;
        calls.xSync = Sync;
        calls.xFileSize = FileSize;
        calls.xLock = Lock;
        calls.xUnlock = Unlock;
        calls.xCheckReservedLock = CheckReservedLock;
        calls.xFileControl = FileControl;
        calls.xSectorSize = SectorSize;
        calls.xDeviceCharacteristics = Characteristics;
        return calls;
    }();
    file->pMethods = nullptr;
    int result = Failure(DiskCall::Open);
    if (result == SQLITE_OK)
        result = Disk.plain->xOpen(Disk.plain, name, Plain(file), flags, outFlags);
    if (result == SQLITE_OK)
        file->pMethods = &methods;
    return result;
}

int Delete(sqlite3_vfs*, const char* name, int syncFolder) {
    const int failure = Failure(DiskCall::Delete);
    return failure ? failure : Disk.plain->xDelete(Disk.plain, name, syncFolder);
}

} // namespace

FailingDisk::FailingDisk() {
    Disk.plain = sqlite3_vfs_find(nullptr);
    // All but its files it shares with the plain one, whose data it points to.
    Disk.failing = *Disk.plain;
    Disk.failing.zName = "failing";
    Disk.failing.szOsFile += static_cast<int>(sizeof(File));
    Disk.failing.xOpen = Open;
    Disk.failing.xDelete = Delete;
    sqlite3_vfs_register(&Disk.failing, 1);
    Mend();
}

FailingDisk::~FailingDisk() {
    sqlite3_vfs_unregister(&Disk.failing);
    sqlite3_vfs_register(Disk.plain, 1);
}

void FailingDisk::Count(DiskCall call) {
    Mend();
    Disk.call = call;
    Disk.counted = 0;
}

int FailingDisk::Counted() const {
    return Disk.counted;
}

void FailingDisk::FailAt(DiskCall call, int number, int code, bool forGood) {
    Disk.call = call;
    Disk.callsToGo = number;
    Disk.code = code;
    Disk.forGood = forGood;
    Disk.hasFailed = false;
}

void FailingDisk::Mend() {
    Disk.code = SQLITE_OK;
}

bool FailingDisk::HasFailed() const {
    return Disk.hasFailed;
}

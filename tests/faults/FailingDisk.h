#pragma once

#include <sqlite3.h>

/// A call of the database engine on its files that can be made to fail.
enum class DiskCall { Write, Sync, Truncate, Open, Delete, Read };

/// A disk beneath the database engine whose calls fail when they are told to. Files opened while it
/// lives are on it; the store must be closed before it goes. One at a time.
class FailingDisk {
public:
    FailingDisk();
    ~FailingDisk();
    FailingDisk(const FailingDisk&) = delete;
    FailingDisk& operator=(const FailingDisk&) = delete;

    /// From now on the calls of a kind are counted; they do not fail.
    void Count(DiskCall call);
    int Counted() const;

    /// From now on the `number`th call (1 the first) of a kind fails with a code of the engine;
    /// with `forGood` all calls of the kind that follow it, too.
    void FailAt(DiskCall call, int number, int code, bool forGood);
    /// The disk is well again.
    void Mend();
    /// True if a call has failed since FailAt.
    bool HasFailed() const;
};

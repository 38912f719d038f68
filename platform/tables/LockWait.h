#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <QElapsedTimer>

/// Waits while another copy of the program holds a lock on the file, some seconds at most, and
/// tells the user when the wait can be felt.
class LockWait {
public:
    LockWait() = default;
    LockWait(const LockWait&) = delete;
    LockWait& operator=(const LockWait&) = delete;

    /// Waits from now on in all operations of a connection, which this must outlive.
    void Watch(SQLite::Database& connection);

    /// Told when the operation that may have waited is over.
    void End();

private:
    static int TryAgain(void* self, int tries);

    QElapsedTimer waited_;
    bool isShown_ = false;
};

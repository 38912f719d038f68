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

    /// How long an operation of any connection waits at most. For tests that have no time.
    static void SetLongest(int milliseconds);
    static constexpr int UsualLongest = 5000; // milliseconds

    /// Told when the operation that may have waited is over.
    void End();

private:
    static int TryAgain(void* self, int tries);

    static int longest_; // milliseconds
    QElapsedTimer waited_;
    bool isShown_ = false;
};

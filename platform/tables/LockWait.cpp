#include "platform/tables/LockWait.h"

#include "platform/runtime/Progress.h"

#include <algorithm>
#include <sqlite3.h>
#include <utility>

namespace {

// All in milliseconds.
constexpr int Felt = 500;
constexpr int LongestPause = 50;

} // namespace

int LockWait::longest_ = UsualLongest;

void LockWait::SetLongest(int milliseconds) {
    longest_ = milliseconds;
}

void LockWait::Watch(SQLite::Database& connection) {
    sqlite3_busy_handler(connection.getHandle(), &LockWait::TryAgain, this);
}

int LockWait::TryAgain(void* self, int tries) {
    auto& wait = *static_cast<LockWait*>(self);
    // Once in an operation, however many locks it meets.
    if (!wait.waited_.isValid())
        wait.waited_.start();
    // First: a busy machine may let more than the rest of the time pass between two tries.
    if (wait.waited_.hasExpired(Felt) && !std::exchange(wait.isShown_, true))
        ReportWaiting(true);
    if (wait.waited_.hasExpired(longest_))
        return 0;
    sqlite3_sleep(std::min(tries + 1, LongestPause));
    return 1;
}

void LockWait::End() {
    waited_.invalidate();
    if (std::exchange(isShown_, false))
        ReportWaiting(false);
}

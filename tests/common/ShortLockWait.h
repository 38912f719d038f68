#pragma once

#include "platform/tables/LockWait.h"

#include <QtGlobal>

/// While it lives the program soon gives up waiting for another copy, though not before the user
/// has been told of it.
class ShortLockWait {
public:
    ShortLockWait() {
        constexpr int toldByThen = 500; // milliseconds
        LockWait::SetLongest(toldByThen);
    }
    ~ShortLockWait() { LockWait::SetLongest(LockWait::UsualLongest); }
    Q_DISABLE_COPY_MOVE(ShortLockWait)
};

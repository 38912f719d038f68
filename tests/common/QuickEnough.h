#pragma once

#include "tests/common/TestRun.h"

#include <QDeadlineTimer>
#include <gtest/gtest.h>

/// Repeats an attempt that shows something only if the machine is quick enough for it, until it
/// says that it has been. Fails the test if it never was.
template <class Attempt>
void UntilQuickEnough(const Attempt& attempt) {
    const QDeadlineTimer latest(Patience);
    bool wasQuick = false;
    while (!wasQuick && !latest.hasExpired())
        wasQuick = attempt();
    EXPECT_TRUE(wasQuick) << "no attempt was quick enough";
}

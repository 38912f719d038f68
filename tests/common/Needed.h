#pragma once

#include <QtGlobal>
#include <gtest/gtest.h>
#include <string>

/// For what a test needs and this machine lacks: the test is skipped, and says why; it fails where
/// the variable CI says that the machine is there to run all of them. To be followed by a return.
inline void SkipOrFail(const std::string& why) {
    if (qEnvironmentVariableIsSet("CI"))
        FAIL() << why;
    GTEST_SKIP() << why;
}

#pragma once

#include <QtGlobal>

/// How often a test tries what chance brings: a few times, or many with DUTYGRID_LONG=1.
inline int Rounds(int few, int many) {
    return qEnvironmentVariableIntValue("DUTYGRID_LONG") == 1 ? many : few;
}

#pragma once

#include <QtGlobal>

/// How often a test tries what chance brings: a few times, or many with DUTYGRID_LONG=1.
inline int Rounds(int few, int many) {
    return qEnvironmentVariableIntValue("DUTYGRID_LONG") == 1 ? many : few;
}

/// Where chance begins: the same in every run, or elsewhere with DUTYGRID_SEED.
inline quint32 Seed() {
    bool isGiven = false;
    const int seed = qEnvironmentVariableIntValue("DUTYGRID_SEED", &isGiven);
    return isGiven ? static_cast<quint32>(seed) : 20010307;
}

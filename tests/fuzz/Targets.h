#pragma once

#include "tests/common/Scripted.h"
#include "tests/common/TestRun.h"

#include <QByteArray>
#include <QTemporaryDir>
#include <span>

/// A reader of what comes from outside: a text that somebody typed, a file that somebody or
/// something has changed. It takes any bytes, and ends the process if what comes out is wrong.
struct FuzzTarget {
    /// The name of its folder in corpus/.
    const char* Name;
    void (*Read)(const QByteArray& bytes);
};

std::span<const FuzzTarget> FuzzTargets();
/// Null if there is none of that name.
const FuzzTarget* FuzzTargetNamed(const char* name);

/// A run of the program that the targets read in, with a folder of its own in memory.
class FuzzWorld {
public:
    FuzzWorld();

private:
    QTemporaryDir folder_;
    RecordingPrompts boxes_;
    TestRun run_;
};

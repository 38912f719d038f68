#pragma once

#include "tests/faults/disk/PowerCut.h"

#include <QStringList>
#include <functional>
#include <optional>

/// Work of a process of this executable on the files of a folder, done anew for each of its calls
/// to the disk. `arguments` are what the process is started with.

/// The calls of the work, none of which fails.
QList<RecordedCall> RecordOf(const QStringList& arguments, const QString& folder);

/// Kills the process before and after each call by which it changes a file, or after one of `step`
/// at most, until it lives to its end. `prepare` puts everything back before each start; `isDone`
/// tells after it whether what the process does has been done, and none where neither that nor its
/// opposite is the case. The number of kills.
int KillAtEachCall(const QString& folder, const QStringList& arguments, int step,
                   const std::function<void()>& prepare,
                   const std::function<std::optional<bool>()>& isDone);

/// Has each call fail, or one of `step` at most, once and from then on, for several reasons.
/// `judge` has the exit code each time. The number of faults.
int FailEachCall(const QString& folder, const QStringList& arguments, int step,
                 const std::function<void()>& prepare, const std::function<void(int told)>& judge);

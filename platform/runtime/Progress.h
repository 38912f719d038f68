#pragma once

#include <QString>
#include <functional>

/// What is told of long work: what is being done, and how much of all is done.
using ProgressWatch = std::function<void(const QString& what, int done, int all)>;

/// Sets who shows long work to the user; nobody at first, and again with an empty one.
void SetProgressWatch(ProgressWatch watch);

/// Tells of long work, now and then while it goes on.
void ReportProgress(const QString& what, int done, int all);

/// What is told of waits in which nothing can be done, for a copy of the program that writes: one
/// has become long, or it is over.
using WaitWatch = std::function<void(bool isWaiting)>;

/// Sets who shows such waits to the user; nobody at first, and again with an empty one.
void SetWaitWatch(WaitWatch watch);

void ReportWaiting(bool isWaiting);

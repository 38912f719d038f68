#pragma once

#include <QtGlobal>

/// Memory that runs out when it is told to: the allocations of this thread, whoever makes them,
/// the program, the toolkit or the database engine.
namespace FailingMemory {

/// From now on the `number`th allocation (1 the first) fails; with `forGood` all that follow it,
/// too.
void FailAt(qint64 number, bool forGood);
/// There is memory again. How many allocations there have been since FailAt.
qint64 Mend();
/// True if an allocation has failed since FailAt.
bool HasFailed();

} // namespace FailingMemory

#pragma once

#include "platform/runtime/FolderUse.h"
#include "store/CopySummary.h"

#include <QString>
#include <QStringList>
#include <memory>

/// Getting back what a copy holds: the database, the settings and the job lists, all or none. A
/// note beside the copies says which one is being put back: from then on the work is only ever
/// finished, by whichever program starts next.

/// The folders with copies, the newest first: those of days, and what stood there before a copy was
/// put back.
QStringList CopyNames();
/// When the copy was made, in words: "Thursday, 8 March 2001".
QString CopyTitle(const QString& name);
/// The database in a copy.
QString DatabaseOfCopy(const QString& name);
/// What a copy holds, without what was only half stored when it was made.
CopySummary SummaryOfCopy(const QString& name);
/// What the program's own file holds.
CopySummary SummaryNow();

/// Whether the putting back of a copy has begun and is not finished.
bool IsPuttingBack();

/// Puts a copy back. What stood there before is kept as a copy of its own. Raises 3000 for a copy
/// that is not sound, 70 while the program runs, 75 if a file cannot be written; the former files
/// are there then, unless it IsPuttingBack.
void PutCopyBack(const QString& name);

/// To be called before the data is used, and to be kept as long as it is: finishes what has been
/// begun. Raises 70 while a copy is being put back, 75 if that cannot be finished.
std::unique_ptr<FolderUse> UseData();

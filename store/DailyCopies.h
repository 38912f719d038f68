#pragma once

#include <QDate>
#include <QList>
#include <QString>

class TableStore;

/// Copies of the database, the settings and the job lists, a folder for each day in Backups beneath
/// the program folder. Before the first change of a day all of it is copied as it stands; when the
/// program has nothing else to do the copy is checked, and only then it takes the day's name.

/// Whether this run keeps copies; not until it is said.
void KeepDailyCopies(bool keep);

/// To be run before a change: copies what there is unless there is a copy of the day or the day's
/// try has been made. Raises nothing: the user is told, once in a run, and the work goes on.
void CopyBeforeChange(TableStore& tables);

/// Checks the copy last made, gives it its name, and removes the copies that are no longer kept.
/// Raises nothing.
void FinishDailyCopy();

/// The folder with the copies.
QString CopiesFolder();

/// The day of a copy by its folder's name; invalid for a folder that is none.
QDate DayOfCopy(const QString& name);

/// The copies that are kept of these days: the last 7, the newest of each of the last 4 weeks and
/// of each of the last 12 months that have any. Days after today, of a clock that was wrong, are
/// counted by themselves: they push nothing out.
QList<QDate> CopiesToKeep(const QList<QDate>& days, const QDate& today);

#pragma once

#include <QString>

/// Work on the files of a family that takes many calls to the disk: the first change of a day with
/// the copy before it, the putting back of that day's copy, and the opening of a former file.
inline const QString ChangeWork = QStringLiteral("change");
inline const QString PutBackWork = QStringLiteral("put-back");
inline const QString OpenWork = QStringLiteral("open");

/// The day of the work, and the name of its copy.
inline const QString WorkDay = QStringLiteral("2001-03-07");

/// Does such a work in a run of the program. Reports 1 to the parent process once the user takes it
/// for done. The exit code: 0 unless the user was told that something failed.
int DoDiskWork(const QString& folder, const QString& work);

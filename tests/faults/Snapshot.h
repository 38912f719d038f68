#pragma once

#include <QByteArray>
#include <QString>

/// All that a database file holds, as text: its tables in the order of their making, with their
/// declarations, and every row in order, long binary values by length and digest. Read by plain
/// statements, not through the program's own tables, after a check of the file's integrity whose
/// outcome is the first line. Two files with equal texts hold the same.
QByteArray SnapshotOf(const QString& databaseFile);

/// The first line of every snapshot of a sound file.
inline constexpr char SoundFile[] = "integrity: ok\n";

/// The first lines in which two snapshots differ, for messages.
QByteArray FirstDifference(const QByteArray& expected, const QByteArray& actual);

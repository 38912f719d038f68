#pragma once

#include <QString>
#include <QStringList>

/// The files that hold what families have stored, and their names in a copy.

/// The database with accounts, charts and past weeks.
QString DatabaseFile();
inline const QString CopiedDatabase = QStringLiteral("Charts.mdb");

/// The settings file.
QString SettingsFile();

/// The settings and the lists of job names, those that are there. Each has the same name in a copy.
QStringList SettingsAndJobLists();
inline constexpr qint64 LargestSmallFile = qint64{16} << 20; // bytes

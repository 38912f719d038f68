#pragma once

#include <QString>

/// Writes a file of format 1, in which each table is a table of the engine, with the
/// tables of a database file of today.
void WriteFormerFile(const QString& former, const QString& present);

/// Makes a database file of today one of format 2, which had no sums.
void TakeSumsOff(const QString& file);

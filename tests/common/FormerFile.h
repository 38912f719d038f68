#pragma once

#include <QString>

/// Writes a file of the former format, in which each table is a table of the engine, with the
/// tables of a database file of today.
void WriteFormerFile(const QString& former, const QString& present);

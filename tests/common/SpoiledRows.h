#pragma once

#include "platform/runtime/ProgramFolder.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <stdexcept>

/// Gives fields of a table's rows what no program of ours stores. `assignment`: what stands behind
/// the SET of an UPDATE; `where`: which rows are meant.
inline void Spoil(const QString& table, const QString& assignment,
                  const QString& where = QStringLiteral("true")) {
    SQLite::Database file(InProgramFolder(QStringLiteral("Database/Charts.mdb")).toStdString(),
                          SQLite::OPEN_READWRITE);
    SQLite::Statement entry(file, "SELECT Id, Shape FROM Catalogue WHERE Name = ?1");
    entry.bind(1, table.toStdString());
    if (!entry.executeStep())
        throw std::logic_error("no such table");
    file.exec(QStringLiteral("UPDATE Rows%1 SET %2 WHERE Key >> 32 = %3 AND %4")
                  .arg(entry.getColumn(1).getInt())
                  .arg(assignment)
                  .arg(entry.getColumn(0).getInt64())
                  .arg(where)
                  .toStdString());
}

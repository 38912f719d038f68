#pragma once

#include "platform/runtime/RuntimeError.h"
#include "platform/tables/Statements.h"

#include <QString>
#include <functional>
#include <memory>

/// Format 2: a catalogue of tables, and the rows of all tables of one shape in one table of the
/// engine. Format 1, a table of the engine for each table, is carried over when it is opened.
inline constexpr int FormatVersion = 2;
inline constexpr int FormerFormatVersion = 1;
/// Tells our files from those of other programs: "Duty".
inline constexpr int ApplicationId = 0x44757479;

/// Connects to a file; `flags` are those of SQLite::Database. Raises 3000.
std::unique_ptr<SQLite::Database> Connect(const QString& path, int flags);

/// Refuses a file by its first bytes, before the engine has read it: one of another program, one
/// that a newer version has made. Raises 3000 and has written nothing.
void RefuseByHeader(SQLite::Database& database, const QString& path);

/// Refuses a file by what stands in it; nothing is written. The format that it has, 0 for an empty
/// file. Raises 3000.
int FormatOf(Statements& statements);

/// Settings of a connection that hold for every file.
void Configure(SQLite::Database& database);

/// Copies all pages of a database into another. Raises an exception of the engine.
void CopyPages(SQLite::Database& to, SQLite::Database& from);

/// Told now and then how many of how many tables have been carried over.
using CarryOverWatch = std::function<void(int done, int all)>;

/// Carries a file of the former format over. A copy of the file is put beside it first; a failure
/// or a kill at any moment leaves the file as it was or carried over, never between. Raises 3000.
void CarryOver(SQLite::Database& database, const QString& path, const CarryOverWatch& watch);

RuntimeError UnknownFieldType(const QString& field);

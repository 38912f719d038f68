#pragma once

#include "platform/runtime/RuntimeError.h"
#include "platform/tables/Statements.h"

#include <QString>
#include <functional>
#include <memory>

/// Format 3: a catalogue of tables, the rows of all tables of one shape in one table of the
/// engine, and sums of all of them. Format 2, without sums, and format 1, a table of the engine for
/// each table, are carried over when they are opened.
inline constexpr int FormatVersion = 3;
inline constexpr int FormatWithoutSums = 2;
inline constexpr int FirstFormatVersion = 1;
/// Tells our files from those of other programs: "Duty".
inline constexpr int ApplicationId = 0x44757479;

/// The fault of an operation on a database as a run-time error with the engine's words; where it
/// has to do with the disk or the file is damaged, with advice on the file.
RuntimeError EngineError(const SQLite::Exception& fault, const SQLite::Database& database);

/// Connects to a file; `flags` are those of SQLite::Database. Raises 3000, also for a link to a
/// file where it may be written.
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

/// Carries a file of a former format over. A copy of the file is put beside it first; a failure
/// or a kill at any moment leaves the file as it was or carried over, never between. Raises 3000.
void CarryOver(SQLite::Database& database, const QString& path, const CarryOverWatch& watch);

/// Raises what the engine says of a damaged file.
[[noreturn]] void ReportDamage();

RuntimeError UnknownFieldType(const QString& field);

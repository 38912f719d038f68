#pragma once

#include "platform/tables/Statements.h"

#include <string>
#include <unordered_map>

/// Damage to a file is noticed by sums that are kept in it: one over the cells of each table's
/// rows, and one over the file's own records (names, shapes, those sums). They are sums modulo
/// 2^64 of what each cell adds by itself, so that a write changes them by the cells it takes off
/// and puts on, and nothing has to be read again.
using Sum = quint64;

/// What a row adds by being there, and what each of its cells adds: its value with its type, at its
/// field's place in the row of that key; nothing if it is Null. Tables that hold the same rows
/// under the same numbers have the same sum.
Sum SumOfRow(qint64 key);
Sum SumOf(qint64 key, int place, const FieldDefinition& field, const Cell& cell);
/// The same of a column of a statement's current row, with the type that it has in the file.
Sum SumOf(qint64 key, int place, int type, const SQLite::Column& value);
inline Sum SumOf(qint64 key, int place, const SQLite::Column& value) {
    return SumOf(key, place, value.getType(), value);
}

/// Of the rows with keys from `first` to `last` in the engine's table of a shape.
Sum SumOfRows(Statements& statements, qint64 shape, qint64 first, qint64 last);

/// Of all records of the file's own, as they stand in it.
Sum SumOfFile(Statements& statements);
/// Where that is kept: the sum in digits, or nothing.
std::string KeptSumOfFile(Statements& statements);

/// Puts all sums of a file into it, computed from what stands there.
void SumUp(Statements& statements);

/// What the writes of a transaction have changed in the sums. It reaches the file at once, before
/// the commit.
class SumChanges {
public:
    explicit SumChanges(Statements& statements) : statements_(statements) {}

    /// Rows of a table have changed.
    void ChangeRows(qint64 table, Sum change) { rows_[table] += change; }
    /// The sum of a table's rows as they are now, according to the file and what has changed.
    Sum KeptSumOfRows(qint64 table) const;
    /// The entry of a table has gone; its rows have no sum any more.
    void ForgetRows(qint64 table) { rows_.erase(table); }

    /// To be called around what changes the catalogue's entry of a table: before and after it.
    void TakeEntryOff(qint64 table);
    void PutEntryOn(qint64 table);
    /// A shape has been added.
    void PutShapeOn(qint64 shape, const std::string& fields);
    /// A table of this new identity has been added.
    void CountIdentity(qint64 table);

    void Write();
    /// After a rollback.
    void Forget();

private:
    Statements& statements_;
    std::unordered_map<qint64, Sum> rows_;
    Sum file_ = 0;
};

#include "platform/tables/RowSums.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <sqlite3.h>
#include <string_view>
#include <utility>
#include <vector>

// Compiled in: the library need not be there where the program runs.
#define XXH_INLINE_ALL
#include <xxhash.h>

namespace {

/// The place of a row itself.
constexpr int RowPlace = -1;

/// The places of the file's own records, by which their cells are told apart.
constexpr int EntryPlace = 100;
constexpr int ShapePlace = 200;
constexpr int InformationPlace = 300;
constexpr int LastIdentityPlace = 400;

/// What stands in a hash for the type of a value. These are part of the file's format.
enum class ValueType : quint32 { Row, Number, Fraction, Text, Bytes };

/// Numbers enter the hash byte by byte, the lowest first, whatever the machine.
template <std::size_t Count>
void PutNumber(std::array<char, Count>& bytes, std::size_t at, quint64 number, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i)
        bytes[at + i] = static_cast<char>(number >> (8 * i));
}

Sum HashOf(qint64 key, int place, ValueType type, std::string_view value) {
    // The cell's place is mixed by itself first: added to the seed as it is, it would make cells
    // of other places and values alike.
    std::array<char, 12> where{};
    PutNumber(where, 0, static_cast<quint64>(key) & 0xffffffff, 4);
    PutNumber(where, 4, static_cast<quint64>(place), 4);
    PutNumber(where, 8, static_cast<quint64>(type), 4);
    return XXH3_64bits_withSeed(value.data(), value.size(),
                                XXH3_64bits(where.data(), where.size()));
}

Sum HashOf(qint64 key, int place, qint64 number) {
    std::array<char, 8> bytes{};
    PutNumber(bytes, 0, static_cast<quint64>(number), bytes.size());
    return HashOf(key, place, ValueType::Number, {bytes.data(), bytes.size()});
}

Sum HashOf(qint64 key, int place, double number) {
    quint64 bits = 0;
    static_assert(sizeof bits == sizeof number);
    std::memcpy(&bits, &number, sizeof bits);
    std::array<char, 8> bytes{};
    PutNumber(bytes, 0, bits, bytes.size());
    return HashOf(key, place, ValueType::Fraction, {bytes.data(), bytes.size()});
}

/// Of a record whose first column numbers it: its other columns.
Sum SumOfRecord(const Query& record, int place) {
    Sum sum = HashOf(record.Number(0), place, ValueType::Row, {});
    for (int column = 1; column < record.ColumnCount(); ++column)
        sum += SumOf(record.Number(0), place + column, record.Column(column));
    return sum;
}

Sum SumOfRecords(Statements& statements, const std::string& sql, int place) {
    Sum sum = 0;
    for (Query records(statements, sql); records.Step();)
        sum += SumOfRecord(records, place);
    return sum;
}

const std::string EntriesSql = "SELECT Id, Name, FoldedName, Shape, NextRow, Sum FROM Catalogue";

Sum SumOfEntry(Statements& statements, qint64 table) {
    static const std::string sql = EntriesSql + " WHERE Id = ?1";
    Query entry(statements, sql);
    entry.Bind(1, table);
    return entry.Step() ? SumOfRecord(entry, EntryPlace) : 0;
}

void KeepSumOfFile(Statements& statements, Sum sum) {
    const std::string digits = std::to_string(sum);
    Query keep(statements, "INSERT OR REPLACE INTO Information VALUES('Sum', ?1)");
    keep.Bind(1, digits);
    keep.Run();
}

void KeepSumOfRows(Statements& statements, qint64 table, Sum sum) {
    Query keep(statements, "UPDATE Catalogue SET Sum = ?1 WHERE Id = ?2");
    keep.Bind(1, static_cast<qint64>(sum));
    keep.Bind(2, table);
    keep.Run();
}

} // namespace

Sum SumOfRow(qint64 key) {
    return HashOf(key, RowPlace, ValueType::Row, {});
}

Sum SumOf(qint64 key, int place, const FieldDefinition& field, const Cell& cell) {
    if (const std::string* bytes = std::get_if<std::string>(&cell))
        return HashOf(key, place,
                      field.Type == FieldType::LongBinary ? ValueType::Bytes : ValueType::Text,
                      *bytes);
    if (const qint64* number = std::get_if<qint64>(&cell))
        return HashOf(key, place, *number);
    if (const double* number = std::get_if<double>(&cell))
        return HashOf(key, place, *number);
    return 0;
}

Sum SumOf(qint64 key, int place, int type, const SQLite::Column& value) {
    switch (type) {
    case SQLITE_INTEGER:
        return HashOf(key, place, qint64{value.getInt64()});
    case SQLITE_FLOAT:
        return HashOf(key, place, value.getDouble());
    case SQLITE_NULL:
        return 0;
    default: {
        const auto size = static_cast<std::size_t>(value.getBytes());
        return HashOf(key, place, type == SQLITE_BLOB ? ValueType::Bytes : ValueType::Text,
                      {static_cast<const char*>(value.getBlob()), size});
    }
    }
}

Sum SumOfRows(Statements& statements, qint64 shape, qint64 first, qint64 last) {
    Query rows(statements,
               "SELECT * FROM Rows" + std::to_string(shape) + " WHERE Key BETWEEN ?1 AND ?2");
    rows.Bind(1, first);
    rows.Bind(2, last);
    Sum sum = 0;
    while (rows.Step()) {
        const qint64 key = rows.Number(0);
        sum += SumOfRow(key);
        for (int column = 1; column < rows.ColumnCount(); ++column)
            sum += SumOf(key, column - 1, rows.Column(column));
    }
    return sum;
}

Sum SumOfFile(Statements& statements) {
    Sum sum = SumOfRecords(statements, EntriesSql, EntryPlace) +
              SumOfRecords(statements, "SELECT Id, Fields FROM Shapes", ShapePlace) +
              SumOfRecords(statements, "SELECT 0, Name, Value FROM Information WHERE Name <> 'Sum'",
                           InformationPlace);
    Query last(statements, "SELECT seq FROM sqlite_sequence WHERE name = 'Catalogue'");
    sum += last.Step() ? SumOf(0, LastIdentityPlace, last.Column(0))
                       : HashOf(0, LastIdentityPlace, qint64{0});
    return sum;
}

std::string KeptSumOfFile(Statements& statements) {
    Query kept(statements, "SELECT Value FROM Information WHERE Name = 'Sum'");
    return kept.Step() ? std::string(kept.Bytes(0)) : std::string();
}

void SumUp(Statements& statements) {
    std::vector<std::pair<qint64, qint64>> tables;
    for (Query entries(statements, "SELECT Id, Shape FROM Catalogue"); entries.Step();)
        tables.emplace_back(entries.Number(0), entries.Number(1));
    for (const auto& [table, shape] : tables)
        KeepSumOfRows(statements, table,
                      SumOfRows(statements, shape, table << 32, table << 32 | 0xffffffff));
    KeepSumOfFile(statements, SumOfFile(statements));
}

void SumChanges::TakeEntryOff(qint64 table) {
    file_ -= SumOfEntry(statements_, table);
}

void SumChanges::PutEntryOn(qint64 table) {
    file_ += SumOfEntry(statements_, table);
}

void SumChanges::PutShapeOn(qint64 shape, const std::string& fields) {
    file_ += HashOf(shape, ShapePlace, ValueType::Row, {}) +
             HashOf(shape, ShapePlace + 1, ValueType::Text, fields);
}

void SumChanges::CountIdentity(qint64 table) {
    // They rise by one.
    file_ += HashOf(0, LastIdentityPlace, table) - HashOf(0, LastIdentityPlace, table - 1);
}

Sum SumChanges::KeptSumOfRows(qint64 table) const {
    const auto change = rows_.find(table);
    const Sum changed = change == rows_.end() ? 0 : change->second;
    Query kept(statements_, "SELECT Sum FROM Catalogue WHERE Id = ?1");
    kept.Bind(1, table);
    return kept.Step() ? changed + static_cast<Sum>(kept.Number(0)) : changed;
}

void SumChanges::Write() {
    for (const auto& [table, change] : rows_) {
        if (change == 0)
            continue;
        TakeEntryOff(table);
        KeepSumOfRows(statements_, table, KeptSumOfRows(table));
        PutEntryOn(table);
    }
    rows_.clear();
    if (const Sum change = std::exchange(file_, 0); change != 0)
        KeepSumOfFile(statements_,
                      std::strtoull(KeptSumOfFile(statements_).c_str(), nullptr, 10) + change);
}

void SumChanges::Forget() {
    rows_.clear();
    file_ = 0;
}

#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>

class TableEngine;

/// One look through the rows of one table after another, from the first to the last, that reads a
/// few fields only: far quicker than cursors where thousands of tables are looked through. Rows
/// stand in the order of their making. While it stands on a row nothing is to be written.
class TableWalk {
public:
    /// On no table and behind its rows.
    TableWalk(std::shared_ptr<TableEngine> engine, const QStringList& fields);
    ~TableWalk();
    TableWalk(TableWalk&&) noexcept;
    TableWalk& operator=(TableWalk&&) noexcept;

    /// Goes to the first row of a table. Raises 3078 if there is none of that name, 9 for an
    /// unknown field.
    void Open(const QString& tableName);
    /// Lets go of the row it stands on, and of the file.
    void Leave();

    /// True behind the last row.
    bool Eof() const;
    /// Raises 3021 behind the last row.
    void MoveNext();
    /// The value of a field, named by its place among those asked for, as a cursor would give it.
    /// Raises 3021 behind the last row, 13 for what this program cannot have stored.
    QVariant Value(int place) const;

private:
    struct Run;

    void RefuseEnd() const;

    std::unique_ptr<Run> run_;
};

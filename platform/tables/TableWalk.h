#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>

class TableEngine;

/// One look through the rows of a table, from the first to the last, that reads a few fields only:
/// far quicker than a cursor where thousands of tables are looked through. Rows stand in the order
/// of their making. While it lives nothing is to be written and no table dropped.
class TableWalk {
public:
    /// On the first row. Raises 3078 if there is no table of that name, 9 for an unknown field.
    TableWalk(std::shared_ptr<TableEngine> engine, const QString& tableName,
              const QStringList& fields);
    ~TableWalk();
    TableWalk(const TableWalk&) = delete;
    TableWalk& operator=(const TableWalk&) = delete;

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

#pragma once

#include "platform/tables/Recordset.h"
#include "platform/tables/TableWalk.h"

#include <QList>
#include <QStringList>
#include <functional>
#include <memory>

/// The types of a field; the numbers are those of the table format.
enum class FieldType {
    Boolean = 1,     ///< true or false, stored as -1 and 0; never Null
    Long = 4,        ///< 32-bit whole number
    Date = 8,        ///< a day without time, stored as YYYY-MM-DD
    Text = 10,       ///< up to `Size` characters
    LongBinary = 11, ///< bytes, read and written in pieces
    Memo = 12        ///< text of any length
};

struct FieldDefinition {
    QString Name;
    FieldType Type = FieldType::Memo;
    /// Characters a Text field holds; nothing to other types.
    int Size = 255;
};

/// Tables of typed, ordered fields in one SQLite file.
///
/// The first write begins an immediate transaction and Commit ends it: whatever is written
/// between two commits becomes durable as a whole or not at all. Faults of the engine are raised
/// as RuntimeError 3000 with the engine's own words.
///
/// Table names ignore case by full Unicode rules and may hold any character; none is reserved.
class TableStore {
public:
    /// Told, while a file of format 1 is carried over, how many of its tables are done.
    using CarryOverWatch = std::function<void(int done, int all)>;

    /// Opens an existing file. One of a former format is carried over, and a copy of it is left
    /// beside it. Raises 3000 for a file that is no database, for a database of another program
    /// and for one that a newer version of this program made; none of these is written to.
    static std::unique_ptr<TableStore> OpenDatabase(const QString& path,
                                                    const CarryOverWatch& watch = {});

    /// Opens an existing file of the present format for reading only: it may lie where nothing can
    /// be written. Raises 3000.
    static std::unique_ptr<TableStore> OpenToRead(const QString& path);

    /// Whether opening the file would carry it over. False if it cannot be opened at all, or only
    /// for writing, as where a kill has left something half done.
    static bool IsOfFormerFormat(const QString& path);

    /// Makes a new database without tables. `locale` is kept with the database for the record.
    /// Raises 3000 if the folder is missing or cannot be written.
    static std::unique_ptr<TableStore> CreateDatabase(const QString& path, const QString& locale);

    /// Rolls back what has not been committed. Recordsets still open become unusable.
    ~TableStore();
    TableStore(const TableStore&) = delete;
    TableStore& operator=(const TableStore&) = delete;

    /// Number of tables. Sees what another process has made or dropped since.
    int TableCount();

    /// Name of the table at `index`, 0 to TableCount() - 1. Tables stand in the order of their
    /// names, whose case does not count; dropping a table moves those behind it one down. Raises 9
    /// outside.
    QString TableName(int index) const;

    /// The names of all tables, in that order. Sees what another process has made or dropped since.
    QStringList TableNames();

    /// True if a table of that name exists in any case.
    bool HasTable(const QString& name);

    /// Makes a table. Raises 3000 if one of that name exists.
    void CreateTable(const QString& name, const QList<FieldDefinition>& fields);

    /// Drops a table. Raises 3078 if there is none of that name.
    void DeleteTable(const QString& name);

    /// A cursor on the table, at its first row. Raises 3078 if there is none of that name.
    Recordset OpenRecordset(const QString& name);

    /// Adds all rows of one table to another, in their order: the fields named as they are, the
    /// others as a new row has them. Raises 3078 for a missing table.
    void CopyRows(const QString& from, const QString& to, const QStringList& fields);

    /// Gives a field the same value in all rows of a table, as SetValue of a cursor would. Raises
    /// 3078 if there is none of that name, 9 for an unknown field, and what SetValue raises.
    void SetField(const QString& name, const QString& field, const QVariant& value);

    /// A look through a few fields of one table after another.
    TableWalk WalkThrough(const QStringList& fields);
    /// The same, on the first row of a table. Raises 3078 if there is none of that name, 9 for an
    /// unknown field.
    TableWalk WalkThrough(const QString& name, const QStringList& fields);

    /// While it lives, many reads in a row see one state of the file and are quick: they need not
    /// look each time for what others have written, who have to wait with their writes. A write or
    /// a commit ends the effect.
    class Reading {
    public:
        explicit Reading(TableStore& store);
        ~Reading();
        Reading(const Reading&) = delete;
        Reading& operator=(const Reading&) = delete;

    private:
        std::shared_ptr<TableEngine> engine_;
    };

    /// `before` is run whenever something is about to be written that begins a transaction, and
    /// may copy the file.
    void SetBeforeWrite(std::function<void()> before);
    /// Copies the file as it was last committed into a file that is there already, which is not
    /// synchronised; no link leads to it. Raises 3000.
    void CopyTo(const QString& path);

    /// Makes what has been written since the last commit durable. If the engine refuses, all of
    /// it is rolled back and 3000 raised.
    void Commit();

private:
    explicit TableStore(std::shared_ptr<TableEngine> engine);
    std::shared_ptr<TableEngine> engine_;
};

#pragma once

#include "platform/runtime/RuntimeError.h"
#include "platform/tables/RowSums.h"
#include "platform/tables/Statements.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

/// The fields of a kind of tables, and what it takes to read and write the rows of those tables,
/// which all stand together in one table of the engine, each under a key: the identity of its own
/// table in the high 32 bits, its number within that in the low ones.
struct TableShape {
    /// The place of a field, named in any case. Raises 9 for an unknown one.
    int PositionOf(const QString& field) const;

    std::vector<FieldDefinition> Fields;
    /// The engine's table with the rows.
    std::string Rows;
    /// Reads rows with keys from ?1 to ?2, at most ?3 of them.
    std::string SelectSql;
    /// Adds a row with the key ?1; the fields from ?2 on.
    std::string InsertSql;
};

/// A table of the open database, shared by all cursors on it. There may be thousands of them:
/// they are kept small.
struct Table {
    qint64 Id = 0;
    QString Name;
    qint64 ShapeId = 0;
    /// Null until the table is first opened.
    std::shared_ptr<const TableShape> Shape;
    /// Rises whenever rows of the table may have changed: by a write through this connection, by
    /// the writes of others, by a rollback.
    quint64 Changes = 0;
    /// No new row gets a key below this one, for cursors may still hold those that have been used.
    qint64 NextKey = 0;
    /// NextKey has been compared with the file, which others may have changed before that.
    bool IsNextKeySure = false;
    /// The table is no more; cursors on it are of no use.
    bool Dropped = false;

    qint64 FirstKey() const { return Id << 32; }
    qint64 LastKey() const { return FirstKey() | 0xffffffff; }
};

/// The names of the tables in a file, and their shapes.
///
/// Nothing is read before it is asked for: a table is looked up by its name, the whole list is
/// read when it is first wanted.
class Catalogue {
public:
    explicit Catalogue(Statements& statements) : statements_(statements), sums_(statements) {}

    /// Makes the engine's tables in an empty file; `locale` is kept for the record.
    void Make(const std::string& locale);

    /// False for an empty file, which gets its format with the first write.
    bool IsMade() const { return isMade_; }

    /// The table of that name in any case, null if there is none.
    std::shared_ptr<Table> Find(const QString& name);
    /// The same with its shape. Raises 3078 if there is none.
    std::shared_ptr<Table> Open(const QString& name);
    /// All tables, by name without regard to case.
    const std::vector<std::shared_ptr<Table>>& Tables();

    /// The declarations of the engine's tables.
    static const std::string InformationSql;
    static const std::string ShapesSql;
    static const std::string CatalogueSql;
    static std::string RowsSql(qint64 shape, const std::string& declaration);

    /// The declaration of the fields, by which shapes are told from each other. Raises 3000 for a
    /// name that the engine cannot hold.
    static std::string Declaration(const QList<FieldDefinition>& fields);
    /// Raises 3000 if a table of that name exists, and for a name that the engine cannot hold.
    void RefuseTaken(const QString& name);
    void Add(const QString& name, const std::string& declaration);
    void Remove(Table& table);

    /// The key of the table's next row.
    qint64 NextKey(Table& table);
    /// To be called when the row has been deleted: its key is not used again.
    void RetireKey(Table& table, qint64 key);

    /// What a write to rows changes is told here, and written by this before the commit.
    SumChanges& Sums() { return sums_; }

    /// Forgets what others, or a rollback, may have made untrue. Tables that cursors still hold
    /// are looked up again; those that have gone are marked so.
    void Recheck();

private:
    static std::string Folded(const QString& name);
    std::shared_ptr<Table> Take(const Query& query, const std::string& folded);
    std::shared_ptr<const TableShape> ShapeOf(qint64 id);
    qint64 ShapeWith(const std::string& declaration);

    Statements& statements_;
    SumChanges sums_;
    bool isMade_ = false;
    /// By folded name, those met so far.
    std::map<std::string, std::shared_ptr<Table>> tables_;
    /// tables_ holds all there are.
    bool isWhole_ = false;
    /// All of them in order, or empty.
    std::vector<std::shared_ptr<Table>> inOrder_;
    std::map<qint64, std::shared_ptr<const TableShape>> shapes_;
};

RuntimeError NoSuchTable(const QString& name);

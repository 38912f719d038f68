#pragma once

#include "platform/runtime/RuntimeError.h"
#include "platform/tables/FieldValues.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QHash>
#include <list>
#include <memory>
#include <string>
#include <vector>

/// What it takes to read and write the rows of a table.
struct TableShape {
    std::vector<FieldDefinition> Fields;
    /// Reads rows from an identity (?1) on, at most ?2 of them.
    std::string SelectSql;
    /// Reads the first row; quicker to prepare, and often all that is wanted of a table.
    std::string FirstRowSql;
    /// Adds a row with the identity ?1, Null for the one behind the last; the fields from ?2 on.
    std::string InsertSql;
    /// Finds the identity of the last row.
    std::string LastRowSql;
};

/// A table of the open database, shared by all cursors on it. There may be thousands of them, and
/// the start waits until all are made: they are kept small.
struct Table {
    QString Name;
    /// Tells the statement that made the table from others, as the engine keeps it.
    std::size_t Declaration = 0;
    /// Null until the table is first opened.
    std::unique_ptr<const TableShape> Shape;
    /// Counts the writes to the table through this connection.
    quint64 Changes = 0;
    /// No new row gets an identity below this one. Without it the engine would give the identity
    /// of the last row, once deleted, to the next new one, and cursors would mistake the two.
    qint64 NextRow = 1;
    /// Made since the last commit.
    bool Uncommitted = false;
    /// The table is no more; cursors on it are of no use.
    bool Dropped = false;
};

/// One connection to a database file: statements, the transaction under way and the catalogue.
/// Faults of the engine leave the operations of this class as SQLite::Exception; Guard turns
/// them into run-time errors where an operation of the store or of a cursor ends.
class TableEngine {
public:
    /// Opens an existing file. Raises 3000 for one that is not ours; it is left as it is.
    static std::shared_ptr<TableEngine> Open(const QString& path);
    /// Makes a file that keeps `locale` for the record. Raises 3000 if there is one already.
    static std::shared_ptr<TableEngine> Make(const QString& path, const QString& locale);

    /// Rolls back what is under way and closes the file. Any use afterwards raises 91.
    void Close();

    /// Runs one operation. Raises 91 on a closed engine, 3000 with the engine's words for a fault.
    template <class Operation>
    auto Guard(Operation&& operation) {
        if (!database_)
            throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
        try {
            return operation();
        } catch (const SQLite::Exception& fault) {
            const QString words = QString::fromUtf8(fault.what());
            AfterFault();
            throw RuntimeError(ErrorNumber::EngineFault, words);
        }
    }

    /// The statement of this text, prepared once and kept while it is in use now and then.
    std::shared_ptr<SQLite::Statement> Prepared(const std::string& sql);

    /// A statement for one use that its owner may leave running.
    std::unique_ptr<SQLite::Statement> Prepare(const std::string& sql) {
        return std::make_unique<SQLite::Statement>(*database_, sql);
    }

    /// Sees whether another connection has written since, and reads the catalogue again if need
    /// be.
    void NoticeOthers();

    /// Tables in the order of their making, as last read.
    const std::vector<std::shared_ptr<Table>>& Tables() const { return tables_; }

    /// The table of that name in any case, with its fields. Raises 3078 if there is none.
    std::shared_ptr<Table> Find(const QString& name);

    std::shared_ptr<Table> Known(const QString& name) const;

    void Create(const QString& name, const QList<FieldDefinition>& fields);
    void Drop(const QString& name);

    /// Begins a transaction if none is under way.
    void BeginWrite();
    void Commit();

    /// Keeps one view of the file from the first call to the last end, or to the first write or
    /// commit: many reads in a row need not look for the writes of others each time.
    void BeginReading();
    void EndReading();

    /// Changes whenever rows of the table may have changed.
    quint64 StampOf(const Table& table) const { return table.Changes + epoch_; }

private:
    TableEngine(const QString& path, int flags);
    void Configure();
    void RefuseByHeader() const;
    void RefuseByContent();
    void RefuseCutOff();
    void Execute(const std::string& sql) { database_->exec(sql); }
    void ReadCatalogue();
    std::unique_ptr<const TableShape> ShapeOf(const QString& name);
    void StopReading();
    void AfterFault();
    void AfterRollback();
    int Pragma(const std::string& name);

    std::unique_ptr<SQLite::Database> database_;
    /// Most recently used first.
    std::list<std::shared_ptr<SQLite::Statement>> statements_;
    std::vector<std::shared_ptr<Table>> tables_;
    /// By NameKey.
    QHash<QString, std::shared_ptr<Table>> tablesByName_;
    bool catalogueIsRead_ = false;
    /// False for an empty file, which gets its format number with the first commit.
    bool formatIsMarked_ = false;
    bool inTransaction_ = false;
    bool isReading_ = false;
    int readers_ = 0;
    /// The catalogue has been compared with the file since the transaction began.
    bool isUpToDate_ = false;
    int schemaVersion_ = 0;
    int dataVersion_ = 0;
    /// Counts what may have changed rows of any table: writes of others and rollbacks.
    quint64 epoch_ = 0;
};

/// What a column of a statement's current row holds.
Cell CellOf(const SQLite::Column& value);

/// One use of a statement. The end of the use resets the statement: one that is left running
/// would hold a lock on the file and keep tables from being dropped.
class Query {
public:
    Query(TableEngine& engine, const std::string& sql) : statement_(engine.Prepared(sql)) {}
    ~Query();
    Query(const Query&) = delete;
    Query& operator=(const Query&) = delete;

    void Bind(int parameter, qint64 number) { statement_->bind(parameter, int64_t{number}); }
    void BindNull(int parameter) { statement_->bind(parameter); }
    /// A cell with bytes must outlive the use.
    void Bind(int parameter, const FieldDefinition& field, const Cell& cell);

    /// True while there is a row.
    bool Step() { return statement_->executeStep(); }
    /// Runs the statement; the number of rows it has written.
    int Run() { return statement_->exec(); }

    qint64 Number(int column) const { return statement_->getColumn(column).getInt64(); }
    Cell Read(int column) const { return CellOf(statement_->getColumn(column)); }
    /// Valid until the next step.
    std::string_view Bytes(int column) const;

private:
    std::shared_ptr<SQLite::Statement> statement_;
};

RuntimeError NoSuchTable(const QString& name);

/// A name as it stands in a statement. Raises 3000 for a name that the engine cannot hold.
std::string Quoted(const QString& name);

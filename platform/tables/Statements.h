#pragma once

#include "platform/tables/FieldValues.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

/// The statements of one connection, each prepared once. There are few of them: they name the
/// tables of shapes, of which a database has two or three, never a table.
class Statements {
public:
    explicit Statements(SQLite::Database& database) : database_(database) {}

    /// The statement of this text; one of its own while another use of it runs.
    std::shared_ptr<SQLite::Statement> Prepared(const std::string& sql);

    void Execute(const std::string& sql) { database_.exec(sql); }
    SQLite::Database& Connection() { return database_; }

private:
    SQLite::Database& database_;
    std::unordered_map<std::string, std::shared_ptr<SQLite::Statement>> kept_;
};

/// One use of a statement. The end of the use resets the statement: one that is left running
/// would hold a lock on the file.
class Query {
public:
    Query(Statements& statements, const std::string& sql) : statement_(statements.Prepared(sql)) {}
    ~Query();
    Query(const Query&) = delete;
    Query& operator=(const Query&) = delete;

    void Bind(int parameter, qint64 number) { statement_->bind(parameter, int64_t{number}); }
    /// A text and a cell must outlive the use.
    void Bind(int parameter, const std::string& text) { statement_->bindNoCopy(parameter, text); }
    void Bind(int parameter, const FieldDefinition& field, const Cell& cell);

    /// True while there is a row.
    bool Step() { return statement_->executeStep(); }
    /// Runs the statement; the number of rows it has written.
    int Run() { return statement_->exec(); }

    qint64 Number(int column) const { return statement_->getColumn(column).getInt64(); }
    Cell Read(int column) const;
    SQLite::Column Column(int column) const { return statement_->getColumn(column); }
    int ColumnCount() const { return statement_->getColumnCount(); }
    /// Valid until the next step.
    std::string_view Bytes(int column) const;

private:
    std::shared_ptr<SQLite::Statement> statement_;
};

/// What a column of a statement's current row holds.
Cell CellOf(const SQLite::Column& value);

/// A number that the engine keeps about the file.
int Pragma(Statements& statements, const std::string& name);

/// A name as it stands in a statement. Raises 3000 for a name that the engine cannot hold.
std::string Quoted(const QString& name);

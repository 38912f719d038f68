#include "platform/tables/Statements.h"

#include "platform/runtime/RuntimeError.h"

#include <sqlite3.h>

std::shared_ptr<SQLite::Statement> Statements::Prepared(const std::string& sql) {
    std::shared_ptr<SQLite::Statement>& kept = kept_[sql];
    if (!kept)
        kept = std::make_shared<SQLite::Statement>(database_, sql);
    if (kept.use_count() > 1)
        return std::make_shared<SQLite::Statement>(database_, sql);
    return kept;
}

Query::~Query() {
    statement_->tryReset();
    // Cells bound without a copy do not outlive the use.
    statement_->clearBindings();
}

void Query::Bind(int parameter, const FieldDefinition& field, const Cell& cell) {
    if (const std::string* bytes = std::get_if<std::string>(&cell)) {
        if (field.Type == FieldType::LongBinary)
            statement_->bindNoCopy(parameter, bytes->data(), static_cast<int>(bytes->size()));
        else
            statement_->bindNoCopy(parameter, *bytes);
    } else if (const qint64* number = std::get_if<qint64>(&cell)) {
        Bind(parameter, *number);
    }
    // What nothing has been bound to is Null.
}

Cell Query::Read(int column) const {
    return CellOf(statement_->getColumn(column));
}

std::string_view Query::Bytes(int column) const {
    const SQLite::Column value = statement_->getColumn(column);
    const auto* bytes = static_cast<const char*>(value.getBlob());
    return {bytes, static_cast<std::size_t>(value.getBytes())};
}

Cell CellOf(const SQLite::Column& value) {
    switch (value.getType()) {
    case SQLITE_INTEGER:
        return qint64{value.getInt64()};
    case SQLITE_NULL:
        return {};
    case SQLITE_FLOAT:
        return value.getDouble();
    default:
        return value.getString();
    }
}

int Pragma(Statements& statements, const std::string& name) {
    Query query(statements, "PRAGMA " + name);
    return query.Step() ? static_cast<int>(query.Number(0)) : 0;
}

std::string Quoted(const QString& name) {
    if (name.contains(QChar(0)))
        throw RuntimeError(ErrorNumber::EngineFault,
                           QStringLiteral("A name cannot hold the character with the number 0."));
    QString quoted = name;
    quoted.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return '"' + quoted.toStdString() + '"';
}

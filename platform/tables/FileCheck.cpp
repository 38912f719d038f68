#include "platform/tables/FileCheck.h"

#include "platform/tables/TableEngine.h"

#include <sqlite3.h>

namespace {

[[noreturn]] void RefuseRows(const QString& what) {
    throw RuntimeError(ErrorNumber::EngineFault, what);
}

/// A picture's bytes lie beside the row, where no look at the row passes.
void ReadPictures(Statements& statements, const Table& table) {
    for (const FieldDefinition& field : table.Shape->Fields) {
        if (field.Type != FieldType::LongBinary)
            continue;
        Query pictures(statements, "SELECT " + Quoted(field.Name) + " FROM " + table.Shape->Rows +
                                       " WHERE Key BETWEEN ?1 AND ?2");
        pictures.Bind(1, table.FirstKey());
        pictures.Bind(2, table.LastKey());
        while (pictures.Step())
            pictures.Bytes(0);
    }
}

/// The number of the table's rows, all of whose values are such as this program stores.
qint64 ReadRows(Statements& statements, const Table& table) {
    constexpr qint64 all = -1;
    Query query(statements, table.Shape->SelectSql);
    query.Bind(1, table.FirstKey());
    query.Bind(2, table.LastKey());
    query.Bind(3, all);
    qint64 rows = 0;
    for (; query.Step(); ++rows)
        for (int field = 0; field < static_cast<int>(table.Shape->Fields.size()); ++field) {
            const FieldDefinition& definition =
                table.Shape->Fields[static_cast<std::size_t>(field)];
            if (definition.Type == FieldType::LongBinary)
                continue;
            const Cell cell = query.Read(field + 1);
            // Any bytes are a text, and to make one of them takes longest.
            const bool isText =
                (definition.Type == FieldType::Text || definition.Type == FieldType::Memo) &&
                std::holds_alternative<std::string>(cell);
            if (!isText)
                ValueOf(definition, cell);
        }
    ReadPictures(statements, table);
    return rows;
}

void ReadTables(TableEngine& engine) {
    std::map<std::string, qint64> rowsOf;
    for (const std::shared_ptr<Table>& listed : engine.Current().Tables()) {
        const std::shared_ptr<Table> table = engine.Current().Open(listed->Name);
        rowsOf[table->Shape->Rows] += ReadRows(engine.Sql(), *table);
    }
    for (const auto& [name, rows] : rowsOf) {
        Query count(engine.Sql(), "SELECT count(*) FROM " + name);
        count.Step();
        if (count.Number(0) != rows)
            RefuseRows(QStringLiteral("Rows belong to no table."));
    }
}

void CheckPages(Statements& statements) {
    Query check(statements, "PRAGMA integrity_check(1)");
    check.Step();
    const std::string_view words = check.Bytes(0);
    if (words != "ok")
        RefuseRows(QString::fromUtf8(words.data(), static_cast<qsizetype>(words.size())));
}

} // namespace

QString WhatIsWrongWith(const QString& path) {
    try {
        const std::shared_ptr<TableEngine> engine = TableEngine::OpenToRead(path);
        engine->Guard([&] {
            engine->BeginReading();
            CheckPages(engine->Sql());
            ReadTables(*engine);
            engine->EndReading();
        });
        return {};
    } catch (const RuntimeError& fault) {
        return fault.Text();
    }
}

bool MeansDamage(const RuntimeError& error) {
    return error.Text() == QLatin1String(sqlite3_errstr(SQLITE_CORRUPT)) ||
           error.Text() == QLatin1String(sqlite3_errstr(SQLITE_NOTADB));
}

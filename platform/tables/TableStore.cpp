#include "platform/tables/TableStore.h"

#include "platform/tables/TableEngine.h"

std::unique_ptr<TableStore> TableStore::OpenDatabase(const QString& path,
                                                     const CarryOverWatch& watch) {
    return std::unique_ptr<TableStore>(new TableStore(TableEngine::Open(path, watch)));
}

std::unique_ptr<TableStore> TableStore::OpenToRead(const QString& path) {
    return std::unique_ptr<TableStore>(new TableStore(TableEngine::OpenToRead(path)));
}

bool TableStore::IsOfFormerFormat(const QString& path) {
    try {
        const std::unique_ptr<SQLite::Database> database = Connect(path, SQLite::OPEN_READONLY);
        RefuseByHeader(*database, path);
        Configure(*database);
        Statements statements(*database);
        const int format = FormatOf(statements);
        return format > 0 && format < FormatVersion;
    } catch (const SQLite::Exception&) {
        return false;
    } catch (const RuntimeError&) {
        return false;
    }
}

std::unique_ptr<TableStore> TableStore::CreateDatabase(const QString& path, const QString& locale) {
    return std::unique_ptr<TableStore>(new TableStore(TableEngine::Make(path, locale)));
}

TableStore::TableStore(std::shared_ptr<TableEngine> engine) : engine_(std::move(engine)) {}

TableStore::~TableStore() {
    engine_->Close();
}

int TableStore::TableCount() {
    return engine_->Guard([&] { return static_cast<int>(engine_->Current().Tables().size()); });
}

QString TableStore::TableName(int index) const {
    return engine_->Guard([&] {
        const auto& tables = engine_->LastSeen().Tables();
        if (index < 0 || static_cast<std::size_t>(index) >= tables.size())
            throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        return tables[static_cast<std::size_t>(index)]->Name;
    });
}

QStringList TableStore::TableNames() {
    return engine_->Guard([&] {
        QStringList names;
        for (const std::shared_ptr<Table>& table : engine_->Current().Tables())
            names += table->Name;
        return names;
    });
}

bool TableStore::HasTable(const QString& name) {
    return engine_->Guard([&] { return engine_->Current().Find(name) != nullptr; });
}

void TableStore::CreateTable(const QString& name, const QList<FieldDefinition>& fields) {
    engine_->Guard([&] { engine_->Create(name, fields); });
}

void TableStore::DeleteTable(const QString& name) {
    engine_->Guard([&] { engine_->Drop(name); });
}

Recordset TableStore::OpenRecordset(const QString& name) {
    return {engine_, name};
}

void TableStore::CopyRows(const QString& from, const QString& to, const QStringList& fields) {
    engine_->Guard([&] { engine_->CopyRows(from, to, fields); });
}

void TableStore::SetField(const QString& name, const QString& field, const QVariant& value) {
    engine_->Guard([&] { engine_->SetField(name, field, value); });
}

TableWalk TableStore::WalkThrough(const QStringList& fields) {
    return {engine_, fields};
}

TableWalk TableStore::WalkThrough(const QString& name, const QStringList& fields) {
    TableWalk walk(engine_, fields);
    walk.Open(name);
    return walk;
}

void TableStore::SetBeforeWrite(std::function<void()> before) {
    engine_->SetBeforeWrite(std::move(before));
}

void TableStore::CopyTo(const QString& path) {
    engine_->Guard([&] { engine_->CopyTo(path); });
}

void TableStore::Commit() {
    engine_->Guard([&] { engine_->Commit(); });
}

TableStore::Reading::Reading(TableStore& store) : engine_(store.engine_) {
    engine_->Guard([&] { engine_->BeginReading(); });
}

TableStore::Reading::~Reading() {
    engine_->EndReading();
}

#include "platform/tables/TableStore.h"

#include "platform/tables/TableEngine.h"

std::unique_ptr<TableStore> TableStore::OpenDatabase(const QString& path) {
    return std::unique_ptr<TableStore>(new TableStore(TableEngine::Open(path)));
}

std::unique_ptr<TableStore> TableStore::CreateDatabase(const QString& path, const QString& locale) {
    return std::unique_ptr<TableStore>(new TableStore(TableEngine::Make(path, locale)));
}

TableStore::TableStore(std::shared_ptr<TableEngine> engine) : engine_(std::move(engine)) {}

TableStore::~TableStore() {
    engine_->Close();
}

int TableStore::TableCount() {
    return engine_->Guard([&] {
        engine_->NoticeOthers();
        return static_cast<int>(engine_->Tables().size());
    });
}

QString TableStore::TableName(int index) const {
    const auto& tables = engine_->Tables();
    if (index < 0 || static_cast<std::size_t>(index) >= tables.size())
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return tables[static_cast<std::size_t>(index)]->Name;
}

bool TableStore::HasTable(const QString& name) {
    return engine_->Guard([&] {
        engine_->NoticeOthers();
        return engine_->Known(name) != nullptr;
    });
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

TableWalk TableStore::WalkThrough(const QString& name, const QStringList& fields) {
    return {engine_, name, fields};
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

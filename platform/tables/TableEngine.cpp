#include "platform/tables/TableEngine.h"

#include <QFileInfo>
#include <sqlite3.h>
#include <utility>

std::shared_ptr<TableEngine> TableEngine::Open(const QString& path, const CarryOverWatch& watch) {
    std::shared_ptr<TableEngine> engine(new TableEngine(Connect(path, SQLite::OPEN_READWRITE)));
    engine->Guard([&] {
        SQLite::Database& database = *engine->link_->database;
        RefuseByHeader(database, path);
        Configure(database);
        if (FormatOf(engine->Sql()) == FormerFormatVersion)
            CarryOver(database, path, watch);
        engine->NoticeOthers();
    });
    return engine;
}

std::shared_ptr<TableEngine> TableEngine::OpenToRead(const QString& path) {
    std::shared_ptr<TableEngine> engine(new TableEngine(Connect(path, SQLite::OPEN_READONLY)));
    engine->Guard([&] {
        SQLite::Database& database = *engine->link_->database;
        RefuseByHeader(database, path);
        Configure(database);
        if (FormatOf(engine->Sql()) != FormatVersion)
            throw SQLite::Exception(sqlite3_errstr(SQLITE_NOTADB), SQLITE_NOTADB);
        engine->NoticeOthers();
    });
    return engine;
}

std::shared_ptr<TableEngine> TableEngine::Make(const QString& path, const QString& locale) {
    if (QFileInfo::exists(path))
        throw RuntimeError(ErrorNumber::EngineFault,
                           QStringLiteral("There is a file '%1' already.").arg(path));
    std::shared_ptr<TableEngine> engine(
        new TableEngine(Connect(path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)));
    engine->Guard([&] {
        Configure(*engine->link_->database);
        engine->Execute("BEGIN IMMEDIATE");
        engine->link_->catalogue.Make(locale.toStdString());
        engine->Execute("COMMIT");
        engine->NoticeOthers();
    });
    return engine;
}

void TableEngine::Close() {
    // The engine rolls back by itself what is under way.
    link_.reset();
}

void TableEngine::NoticeOthers() {
    const int version = Pragma(Sql(), "data_version");
    if (version == dataVersion_)
        return;
    dataVersion_.reset();
    link_->catalogue.Recheck();
    dataVersion_ = version;
}

Catalogue& TableEngine::Current() {
    // Nobody else can have written since a transaction or a reading has begun.
    if (!inTransaction_ && !isReading_)
        NoticeOthers();
    return link_->catalogue;
}

void TableEngine::Create(const QString& name, const QList<FieldDefinition>& fields) {
    const std::string declaration = Catalogue::Declaration(fields);
    // Asked before the transaction as well: a refusal begins none.
    Current().RefuseTaken(name);
    BeginWrite();
    link_->catalogue.RefuseTaken(name);
    link_->catalogue.Add(name, declaration);
}

void TableEngine::Drop(const QString& name) {
    if (!Current().Find(name))
        throw NoSuchTable(name);
    BeginWrite();
    const std::shared_ptr<Table> table = link_->catalogue.Find(name);
    if (!table)
        throw NoSuchTable(name);
    link_->catalogue.Remove(*table);
}

void TableEngine::CopyRows(const QString& from, const QString& to, const QStringList& fields) {
    BeginWrite();
    const std::shared_ptr<Table> source = link_->catalogue.Open(from);
    const std::shared_ptr<Table> target = link_->catalogue.Open(to);
    std::string names = "Key";
    std::string values = "Key + ?1";
    for (const FieldDefinition& field : target->Shape->Fields) {
        const std::string quoted = Quoted(field.Name);
        const bool isCopied = fields.contains(field.Name, Qt::CaseInsensitive);
        const bool isFalse = std::holds_alternative<qint64>(InitialCell(field));
        names += ", " + quoted;
        values += isCopied ? ", " + quoted : isFalse ? ", 0" : ", NULL";
    }
    Query copy(Sql(), "INSERT INTO " + target->Shape->Rows + '(' + names + ") SELECT " + values +
                          " FROM " + source->Shape->Rows +
                          " WHERE Key BETWEEN ?2 AND ?3 ORDER BY Key");
    // The first number of the source goes to the next one of the target.
    copy.Bind(1, link_->catalogue.NextKey(*target) - source->FirstKey() - 1);
    copy.Bind(2, source->FirstKey());
    copy.Bind(3, source->LastKey());
    copy.Run();
    ++target->Changes;
    target->IsNextKeySure = false;
}

void TableEngine::BeginWrite() {
    if (inTransaction_)
        return;
    // Not from within the reading: the engine does not wait for others then.
    StopReading();
    if (beforeWrite_)
        beforeWrite_();
    Execute("BEGIN IMMEDIATE");
    inTransaction_ = true;
    NoticeOthers();
    if (!link_->catalogue.IsMade())
        link_->catalogue.Make({});
}

void TableEngine::CopyTo(const QString& path) {
    const std::unique_ptr<SQLite::Database> copy =
        Connect(path, SQLite::OPEN_READWRITE | SQLITE_OPEN_NOFOLLOW);
    // It is thrown away unless it is whole: nothing of it need be taken back.
    copy->exec("PRAGMA journal_mode=OFF");
    copy->exec("PRAGMA synchronous=OFF");
    CopyPages(*copy, *link_->database);
}

void TableEngine::BeginReading() {
    if (readers_++ > 0 || inTransaction_)
        return;
    Execute("BEGIN");
    isReading_ = true;
    NoticeOthers();
}

void TableEngine::EndReading() {
    if (--readers_ == 0)
        StopReading();
}

void TableEngine::StopReading() {
    if (!std::exchange(isReading_, false) || !link_)
        return;
    link_->database->tryExec("COMMIT");
}

void TableEngine::Commit() {
    StopReading();
    if (!inTransaction_)
        return;
    try {
        Execute("COMMIT");
    } catch (const SQLite::Exception&) {
        if (!IsRolledBack())
            link_->database->tryExec("ROLLBACK");
        throw;
    }
    inTransaction_ = false;
}

bool TableEngine::IsRolledBack() const {
    return sqlite3_get_autocommit(link_->database->getHandle()) != 0;
}

void TableEngine::AfterFault() {
    if (!IsRolledBack())
        return;
    isReading_ = false;
    if (!std::exchange(inTransaction_, false))
        return;
    dataVersion_.reset();
    try {
        NoticeOthers();
    } catch (const SQLite::Exception&) {
        // The fault that led here is the one to report; the next look tries again.
    }
}

#include "platform/tables/TableEngine.h"

#include "platform/runtime/FileFaults.h"

#include <QFileInfo>
#include <sqlite3.h>
#include <utility>

std::shared_ptr<TableEngine> TableEngine::Open(const QString& path, const CarryOverWatch& watch) {
    std::shared_ptr<TableEngine> engine(new TableEngine(Connect(path, SQLite::OPEN_READWRITE)));
    engine->Guard([&] {
        SQLite::Database& database = *engine->link_->database;
        RefuseByHeader(database, path);
        Configure(database);
        if (const int format = FormatOf(engine->Sql()); format > 0 && format < FormatVersion)
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
    if (QFileInfo::exists(path)) {
        RuntimeError error(ErrorNumber::EngineFault,
                           QStringLiteral("There is a file '%1' already.").arg(path));
        if (!QFileInfo(path).isFile())
            error.SetAdvice(WhyNotRead(path));
        throw error;
    }
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
    std::vector<int> leftOut;
    for (const FieldDefinition& field : target->Shape->Fields) {
        const std::string quoted = Quoted(field.Name);
        const bool isCopied = fields.contains(field.Name, Qt::CaseInsensitive);
        const bool isFalse = std::holds_alternative<qint64>(InitialCell(field));
        names += ", " + quoted;
        values += isCopied ? ", " + quoted : isFalse ? ", 0" : ", NULL";
        if (!isCopied)
            leftOut.push_back(static_cast<int>(&field - target->Shape->Fields.data()));
    }
    Query copy(Sql(), "INSERT INTO " + target->Shape->Rows + '(' + names + ") SELECT " + values +
                          " FROM " + source->Shape->Rows +
                          " WHERE Key BETWEEN ?2 AND ?3 ORDER BY Key");
    // The first number of the source goes to the next one of the target.
    const qint64 next = link_->catalogue.NextKey(*target);
    copy.Bind(1, next - source->FirstKey() - 1);
    copy.Bind(2, source->FirstKey());
    copy.Bind(3, source->LastKey());
    copy.Run();
    link_->catalogue.Sums().ChangeRows(target->Id, SumOfCopied(*source, *target, next, leftOut));
    ++target->Changes;
    target->IsNextKeySure = false;
}

/// What rows that have been copied to a table, from the key `next` on, add to its sum.
Sum TableEngine::SumOfCopied(const Table& source, const Table& target, qint64 next,
                             const std::vector<int>& leftOut) {
    if (source.ShapeId != target.ShapeId || next != target.FirstKey() + 1)
        return SumOfRows(Sql(), target.ShapeId, next, target.LastKey());
    // The same rows under the same numbers: only what was left out makes a difference.
    Sum sum = link_->catalogue.Sums().KeptSumOfRows(source.Id);
    for (const int place : leftOut) {
        const FieldDefinition& field = target.Shape->Fields[static_cast<std::size_t>(place)];
        Query cells(Sql(), "SELECT Key, " + Quoted(field.Name) + " FROM " + source.Shape->Rows +
                               " WHERE Key BETWEEN ?1 AND ?2");
        cells.Bind(1, source.FirstKey());
        cells.Bind(2, source.LastKey());
        while (cells.Step())
            sum += SumOf(cells.Number(0), place, field, InitialCell(field)) -
                   SumOf(cells.Number(0), place, cells.Column(1));
    }
    return sum;
}

void TableEngine::SetField(const QString& name, const QString& field, const QVariant& value) {
    BeginWrite();
    const std::shared_ptr<Table> table = link_->catalogue.Open(name);
    const int place = table->Shape->PositionOf(field);
    const FieldDefinition& definition = table->Shape->Fields[static_cast<std::size_t>(place)];
    const Cell cell = CellFor(definition, value);
    const std::string column = Quoted(definition.Name);
    const std::string where = " WHERE Key BETWEEN ?1 AND ?2 AND " + column + " IS NOT ?3";
    const auto bind = [&](Query& query) {
        query.Bind(1, table->FirstKey());
        query.Bind(2, table->LastKey());
        query.Bind(3, definition, cell);
    };
    Query changing(Sql(), "SELECT Key, " + column + " FROM " + table->Shape->Rows + where);
    bind(changing);
    Sum change = 0;
    while (changing.Step())
        change += SumOf(changing.Number(0), place, definition, cell) -
                  SumOf(changing.Number(0), place, changing.Column(1));
    Query set(Sql(), "UPDATE " + table->Shape->Rows + " SET " + column + " = ?3" + where);
    bind(set);
    set.Run();
    link_->catalogue.Sums().ChangeRows(table->Id, change);
    ++table->Changes;
}

void TableEngine::BeginWrite() {
    if (inTransaction_)
        return;
    RefuseAfterFault(FaultAt::Writing);
    // Not from within the reading: the engine does not wait for others then.
    StopReading();
    if (beforeWrite_)
        beforeWrite_();
    // Whatever undoes the action: nothing of it is left for the next one to commit.
    IfUndone([self = weak_from_this()] {
        if (const std::shared_ptr<TableEngine> engine = self.lock())
            engine->Undo();
    });
    // Before it is so: an action that could not begin to write must not go on, either.
    inTransaction_ = true;
    Execute("BEGIN IMMEDIATE");
    NoticeOthers();
    if (!link_->catalogue.IsMade())
        link_->catalogue.Make({});
}

void TableEngine::CopyTo(const QString& path) {
    const std::unique_ptr<SQLite::Database> copy = Connect(path, SQLite::OPEN_READWRITE);
    try {
        // It is thrown away unless it is whole: nothing of it need be taken back.
        copy->exec("PRAGMA journal_mode=OFF");
        copy->exec("PRAGMA synchronous=OFF");
        CopyPages(*copy, *link_->database);
    } catch (const SQLite::Exception& fault) {
        // A fault of the copy is none of the action that it is made for.
        throw EngineError(fault, *copy);
    }
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
    link_->catalogue.Sums().Write();
    Execute("COMMIT");
    inTransaction_ = false;
}

bool TableEngine::IsRolledBack() const {
    return sqlite3_get_autocommit(link_->database->getHandle()) != 0;
}

void TableEngine::Undo() {
    if (!link_ || !std::exchange(inTransaction_, false))
        return;
    if (!IsRolledBack())
        link_->database->tryExec("ROLLBACK");
    dataVersion_.reset();
    try {
        NoticeOthers();
    } catch (const SQLite::Exception&) {
        // The fault that led here is the one to report; the next look tries again.
    }
}

RuntimeError TableEngine::AfterFault(const SQLite::Exception& fault) {
    const RuntimeError error = EngineError(fault, *link_->database);
    NoteFault(error, inTransaction_ ? FaultAt::Writing : FaultAt::Reading);
    Undo();
    if (IsRolledBack())
        isReading_ = false;
    return error;
}

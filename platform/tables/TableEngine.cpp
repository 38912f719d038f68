#include "platform/tables/TableEngine.h"

#include <QFileInfo>
#include <algorithm>
#include <array>
#include <sqlite3.h>
#include <utility>

namespace {

constexpr int FormatVersion = 1;
constexpr int BusyTimeoutMs = 5000;
constexpr std::size_t KeptStatements = 16;

/// The engine's own table, which the catalogue leaves out.
const QString LocaleTable = QStringLiteral("MSysLocale");

[[noreturn]] void RefuseForeign() {
    throw RuntimeError(ErrorNumber::EngineFault,
                       QStringLiteral("This file is a database of another program. Sparkit "
                                      "Dutygrid cannot use it and has left it as it is."));
}

[[noreturn]] void RefuseNewer() {
    throw RuntimeError(ErrorNumber::EngineFault,
                       QStringLiteral("This database was made by a newer version of Sparkit "
                                      "Dutygrid. Please install the newer version to open it."));
}

/// The same for names that differ in case only. Nearly all names are plain ones, for which the
/// rules of all the world's letters would take several times as long.
QString NameKey(const QString& name) {
    QString key = name;
    for (QChar& letter : key) {
        if (letter.unicode() >= 0x80)
            return name.toCaseFolded();
        if (letter >= QLatin1Char('A') && letter <= QLatin1Char('Z'))
            letter = QChar(letter.unicode() | 0x20);
    }
    return key;
}

bool IsEnginesOwn(const QString& name) {
    return name == LocaleTable || name.startsWith(QLatin1String("sqlite_"), Qt::CaseInsensitive);
}

std::string Declaration(const QString& name, const QList<FieldDefinition>& fields) {
    std::string sql = "CREATE TABLE " + Quoted(name) + " (";
    for (qsizetype i = 0; i < fields.size(); ++i)
        sql += (i ? ", " : "") + Quoted(fields[i].Name) + ' ' + DeclaredType(fields[i]);
    return sql + ')';
}

} // namespace

RuntimeError NoSuchTable(const QString& name) {
    return {ErrorNumber::NoSuchTable,
            QStringLiteral("The database cannot find the table '%1'.").arg(name)};
}

std::string Quoted(const QString& name) {
    if (name.contains(QChar(0)))
        throw RuntimeError(ErrorNumber::EngineFault,
                           QStringLiteral("A name cannot hold the character with the number 0."));
    QString quoted = name;
    quoted.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return '"' + quoted.toStdString() + '"';
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
    } else {
        statement_->bind(parameter);
    }
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

std::string_view Query::Bytes(int column) const {
    const SQLite::Column value = statement_->getColumn(column);
    const auto* bytes = static_cast<const char*>(value.getBlob());
    return {bytes, static_cast<std::size_t>(value.getBytes())};
}

TableEngine::TableEngine(const QString& path, int flags) {
    // Once in a process, before the engine is first used: it need not keep an account of its
    // memory, which takes a lock at every piece of it.
    [[maybe_unused]] static const int quick = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    // Absolute, for the engine reads a meaning into names that begin with "file:" or ":".
    const QByteArray file = QFileInfo(path).absoluteFilePath().toUtf8();
    try {
        // One thread uses the connection: it needs no locks against others.
        database_ = std::make_unique<SQLite::Database>(file.constData(),
                                                       flags | SQLite::OPEN_NOMUTEX, BusyTimeoutMs);
    } catch (const SQLite::Exception& fault) {
        throw RuntimeError(
            ErrorNumber::EngineFault,
            QStringLiteral("%1: %2").arg(QString::fromUtf8(fault.what()), QString::fromUtf8(file)));
    }
}

std::shared_ptr<TableEngine> TableEngine::Open(const QString& path) {
    std::shared_ptr<TableEngine> engine(new TableEngine(path, SQLite::OPEN_READWRITE));
    engine->Guard([&] {
        // The engine takes a file of one byte for an empty one and would write over the byte.
        if (QFileInfo(path).size() == 1)
            throw SQLite::Exception(sqlite3_errstr(SQLITE_NOTADB), SQLITE_NOTADB);
        engine->RefuseByHeader();
        engine->Configure();
        engine->RefuseByContent();
    });
    return engine;
}

std::shared_ptr<TableEngine> TableEngine::Make(const QString& path, const QString& locale) {
    if (QFileInfo::exists(path))
        throw RuntimeError(ErrorNumber::EngineFault,
                           QStringLiteral("There is a file '%1' already.").arg(path));
    std::shared_ptr<TableEngine> engine(
        new TableEngine(path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE));
    engine->Guard([&] {
        engine->Configure();
        engine->BeginWrite();
        const FieldDefinition field{QStringLiteral("Locale"), FieldType::Memo};
        engine->Execute(Declaration(LocaleTable, {field}));
        const Cell cell = CellFor(field, locale);
        {
            Query insert(*engine, "INSERT INTO " + Quoted(LocaleTable) + " VALUES(?)");
            insert.Bind(1, field, cell);
            insert.Run();
        }
        engine->Commit();
    });
    return engine;
}

void TableEngine::Configure() {
    sqlite3* handle = database_->getHandle();
    // What a file brings along (triggers, views, functions in its schema) is never run.
    for (const auto& [option, value] : {std::pair{SQLITE_DBCONFIG_DQS_DML, 0},
                                        {SQLITE_DBCONFIG_DQS_DDL, 0},
                                        {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
                                        {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
                                        {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
                                        {SQLITE_DBCONFIG_DEFENSIVE, 1}})
        sqlite3_db_config(handle, option, value, nullptr);
    Execute("PRAGMA cell_size_check=ON");
    // A commit survives a power cut: the journal's folder is synchronised as well.
    Execute("PRAGMA synchronous=EXTRA");
}

void TableEngine::RefuseByHeader() const {
    // Reading a database in write-ahead mode writes to it, so that such a one is told by its
    // header. The bytes are read through the engine's own file: closing another descriptor of
    // the file would let go of the locks that this process holds on it.
    sqlite3_file* file = nullptr;
    sqlite3_file_control(database_->getHandle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    std::array<unsigned char, 100> header{};
    if (!file || !file->pMethods ||
        file->pMethods->xRead(file, header.data(), static_cast<int>(header.size()), 0) !=
            SQLITE_OK ||
        !std::equal(header.begin(), header.begin() + 16, "SQLite format 3"))
        return;
    const int version = header[60] << 24 | header[61] << 16 | header[62] << 8 | header[63];
    if (version > FormatVersion)
        RefuseNewer();
    const bool isWriteAhead = header[18] > 1 || header[19] > 1;
    if (isWriteAhead && version != FormatVersion)
        RefuseForeign();
}

void TableEngine::RefuseByContent() {
    const int version = Pragma("user_version");
    if (version > FormatVersion)
        RefuseNewer();
    formatIsMarked_ = version == FormatVersion;
    if (!formatIsMarked_ && (version != 0 || Pragma("schema_version") != 0))
        RefuseForeign();
    RefuseCutOff();
    NoticeOthers();
}

void TableEngine::RefuseCutOff() {
    // The engine itself takes the missing rest of a last page for zeros.
    sqlite3_file* file = nullptr;
    sqlite3_file_control(database_->getHandle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    sqlite3_int64 length = 0;
    if (file && file->pMethods && file->pMethods->xFileSize(file, &length) == SQLITE_OK &&
        length < sqlite3_int64{Pragma("page_count")} * Pragma("page_size"))
        throw RuntimeError(ErrorNumber::EngineFault,
                           QString::fromUtf8(sqlite3_errstr(SQLITE_CORRUPT)));
}

void TableEngine::Close() {
    statements_.clear();
    tables_.clear();
    tablesByName_.clear();
    // The engine rolls back by itself what is under way.
    database_.reset();
}

std::shared_ptr<SQLite::Statement> TableEngine::Prepared(const std::string& sql) {
    const auto kept =
        std::find_if(statements_.begin(), statements_.end(), [&](const auto& statement) {
            return statement->getQuery() == sql && statement.use_count() == 1;
        });
    if (kept != statements_.end()) {
        statements_.splice(statements_.begin(), statements_, kept);
        return statements_.front();
    }
    statements_.push_front(std::make_shared<SQLite::Statement>(*database_, sql));
    if (statements_.size() > KeptStatements)
        statements_.pop_back();
    return statements_.front();
}

int TableEngine::Pragma(const std::string& name) {
    Query query(*this, "PRAGMA " + name);
    return query.Step() ? static_cast<int>(query.Number(0)) : 0;
}

void TableEngine::NoticeOthers() {
    // Nobody else can write while a transaction is under way.
    if ((inTransaction_ || isReading_) && isUpToDate_ && catalogueIsRead_)
        return;
    isUpToDate_ = inTransaction_ || isReading_;
    const int version = Pragma("data_version");
    if (version == dataVersion_ && catalogueIsRead_)
        return;
    ++epoch_;
    if (!catalogueIsRead_ || Pragma("schema_version") != schemaVersion_)
        ReadCatalogue();
    dataVersion_ = version;
}

void TableEngine::ReadCatalogue() {
    std::vector<std::shared_ptr<Table>> tables;
    QHash<QString, std::shared_ptr<Table>> tablesByName;
    {
        Query query(*this,
                    "SELECT name, sql FROM sqlite_master WHERE type = 'table' ORDER BY rowid");
        while (query.Step()) {
            const std::string_view bytes = query.Bytes(0);
            const QString name =
                QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
            if (IsEnginesOwn(name))
                continue;
            const std::size_t declaration = std::hash<std::string_view>()(query.Bytes(1));
            const QString key = NameKey(name);
            std::shared_ptr<Table> table = tablesByName_.value(key);
            if (!table || table->Name != name || table->Declaration != declaration) {
                table = std::make_shared<Table>();
                table->Name = name;
                table->Declaration = declaration;
            }
            tablesByName.insert(key, table);
            tables.push_back(std::move(table));
        }
    }
    for (const std::shared_ptr<Table>& table : tables_)
        table->Dropped = tablesByName.value(NameKey(table->Name)) != table;
    tables_ = std::move(tables);
    tablesByName_ = std::move(tablesByName);
    statements_.clear();
    schemaVersion_ = Pragma("schema_version");
    catalogueIsRead_ = true;
}

std::shared_ptr<Table> TableEngine::Known(const QString& name) const {
    return tablesByName_.value(NameKey(name));
}

std::shared_ptr<Table> TableEngine::Find(const QString& name) {
    NoticeOthers();
    std::shared_ptr<Table> table = Known(name);
    if (!table)
        throw NoSuchTable(name);
    if (!table->Shape)
        table->Shape = ShapeOf(table->Name);
    return table;
}

std::unique_ptr<const TableShape> TableEngine::ShapeOf(const QString& name) {
    const std::string table = Quoted(name);
    const std::string source = " FROM " + table + " WHERE rowid >= ?1 ORDER BY rowid LIMIT ?2";
    const std::string end = " FROM " + table + " ORDER BY 1 LIMIT 1";
    auto shape = std::make_unique<TableShape>();
    shape->SelectSql = "SELECT rowid, *" + source;
    shape->FirstRowSql = "SELECT rowid, *" + end;
    const std::shared_ptr<SQLite::Statement> statement = Prepared(shape->FirstRowSql);
    std::string columns = "SELECT rowid";
    std::string names = "(rowid";
    std::string values = "(?1";
    bool hasLongBinary = false;
    for (int column = 1; column < statement->getColumnCount(); ++column) {
        const QString fieldName = QString::fromUtf8(statement->getColumnName(column));
        const std::optional<FieldDefinition> field =
            DeclaredField(fieldName, QString::fromUtf8(statement->getColumnDeclaredType(column)));
        if (!field)
            throw RuntimeError(
                ErrorNumber::EngineFault,
                QStringLiteral("The field '%1' of the table '%2' is of an unknown type.")
                    .arg(fieldName, name));
        shape->Fields.push_back(*field);
        const std::string quoted = Quoted(fieldName);
        const bool isLongBinary = field->Type == FieldType::LongBinary;
        columns += isLongBinary ? ", length(" + quoted + ')' : ", " + quoted;
        hasLongBinary = hasLongBinary || isLongBinary;
        names += ", " + quoted;
        values += ", ?" + std::to_string(column + 1);
    }
    if (hasLongBinary) {
        shape->SelectSql = columns + source;
        shape->FirstRowSql = columns + end;
    }
    shape->LastRowSql = "SELECT max(rowid) FROM " + table;
    shape->InsertSql = "INSERT INTO " + table + names + ") VALUES" + values + ')';
    return shape;
}

void TableEngine::Create(const QString& name, const QList<FieldDefinition>& fields) {
    // As the engine will have it: half a surrogate pair cannot be stored.
    const QString stored = QString::fromStdString(name.toStdString());
    const std::string sql = Declaration(stored, fields);
    const auto refuseDuplicate = [&] {
        const std::shared_ptr<Table> present = Known(stored);
        if (present || NameKey(stored) == NameKey(LocaleTable))
            throw RuntimeError(ErrorNumber::EngineFault,
                               QStringLiteral("table %1 already exists")
                                   .arg(present ? present->Name : LocaleTable));
    };
    NoticeOthers();
    refuseDuplicate();
    // Prepared before the transaction begins: a name that the engine reserves begins none.
    SQLite::Statement statement(*database_, sql);
    BeginWrite();
    refuseDuplicate();
    statement.exec();
    auto table = std::make_shared<Table>();
    table->Name = stored;
    table->Declaration = std::hash<std::string>()(sql);
    table->Uncommitted = true;
    tables_.push_back(table);
    tablesByName_.insert(NameKey(stored), table);
    schemaVersion_ = Pragma("schema_version");
}

void TableEngine::Drop(const QString& name) {
    NoticeOthers();
    if (!Known(name))
        throw NoSuchTable(name);
    BeginWrite();
    const std::shared_ptr<Table> table = Known(name);
    if (!table)
        throw NoSuchTable(name);
    Execute("DROP TABLE " + Quoted(table->Name));
    table->Dropped = true;
    tablesByName_.remove(NameKey(table->Name));
    tables_.erase(std::find(tables_.begin(), tables_.end(), table));
    statements_.clear();
    schemaVersion_ = Pragma("schema_version");
}

void TableEngine::BeginWrite() {
    if (inTransaction_)
        return;
    // Not from within the reading: the engine does not wait for others then.
    StopReading();
    Execute("BEGIN IMMEDIATE");
    inTransaction_ = true;
    isUpToDate_ = false;
    NoticeOthers();
    if (!formatIsMarked_)
        Execute("PRAGMA user_version=" + std::to_string(FormatVersion));
}

void TableEngine::BeginReading() {
    if (readers_++ > 0 || inTransaction_)
        return;
    Execute("BEGIN");
    isReading_ = true;
    isUpToDate_ = false;
}

void TableEngine::EndReading() {
    if (--readers_ == 0)
        StopReading();
}

void TableEngine::StopReading() {
    if (!std::exchange(isReading_, false) || !database_)
        return;
    database_->tryExec("COMMIT");
}

void TableEngine::Commit() {
    StopReading();
    if (!inTransaction_)
        return;
    try {
        Execute("COMMIT");
    } catch (const SQLite::Exception&) {
        if (!sqlite3_get_autocommit(database_->getHandle()))
            database_->tryExec("ROLLBACK");
        throw;
    }
    inTransaction_ = false;
    formatIsMarked_ = true;
    for (const std::shared_ptr<Table>& table : tables_)
        table->Uncommitted = false;
}

void TableEngine::AfterFault() {
    if (isReading_ && sqlite3_get_autocommit(database_->getHandle()))
        isReading_ = false;
    if (!inTransaction_ || !sqlite3_get_autocommit(database_->getHandle()))
        return;
    inTransaction_ = false;
    AfterRollback();
}

void TableEngine::AfterRollback() {
    ++epoch_;
    catalogueIsRead_ = false;
    for (const std::shared_ptr<Table>& table : tables_)
        table->Dropped = table->Uncommitted;
    std::erase_if(tables_, [](const auto& table) { return table->Dropped; });
    tablesByName_.removeIf([](const auto& entry) { return entry.value()->Dropped; });
    try {
        ReadCatalogue();
    } catch (const SQLite::Exception&) {
        // The fault that led here is the one to report; the next look at the catalogue tries
        // again.
        statements_.clear();
    }
}

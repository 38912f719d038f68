#include "platform/runtime/Dates.h"
#include "platform/tables/Catalogue.h"
#include "platform/tables/TableFile.h"

#include <QFile>
#include <QFileInfo>
#include <limits>
#include <sqlite3.h>

namespace {

/// Where the former format kept what is now the file's information.
const std::string FormerLocaleTable = "MSysLocale";

/// Tables done between two words to the one who watches.
constexpr int TablesPerWord = 100;

[[noreturn]] void ReportDamage() {
    throw SQLite::Exception(sqlite3_errstr(SQLITE_CORRUPT), SQLITE_CORRUPT);
}

/// Keeps all others away from the file while it lives. No transaction is under way meanwhile: the
/// engine copies neither from nor into a file within one.
class SoleUse {
public:
    explicit SoleUse(SQLite::Database& database) : database_(database) {
        database_.exec("PRAGMA locking_mode=EXCLUSIVE");
        database_.exec("BEGIN EXCLUSIVE");
        database_.exec("COMMIT");
    }
    ~SoleUse() {
        database_.tryExec("PRAGMA locking_mode=NORMAL");
        // The first look at the file afterwards lets go of it.
        database_.tryExec("PRAGMA user_version");
    }
    SoleUse(const SoleUse&) = delete;
    SoleUse& operator=(const SoleUse&) = delete;

private:
    SQLite::Database& database_;
};

QString FreeNameBeside(const QString& path) {
    const QFileInfo file(path);
    const QString base = QStringLiteral("%1/%2 format %3 %4")
                             .arg(file.absolutePath(), file.completeBaseName())
                             .arg(FormerFormatVersion)
                             .arg(Today().toString(Qt::ISODate));
    const QString ending = file.suffix().isEmpty() ? QString() : QLatin1Char('.') + file.suffix();
    QString name = base + ending;
    for (int number = 2; QFileInfo::exists(name); ++number)
        name = QStringLiteral("%1 (%2)%3").arg(base).arg(number).arg(ending);
    return name;
}

/// A copy of the file beside it, checked to be whole. Removed again unless it is kept.
class SafetyCopy {
public:
    SafetyCopy(SQLite::Database& database, const QString& path) : name_(FreeNameBeside(path)) {
        const QString unfinished = name_ + QStringLiteral(".part");
        QFile::remove(unfinished);
        try {
            const std::unique_ptr<SQLite::Database> copy =
                Connect(unfinished, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
            // It is thrown away unless it is whole: nothing of it need be taken back.
            copy->exec("PRAGMA journal_mode=OFF");
            CopyPages(*copy, database);
            if (copy->execAndGet("PRAGMA quick_check(1)").getString() != "ok")
                ReportDamage();
        } catch (...) {
            QFile::remove(unfinished);
            throw;
        }
        QFile::setPermissions(unfinished, QFile::permissions(path));
        if (!QFile::rename(unfinished, name_)) {
            QFile::remove(unfinished);
            throw RuntimeError(ErrorNumber::EngineFault,
                               QStringLiteral("Cannot make the copy '%1'.").arg(name_));
        }
    }
    ~SafetyCopy() {
        if (!isKept_)
            QFile::remove(name_);
    }
    SafetyCopy(const SafetyCopy&) = delete;
    SafetyCopy& operator=(const SafetyCopy&) = delete;

    const QString& Name() const { return name_; }
    void Keep() { isKept_ = true; }

private:
    QString name_;
    bool isKept_ = false;
};

QList<FieldDefinition> FieldsOf(SQLite::Database& database, const std::string& table) {
    SQLite::Statement all(database, "SELECT * FROM former." + table);
    QList<FieldDefinition> fields;
    for (int column = 0; column < all.getColumnCount(); ++column) {
        const QString name = QString::fromUtf8(all.getColumnName(column));
        const std::optional<FieldDefinition> field =
            DeclaredField(name, QString::fromUtf8(all.getColumnDeclaredType(column)));
        if (!field)
            throw UnknownFieldType(name);
        fields += *field;
    }
    return fields;
}

std::string FormerLocale(SQLite::Database& database) {
    SQLite::Statement table(database, "SELECT 1 FROM former.sqlite_master WHERE name = ?1");
    table.bindNoCopy(1, FormerLocaleTable);
    if (!table.executeStep())
        return {};
    SQLite::Statement locale(database, "SELECT Locale FROM former." + FormerLocaleTable);
    return locale.executeStep() ? locale.getColumn(0).getString() : std::string();
}

/// What numbers the rows of a table of the former format: their own numbers, if these leave room
/// for more; to count the rows takes longer.
std::string RowNumber(SQLite::Database& database, const std::string& table) {
    SQLite::Statement ends(database, "SELECT (SELECT min(rowid) FROM former." + table +
                                         "), (SELECT max(rowid) FROM former." + table + ")");
    ends.executeStep();
    const bool leaveRoom = ends.getColumn(0).getInt64() > 0 &&
                           ends.getColumn(1).getInt64() < std::numeric_limits<int32_t>::max();
    return leaveRoom ? "rowid" : "row_number() OVER (ORDER BY rowid)";
}

void CarryTable(Statements& fresh, Catalogue& catalogue, const QString& name) {
    const std::string table = Quoted(name);
    catalogue.RefuseTaken(name);
    catalogue.Add(name, Catalogue::Declaration(FieldsOf(fresh.Connection(), table)));
    const std::shared_ptr<Table> carried = catalogue.Open(name);
    SQLite::Statement rows(fresh.Connection(), "INSERT INTO " + carried->Shape->Rows +
                                                   " SELECT ?1 + " +
                                                   RowNumber(fresh.Connection(), table) +
                                                   ", * FROM former." + table + " ORDER BY rowid");
    rows.bind(1, int64_t{carried->FirstKey()});
    rows.exec();
}

/// Fills an empty database with what the copy holds; the number of its tables.
int Fill(SQLite::Database& database, const QString& copy, const CarryOverWatch& watch) {
    {
        SQLite::Statement attach(database, "ATTACH ?1 AS former");
        attach.bind(1, copy.toStdString());
        attach.exec();
    }
    std::vector<std::string> names;
    {
        // In the order of their making, which identities follow.
        SQLite::Statement tables(database,
                                 "SELECT name FROM former.sqlite_master WHERE type = 'table' AND "
                                 "name <> ?1 AND lower(substr(name, 1, 7)) <> 'sqlite_' "
                                 "ORDER BY rowid");
        tables.bindNoCopy(1, FormerLocaleTable);
        while (tables.executeStep())
            names.push_back(tables.getColumn(0).getString());
    }
    Statements fresh(database);
    Catalogue catalogue(fresh);
    fresh.Execute("BEGIN");
    catalogue.Make(FormerLocale(database));
    int done = 0;
    for (const std::string& name : names) {
        CarryTable(fresh, catalogue, QString::fromStdString(name));
        if (++done % TablesPerWord == 0 && watch)
            watch(done, static_cast<int>(names.size()));
    }
    fresh.Execute("COMMIT");
    return done;
}

} // namespace

void CarryOver(SQLite::Database& database, const QString& path, const CarryOverWatch& watch) {
    const SoleUse sole(database);
    // Another copy of the program may have been quicker.
    if (database.execAndGet("PRAGMA user_version").getInt() != FormerFormatVersion)
        return;
    SafetyCopy copy(database, path);

    // Made in a file of the engine's own first and then copied over in one transaction: a table of
    // the engine takes milliseconds to drop.
    SQLite::Database fresh("", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    fresh.exec("PRAGMA page_size=" + database.execAndGet("PRAGMA page_size").getString());
    const int tables = Fill(fresh, copy.Name(), watch);
    CopyPages(database, fresh);
    copy.Keep();
    if (watch)
        watch(tables, tables);
}

#include "platform/runtime/Dates.h"
#include "platform/runtime/FileFaults.h"
#include "platform/runtime/WholeFiles.h"
#include "platform/tables/Catalogue.h"
#include "platform/tables/TableFile.h"

#include <SQLiteCpp/Transaction.h>

#include <QFile>
#include <QFileInfo>
#include <limits>
#include <sqlite3.h>

namespace {

/// Where the former format kept what is now the file's information.
const std::string FormerLocaleTable = "MSysLocale";

/// Tables done between two words to the one who watches.
constexpr int TablesPerWord = 100;

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

QString FreeNameBeside(const QString& path, int format) {
    const QFileInfo file(path);
    const QString base = QStringLiteral("%1/%2 format %3 %4")
                             .arg(file.absolutePath(), file.completeBaseName())
                             .arg(format)
                             .arg(Today().toString(Qt::ISODate));
    const QString ending = file.suffix().isEmpty() ? QString() : QLatin1Char('.') + file.suffix();
    QString name = base + ending;
    const auto isTaken = [&] { return QFileInfo::exists(name) || QFileInfo(name).isSymLink(); };
    for (int number = 2; isTaken(); ++number)
        name = QStringLiteral("%1 (%2)%3").arg(base).arg(number).arg(ending);
    return name;
}

/// A copy of the file beside it, checked to be whole. Removed again unless it is kept.
class SafetyCopy {
public:
    SafetyCopy(SQLite::Database& database, const QString& path, int format)
        : name_(FreeNameBeside(path, format)) {
        const QString unfinished = name_ + QStringLiteral(".part");
        QFile::remove(unfinished);
        // Not in what somebody has laid there, and with its rights before anybody can exchange it.
        QFile file(unfinished);
        if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly) ||
            !file.setPermissions(QFile::permissions(path)))
            throw CannotMake(unfinished);
        file.close();
        try {
            const std::unique_ptr<SQLite::Database> copy =
                Connect(unfinished, SQLite::OPEN_READWRITE);
            // It is thrown away unless it is whole: nothing of it need be taken back.
            copy->exec("PRAGMA journal_mode=OFF");
            CopyPages(*copy, database);
            if (copy->execAndGet("PRAGMA quick_check(1)").getString() != "ok")
                ReportDamage();
        } catch (...) {
            QFile::remove(unfinished);
            throw;
        }
        if (!RenameToFreeName(unfinished, name_)) {
            QFile::remove(unfinished);
            throw CannotMake(name_);
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
    static RuntimeError CannotMake(const QString& name) {
        RuntimeError error(ErrorNumber::EngineFault,
                           QStringLiteral("Cannot make the copy '%1'.").arg(name));
        error.SetAdvice(WhyNotWritten(name));
        return error;
    }

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
    SumUp(fresh);
    fresh.Execute("COMMIT");
    return done;
}

/// False also where the file cannot say.
bool IsOfFormat(SQLite::Database& database, int format) {
    try {
        return database.execAndGet("PRAGMA user_version").getInt() == format;
    } catch (const SQLite::Exception&) {
        return false;
    }
}

/// Format 2 lacks nothing but the sums.
void AddSums(SQLite::Database& database) {
    SQLite::Transaction change(database);
    {
        Statements statements(database);
        statements.Execute("ALTER TABLE Catalogue ADD COLUMN Sum INTEGER NOT NULL DEFAULT 0");
        SumUp(statements);
        statements.Execute("PRAGMA user_version=" + std::to_string(FormatVersion));
    }
    change.commit();
}

/// Carries a file without a catalogue over; `copy` holds the same.
void CarryTables(SQLite::Database& database, const QString& copy, const CarryOverWatch& watch) {
    // Made in a file of the engine's own first and then copied over in one transaction: a table of
    // the engine takes milliseconds to drop.
    SQLite::Database fresh("", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    fresh.exec("PRAGMA page_size=" + database.execAndGet("PRAGMA page_size").getString());
    const int tables = Fill(fresh, copy, watch);
    CopyPages(database, fresh);
    if (watch)
        watch(tables, tables);
}

} // namespace

void CarryOver(SQLite::Database& database, const QString& path, const CarryOverWatch& watch) {
    const SoleUse sole(database);
    // Another copy of the program may have been quicker.
    const int format = database.execAndGet("PRAGMA user_version").getInt();
    if (format == FormatVersion)
        return;
    SafetyCopy copy(database, path, format);
    try {
        if (format == FormatWithoutSums)
            AddSums(database);
        else
            CarryTables(database, copy.Name(), watch);
    } catch (...) {
        // The disk may have kept what it said it could not.
        if (!IsOfFormat(database, format))
            copy.Keep();
        throw;
    }
    copy.Keep();
}

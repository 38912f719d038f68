#include "platform/tables/TableFile.h"

#include "platform/runtime/FileFaults.h"
#include "platform/tables/Damage.h"
#include <SQLiteCpp/Backup.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <array>
#include <sqlite3.h>
#include <utility>

namespace {

/// The advice is for a file that is ours, and only seems to be another's by its first bytes.
[[noreturn]] void RefuseForeign(const QString& path) {
    RuntimeError error(
        ErrorNumber::EngineFault,
        QStringLiteral("This file is a database of another program. %1 cannot use it "
                       "and has left it as it is.")
            .arg(QCoreApplication::applicationName()));
    error.SetAdvice(DamageAdvice(path));
    throw error;
}

[[noreturn]] void RefuseNewer(const QString& path) {
    RuntimeError error(ErrorNumber::EngineFault,
                       QStringLiteral("This database was made by a newer version of %1. Please "
                                      "install the newer version to open it.")
                           .arg(QCoreApplication::applicationName()));
    if (const QString advice = DamageAdvice(path); !advice.isEmpty())
        error.SetAdvice(QStringLiteral("If no newer version was ever used here, this holds "
                                       "instead.\n\n%1")
                            .arg(advice));
    throw error;
}

/// The engine's own handle of the file: closing another one would let go of the locks that this
/// process holds on it.
sqlite3_file* FileOf(SQLite::Database& database) {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(database.getHandle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    return file && file->pMethods ? file : nullptr;
}

int NumberAt(const std::array<unsigned char, 100>& header, std::size_t offset) {
    return header[offset] << 24 | header[offset + 1] << 16 | header[offset + 2] << 8 |
           header[offset + 3];
}

void RefuseCutOff(Statements& statements) {
    // The engine itself takes the missing rest of a last page for zeros.
    sqlite3_file* file = FileOf(statements.Connection());
    sqlite3_int64 length = 0;
    if (file && file->pMethods->xFileSize(file, &length) == SQLITE_OK &&
        length < sqlite3_int64{Pragma(statements, "page_count")} * Pragma(statements, "page_size"))
        ReportDamage();
}

/// The engine's own words, and what stands behind them where another copy holds a lock.
QString WordsOf(const SQLite::Exception& fault) {
    const QString words = QString::fromUtf8(fault.what());
    if (fault.getErrorCode() != SQLITE_BUSY)
        return words;
    return QStringLiteral("Another copy of %1 is writing at this moment, so that what you did last "
                          "could not be done. Nothing of it has been stored. Please try again; if "
                          "this message comes again, close the other copy first. (%2)")
        .arg(QCoreApplication::applicationName(), words);
}

} // namespace

void ReportDamage() {
    throw SQLite::Exception(sqlite3_errstr(SQLITE_CORRUPT), SQLITE_CORRUPT);
}

RuntimeError UnknownFieldType(const QString& field) {
    return {ErrorNumber::EngineFault,
            QStringLiteral("The field '%1' is of an unknown type.").arg(field)};
}

RuntimeError EngineError(const SQLite::Exception& fault, const SQLite::Database& database) {
    RuntimeError error(ErrorNumber::EngineFault, WordsOf(fault));
    const QString path = QString::fromStdString(database.getFilename());
    constexpr int mainCode = 0xff;
    switch (fault.getErrorCode() & mainCode) {
    case SQLITE_PERM:
    case SQLITE_READONLY:
    case SQLITE_IOERR:
    case SQLITE_FULL:
    case SQLITE_CANTOPEN:
        // A file that was moved away goes on being read.
        error.SetAdvice(QFileInfo::exists(path) ? WhyNotWritten(path) : WhyNotRead(path));
        break;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        error.SetAdvice(DamageAdvice(path));
        break;
    default:
        break;
    }
    return error;
}

namespace {

RuntimeError NotOpened(const char* words, const QString& path, const QString& advice) {
    RuntimeError error(ErrorNumber::EngineFault,
                       QStringLiteral("%1: %2").arg(QString::fromUtf8(words), path));
    error.SetAdvice(advice);
    return error;
}

/// The engine would wait for ever for a pipe in place of the file or of one beside it.
void RefusePipes(const QString& path) {
    for (const char* ending : {"", "-journal", "-wal"}) {
        const QFileInfo part(path + QLatin1String(ending));
        if (part.exists() && !part.isFile() && !part.isDir())
            throw NotOpened(sqlite3_errstr(SQLITE_CANTOPEN), path, WhyNotRead(part.filePath()));
    }
}

} // namespace

std::unique_ptr<SQLite::Database> Connect(const QString& path, int flags) {
    // Once in a process, before the engine is first used: it need not keep an account of its
    // memory, which takes a lock at every piece of it.
    [[maybe_unused]] static const int quick = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    // Absolute, for the engine reads a meaning into names that begin with "file:" or ":". The
    // folder may be reached by a link; a file that is written may be none.
    const QFileInfo info(path);
    const QString folder = info.dir().canonicalPath();
    const QString file =
        folder.isEmpty() ? info.absoluteFilePath() : folder + QLatin1Char('/') + info.fileName();
    RefusePipes(file);
    if ((flags & SQLite::OPEN_READWRITE) != 0)
        flags |= SQLITE_OPEN_NOFOLLOW;
    try {
        // One thread uses the connection: it needs no locks against others.
        return std::make_unique<SQLite::Database>(file.toUtf8().constData(),
                                                  flags | SQLite::OPEN_NOMUTEX);
    } catch (const SQLite::Exception& fault) {
        throw NotOpened(fault.what(), file,
                        QFileInfo::exists(path) ? WhyNotRead(path) : WhyNotWritten(path));
    }
}

void RefuseByHeader(SQLite::Database& database, const QString& path) {
    // The engine takes a file of one byte for an empty one and would write over the byte.
    if (QFileInfo(path).size() == 1)
        throw SQLite::Exception(sqlite3_errstr(SQLITE_NOTADB), SQLITE_NOTADB);
    // Reading a database in write-ahead mode writes to it, so that such a one is told by its
    // header.
    sqlite3_file* file = FileOf(database);
    std::array<unsigned char, 100> header{};
    if (!file ||
        file->pMethods->xRead(file, header.data(), static_cast<int>(header.size()), 0) !=
            SQLITE_OK ||
        !std::equal(header.begin(), header.begin() + 16, "SQLite format 3"))
        return;
    const int version = NumberAt(header, 60);
    if (version > FormatVersion)
        RefuseNewer(path);
    const bool isWriteAhead = header[18] > 1 || header[19] > 1;
    if (isWriteAhead && (version < FirstFormatVersion || version > FormatVersion))
        RefuseForeign(path);
}

int FormatOf(Statements& statements) {
    const QString path = QString::fromStdString(statements.Connection().getFilename());
    const int version = Pragma(statements, "user_version");
    if (version > FormatVersion)
        RefuseNewer(path);
    const bool isOurs =
        version == FirstFormatVersion ||
        (version > FirstFormatVersion && Pragma(statements, "application_id") == ApplicationId);
    if (!isOurs && (version != 0 || Pragma(statements, "schema_version") != 0))
        RefuseForeign(path);
    RefuseCutOff(statements);
    if (version > FirstFormatVersion) {
        if (!statements.Connection().tableExists("Catalogue"))
            ReportDamage();
        // Finds out whether the declarations can be read at all.
        Query catalogue(statements, "SELECT Id FROM Catalogue LIMIT 1");
        catalogue.Step();
    }
    return version;
}

void CopyPages(SQLite::Database& to, SQLite::Database& from) {
    SQLite::Backup backup(to, from);
    if (backup.executeStep(-1) != SQLITE_DONE)
        throw SQLite::Exception(sqlite3_errstr(SQLITE_BUSY), SQLITE_BUSY);
}

void Configure(SQLite::Database& database) {
    sqlite3* handle = database.getHandle();
    // What a file brings along (triggers, views, functions in its schema) is never run.
    for (const auto& [option, value] : {std::pair{SQLITE_DBCONFIG_DQS_DML, 0},
                                        {SQLITE_DBCONFIG_DQS_DDL, 0},
                                        {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
                                        {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
                                        {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
                                        {SQLITE_DBCONFIG_DEFENSIVE, 1}})
        sqlite3_db_config(handle, option, value, nullptr);
    database.exec("PRAGMA cell_size_check=ON");
    // A commit survives a power cut: the journal's folder is synchronised as well.
    database.exec("PRAGMA synchronous=EXTRA");
}

#include "platform/tables/Damage.h"
#include "tests/platform/tables/TablesTest.h"

#include <QScopeGuard>
#include <SQLiteCpp/SQLiteCpp.h>

namespace {

class Opening : public TablesTest {
protected:
    static QString Opened(const QString& path) {
        return ErrorText([&] { TableStore::OpenDatabase(path); });
    }

    /// What opening the file says; the file and its folder must stay as they are.
    QString Refusal(const QString& path) {
        const QByteArray before = ReadFile(path);
        const QStringList files = QDir(QFileInfo(path).path()).entryList();
        EXPECT_ERROR(3000, TableStore::OpenDatabase(path));
        const QString text = Opened(path);
        EXPECT_EQ(ReadFile(path), before);
        EXPECT_EQ(QDir(QFileInfo(path).path()).entryList(), files);
        return text;
    }

    QString RawDatabase(const char* statements) {
        const QString path = Path(QStringLiteral("Raw.mdb"));
        SQLite::Database raw(path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        raw.exec(statements);
        return path;
    }

    /// A database with a chart that fills several pages.
    QByteArray GrownDatabase() {
        Recordset rows = MakeTable();
        for (int i = 0; i < 500; ++i)
            AddMemo(rows, QString(40, QLatin1Char('x')));
        Store->Commit();
        Store.reset();
        return ReadFile(File);
    }
};

} // namespace

TEST_F(Opening, NewDatabaseHasNoTables) {
    EXPECT_EQ(Store->TableCount(), 0);
    Reopen();
    EXPECT_EQ(Store->TableCount(), 0);
}

TEST_F(Opening, NewDatabaseIsOneFileThatKeepsItsLocaleAndFormat) {
    Store.reset();
    const QByteArray content = ReadFile(File);
    EXPECT_TRUE(content.contains(";LANGID=0x0409"));
    SQLite::Database raw(File.toStdString());
    EXPECT_EQ(raw.execAndGet("PRAGMA user_version").getInt(), 3);
    EXPECT_EQ(QString::fromStdString(raw.execAndGet("PRAGMA journal_mode").getString()),
              QStringLiteral("delete"));
    EXPECT_EQ(QDir(Path(QString())).entryList({QStringLiteral("Charts.mdb?*")}), QStringList());
}

TEST_F(Opening, MakingRefusesToReplaceAFile) {
    MakeTable();
    Store->Commit();
    EXPECT_ERROR(3000, TableStore::CreateDatabase(File, QString()));
    EXPECT_EQ(Names(*Store), QStringList{QStringLiteral("Chart")});
}

TEST_F(Opening, MissingFolderGivesTheEnginesWordsAndNamesTheFile) {
    const QString path = Path(QStringLiteral("Nowhere/Charts.mdb"));
    EXPECT_ERROR(3000, TableStore::CreateDatabase(path, QString()));
    const QString words = QStringLiteral("unable to open database file: ") + path;
    EXPECT_EQ(ErrorText([&] { TableStore::CreateDatabase(path, QString()); }), words);
    EXPECT_EQ(Opened(path), words);
}

TEST_F(Opening, MissingFileIsNotMade) {
    const QString path = Path(QStringLiteral("None.mdb"));
    EXPECT_ERROR(3000, TableStore::OpenDatabase(path));
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(Opening, PathMayHoldAnyCharacter) {
    for (const char* name : {"a b?mode=ro#x.mdb", "file:x.mdb", ":memory:", "Ä'\"%41.mdb"}) {
        const QString path = Path(QString::fromUtf8(name));
        TableStore::CreateDatabase(path, QString());
        EXPECT_TRUE(QFile::exists(path)) << name;
        EXPECT_EQ(TableStore::OpenDatabase(path)->TableCount(), 0) << name;
    }
}

TEST_F(Opening, NoLinkIsFollowedButThoseOnTheWayToTheFile) {
    MakeTable();
    Store->Commit();
    const QByteArray before = ReadFile(File);
    const QString link = Path(QStringLiteral("Link.mdb"));
    ASSERT_TRUE(QFile::link(File, link));
    EXPECT_EQ(Opened(link), QStringLiteral("unable to open database file: ") + link);
    EXPECT_EQ(TableStore::OpenToRead(link)->TableCount(), 1);
    const QString dangling = Path(QStringLiteral("Dangling.mdb"));
    const QString nowhere = Path(QStringLiteral("Nowhere.mdb"));
    ASSERT_TRUE(QFile::link(nowhere, dangling));
    EXPECT_ERROR(3000, TableStore::CreateDatabase(dangling, QString()));
    EXPECT_FALSE(QFile::exists(nowhere));
    EXPECT_EQ(ReadFile(File), before);

    const QString folder = Path(QStringLiteral("Folder"));
    ASSERT_TRUE(QFile::link(QFileInfo(File).path(), folder));
    Store = TableStore::OpenDatabase(folder + QLatin1Char('/') + QFileInfo(File).fileName());
    EXPECT_EQ(Names(*Store), QStringList{QStringLiteral("Chart")});
}

TEST_F(Opening, FileThatIsNoDatabaseIsRefusedAndLeftAlone) {
    const QString path = Path(QStringLiteral("Text.mdb"));
    for (const int size : {1, 15, 100, 511, 512, 5000, 100000}) {
        WriteFile(path, QByteArray(size, 'x'));
        EXPECT_EQ(Refusal(path), QStringLiteral("file is not a database")) << size;
    }
}

TEST_F(Opening, DatabaseOfANewerVersionIsRefusedPolitely) {
    const QString path = RawDatabase("PRAGMA user_version=4; CREATE TABLE t(a)");
    EXPECT_EQ(Refusal(path),
              QStringLiteral("This database was made by a newer version of Sparkit Dutygrid. "
                             "Please install the newer version to open it."));
}

TEST_F(Opening, NewerDatabaseInWriteAheadModeIsLeftAlone) {
    const QString path =
        RawDatabase("PRAGMA journal_mode=WAL; PRAGMA user_version=7; CREATE TABLE t(a)");
    EXPECT_TRUE(Refusal(path).contains(QStringLiteral("newer version")));
}

TEST_F(Opening, DatabaseOfAnotherProgramIsRefusedPolitely) {
    EXPECT_TRUE(Refusal(RawDatabase("CREATE TABLE t(a); INSERT INTO t VALUES(1)"))
                    .contains(QStringLiteral("another program")));
}

TEST_F(Opening, AnotherProgramsDatabaseInWriteAheadModeIsLeftAlone) {
    EXPECT_TRUE(Refusal(RawDatabase("PRAGMA journal_mode=WAL; CREATE TABLE t(a)"))
                    .contains(QStringLiteral("another program")));
}

TEST_F(Opening, ABadByteInTheFirstPageDoesNotHideTheWayBack) {
    MakeTable();
    Store->Commit();
    Store.reset();
    const QByteArray whole = ReadFile(File);
    SetDamageAdvice([](const QString& path) { return QStringLiteral("the way back for ") + path; });
    const auto end = qScopeGuard([] { SetDamageAdvice(nullptr); });
    const QString wayBack = QStringLiteral("the way back for ") + File;
    const auto adviceAfter = [&](qsizetype place, char byte) {
        QByteArray bytes = whole;
        bytes[place] = byte;
        WriteFile(File, bytes);
        try {
            TableStore::OpenDatabase(File);
        } catch (const RuntimeError& error) {
            return error.Advice();
        }
        return QString();
    };
    // The number of the format, and whose the file is.
    EXPECT_EQ(adviceAfter(63, 99),
              QStringLiteral("If no newer version was ever used here, this holds instead.\n\n") +
                  wayBack);
    EXPECT_EQ(adviceAfter(60, '\xff'), wayBack);
    EXPECT_EQ(adviceAfter(70, 'x'), wayBack);
    // The name of the table that lists the others.
    EXPECT_EQ(adviceAfter(whole.indexOf("Catalogue"), 'x'), wayBack);
    WriteFile(File, whole);
    EXPECT_EQ(TableStore::OpenDatabase(File)->TableCount(), 1);
}

TEST_F(Opening, NegativeFormatNumberIsAnotherPrograms) {
    EXPECT_TRUE(Refusal(RawDatabase("PRAGMA user_version=-1; CREATE TABLE t(a)"))
                    .contains(QStringLiteral("another program")));
}

TEST_F(Opening, EmptyFileIsAnEmptyDatabaseAndStaysUsable) {
    const QString path = Path(QStringLiteral("Empty.mdb"));
    WriteFile(path, {});
    {
        const auto store = TableStore::OpenDatabase(path);
        EXPECT_EQ(store->TableCount(), 0);
        EXPECT_EQ(ReadFile(path).size(), 0);
        store->CreateTable(QStringLiteral("lost"), AllTypes());
    }
    EXPECT_EQ(ReadFile(path).size(), 0);
    {
        const auto store = TableStore::OpenDatabase(path);
        store->CreateTable(QStringLiteral("kept"), AllTypes());
        store->Commit();
    }
    EXPECT_EQ(Names(*TableStore::OpenDatabase(path)), QStringList{QStringLiteral("kept")});
}

TEST_F(Opening, TruncatedDatabaseIsRefusedAndLeftAlone) {
    const QByteArray whole = GrownDatabase();
    const QString path = Path(QStringLiteral("Cut.mdb"));
    for (const qsizetype size : {whole.size() - 1, whole.size() - 4095, whole.size() - 4096,
                                 whole.size() / 2, qsizetype{4096}}) {
        WriteFile(path, whole.left(size));
        EXPECT_EQ(Refusal(path), QStringLiteral("database disk image is malformed")) << size;
    }
}

TEST_F(Opening, DamagedDatabaseNeverCrashesAndIsOnlyRead) {
    const QByteArray whole = GrownDatabase();
    const QString path = Path(QStringLiteral("Damaged.mdb"));
    int refusals = 0;
    for (int round = 0; round < 200; ++round) {
        QByteArray damaged = whole;
        for (int i = 0; i < 40; ++i)
            damaged[(round * 7919 + i * 104729) % damaged.size()] = static_cast<char>(round + i);
        WriteFile(path, damaged);
        try {
            const auto store = TableStore::OpenDatabase(path);
            for (int i = 0, count = store->TableCount(); i < count; ++i)
                Memos(*store, store->TableName(i));
        } catch (const RuntimeError&) {
            ++refusals;
        }
        EXPECT_EQ(ReadFile(path), damaged) << round;
    }
    EXPECT_GT(refusals, 0);
}

TEST_F(Opening, ReadingWritesNothing) {
    const QByteArray whole = GrownDatabase();
    const auto store = TableStore::OpenDatabase(File);
    EXPECT_EQ(Memos(*store).size(), 500);
    store->Commit();
    EXPECT_EQ(ReadFile(File), whole);
}

TEST_F(Opening, FieldOfAnUnknownTypeIsReported) {
    MakeTable();
    Store->Commit();
    Store.reset();
    {
        SQLite::Database raw(File.toStdString(), SQLite::OPEN_READWRITE);
        raw.exec("ALTER TABLE Rows1 ADD COLUMN a VARCHAR");
    }
    Store = TableStore::OpenDatabase(File);
    EXPECT_EQ(ErrorText([&] { Store->OpenRecordset(QStringLiteral("Chart")); }),
              QStringLiteral("The field 'a' is of an unknown type."));
}

TEST_F(Opening, AnotherProgramsDatabaseOfTheSameFormatNumberIsRefusedPolitely) {
    for (const char* statements : {"PRAGMA user_version=2; CREATE TABLE Catalogue(Id)",
                                   "PRAGMA user_version=3; CREATE TABLE Others(Id)"})
        EXPECT_TRUE(Refusal(RawDatabase(statements)).contains(QStringLiteral("another program")))
            << statements;
}

TEST_F(Opening, WhatAFileBringsAlongIsNeverRun) {
    for (const bool isOpenBefore : {true, false}) {
        const QString name = isOpenBefore ? QStringLiteral("a") : QStringLiteral("b");
        Recordset rows = MakeTable(name);
        AddMemo(rows, QStringLiteral("kept"));
        Store->Commit();
        if (!isOpenBefore)
            Store.reset();
        SQLite::Database(File.toStdString(), SQLite::OPEN_READWRITE)
            .exec("CREATE TRIGGER " + name.toStdString() +
                  " AFTER INSERT ON Rows1 BEGIN DELETE FROM Rows1; END");
        if (!isOpenBefore)
            Store = TableStore::OpenDatabase(File);
        Recordset again = Store->OpenRecordset(name);
        AddMemo(again, QStringLiteral("second"));
        Store->Commit();
        EXPECT_EQ(Memos(*Store, name),
                  QStringList({QStringLiteral("kept"), QStringLiteral("second")}))
            << isOpenBefore;
    }
}

TEST_F(Opening, RowsThatAreAViewAreRefused) {
    MakeTable();
    Store->Commit();
    Store.reset();
    SQLite::Database(File.toStdString(), SQLite::OPEN_READWRITE)
        .exec("ALTER TABLE Rows1 RENAME TO Hidden; CREATE VIEW Rows1 AS SELECT * FROM Hidden");
    Store = TableStore::OpenDatabase(File);
    EXPECT_ERROR(3000, Store->OpenRecordset(QStringLiteral("Chart")));
}

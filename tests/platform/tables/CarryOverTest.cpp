#include "platform/tables/Damage.h"
#include "tests/common/FormerFile.h"
#include "tests/common/FullDisk.h"
#include "tests/common/ReadLock.h"
#include "tests/common/Rounds.h"
#include "tests/common/ShortLockWait.h"
#include "tests/platform/tables/TablesTest.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QElapsedTimer>
#include <csignal>
#include <iostream>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// Files of the former formats: a table of the engine for each table, and without sums.
class CarryOver : public TablesTest {
protected:
    const QString Former = Path(QStringLiteral("Old/Charts.mdb"));
    const QString CopyName = QStringLiteral("Charts format 1 2001-03-07.mdb");

    /// Tables of two shapes with values of all types, odd names and long texts.
    void FillStore(int tables = 12) {
        QStringList names{QStringLiteral("say \"hi\""), QStringLiteral("it's"), QString(),
                          QString::fromUtf8("Ärger 🧹"), QStringLiteral(" a/b\\c ")};
        while (names.size() < tables)
            names += QStringLiteral("Chart %1").arg(tables - names.size());
        for (const QString& name : names) {
            Recordset rows = MakeTable(name);
            for (int row = 0; row < 40; ++row) {
                rows.AddNew();
                rows.SetValue(0, QString(row, QLatin1Char('m')) + name);
                if (row % 3 > 0) {
                    rows.SetValue(1, QStringLiteral("007"));
                    rows.SetValue(2, row - 20);
                    rows.SetValue(3, row % 2 == 0);
                    rows.SetValue(4, QDate(2001, 3, 4).addDays(row));
                    rows.AppendChunk(QStringLiteral("Bytes"), QByteArray(row * 40, '\0'));
                }
                rows.Update();
            }
            // Rows that have gone leave gaps between the identities of the others.
            rows.MoveFirst();
            rows.MoveNext();
            rows.Delete();
        }
        Store->CreateTable(QStringLiteral("Number only"), {{QStringLiteral("N"), FieldType::Long}});
        Store->Commit();
    }

    /// Writes what the store holds as a file of format 1.
    void OpenWithoutRoomAndWithIt() {
        const QByteArray before = ReadFile(Former);
        for (const qint64 limit :
             {qint64{0}, qint64{4096}, qint64{before.size() / 2}, qint64{before.size() - 1}}) {
            const FullDisk full(limit);
            EXPECT_ERROR(3000, TableStore::OpenDatabase(Former));
            EXPECT_EQ(FilesBeside(), QStringList(QStringLiteral("Charts.mdb")));
        }
        EXPECT_EQ(ReadFile(Former), before);
        EXPECT_EQ(AllOf(*TableStore::OpenDatabase(Former)), AllOf(*Store));
    }
    void WriteFormer() {
        QDir().mkpath(QFileInfo(Former).path());
        QFile::remove(Former);
        WriteFormerFile(Former, File);
    }

    /// The same of format 2.
    void WriteWithoutSums() {
        QDir().mkpath(QFileInfo(Former).path());
        QFile::remove(Former);
        ASSERT_TRUE(QFile::copy(File, Former));
        TakeSumsOff(Former);
    }

    /// Opens the file again and again in a process that is killed meanwhile.
    void KillWhileOpening(int formerFormat) {
        const QByteArray before = ReadFile(Former);
        const QStringList all = AllOf(*Store);
        int old = 0;
        int carried = 0;
        QElapsedTimer timer;
        timer.start();
        TableStore::OpenDatabase(Former);
        const qint64 whole = timer.nsecsElapsed() / 1000;
        const int rounds = Rounds(12, 100);
        // A process of its own takes a little longer, and the machine is not always as quick.
        for (int round = 0; round < rounds || (carried == 0 && round < 5 * rounds); ++round) {
            WriteFile(Former, before);
            const pid_t child = InChild([this] { TableStore::OpenDatabase(Former); });
            ASSERT_GE(child, 0);
            ::usleep(static_cast<useconds_t>(whole * round * 3 / (2 * rounds)));
            ::kill(child, SIGKILL);
            ASSERT_EQ(::waitpid(child, nullptr, 0), child);
            {
                // What the kill has left is rolled back by whoever opens the file next.
                SQLite::Database raw(Former.toStdString(), SQLite::OPEN_READWRITE);
                const int format = raw.execAndGet("PRAGMA user_version").getInt();
                EXPECT_EQ(raw.execAndGet("PRAGMA integrity_check").getString(), "ok");
                ++(format == formerFormat ? old : carried);
                ASSERT_TRUE(format == formerFormat || format == 3) << format;
            }
            ASSERT_EQ(AllOf(*TableStore::OpenDatabase(Former)), all) << "round " << round;
            ASSERT_EQ(FindDamage(Former), QStringList()) << "round " << round;
        }
        EXPECT_GT(old, 0);
        EXPECT_GT(carried, 0);
        std::cout << old << " wholly old, " << carried << " wholly new" << std::endl;
    }

    static QStringList AllOf(TableStore& store) {
        QStringList all;
        for (const QString& name : Names(store)) {
            Recordset rows = store.OpenRecordset(name);
            all += name + QStringLiteral(": %1 rows").arg(rows.RecordCount());
            for (; !rows.Eof(); rows.MoveNext())
                for (int field = 0; field < rows.FieldCount(); ++field)
                    all += field == 5
                               ? QString::fromLatin1(
                                     rows.GetChunk(QStringLiteral("Bytes"), 0, 100'000).toHex())
                               : Shown(rows.Value(field));
        }
        return all;
    }

    QStringList FilesBeside() const {
        return QDir(QFileInfo(Former).path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    static int FormatOf(const QString& path) {
        SQLite::Database raw(path.toStdString(), SQLite::OPEN_READONLY);
        EXPECT_EQ(raw.execAndGet("PRAGMA integrity_check").getString(), "ok");
        return raw.execAndGet("PRAGMA user_version").getInt();
    }
};

} // namespace

TEST_F(CarryOver, AllTablesAndRowsAreWhatTheyWere) {
    FillStore();
    WriteFormer();
    ASSERT_EQ(FormatOf(Former), 1);
    const auto carried = TableStore::OpenDatabase(Former);
    const QStringList all = AllOf(*Store);
    EXPECT_EQ(AllOf(*carried), all);
    EXPECT_EQ(all.size(), 13 + 12 * 39 * 6);
    EXPECT_EQ(FormatOf(Former), 3);
    EXPECT_EQ(FindDamage(Former), QStringList());
    EXPECT_TRUE(ReadFile(Former).contains(";LANGID=0x0409"));
}

TEST_F(CarryOver, WhatWasCarriedOverIsReadAndWrittenAsEver) {
    FillStore();
    WriteFormer();
    {
        const auto carried = TableStore::OpenDatabase(Former);
        Recordset rows = carried->OpenRecordset(QStringLiteral("Chart 3"));
        AddMemo(rows, QStringLiteral("behind all others"));
        carried->DeleteTable(QStringLiteral("it's"));
        carried->CreateTable(QStringLiteral("New"), AllTypes());
        carried->Commit();
    }
    const auto again = TableStore::OpenDatabase(Former);
    const QStringList memos = Memos(*again, QStringLiteral("Chart 3"));
    ASSERT_FALSE(memos.isEmpty());
    EXPECT_EQ(memos.last(), QStringLiteral("behind all others"));
    EXPECT_EQ(again->TableCount(), Store->TableCount());
    EXPECT_TRUE(again->OpenRecordset(QStringLiteral("New")).Eof());
}

TEST_F(CarryOver, RowsWhoseNumbersLeaveNoRoomAreNumberedAnew) {
    FillStore();
    const QString chart = QStringLiteral("Chart 3");
    QStringList memos = Memos(*Store, chart);
    memos += QStringLiteral("behind all others");
    for (const char* number :
         {"rowid - 1", "rowid - 1000", "rowid + 4294967295", "rowid * 2000000000"}) {
        WriteFormer();
        SQLite::Database(Former.toStdString(), SQLite::OPEN_READWRITE)
            .exec(std::string("UPDATE \"Chart 3\" SET rowid = ") + number);
        const auto carried = TableStore::OpenDatabase(Former);
        Recordset rows = carried->OpenRecordset(chart);
        AddMemo(rows, memos.last());
        EXPECT_EQ(Memos(*carried, chart), memos) << number;
    }
}

TEST_F(CarryOver, AWholeCopyOfTheFormerFileIsLeftBesideIt) {
    FillStore();
    WriteFormer();
    TableStore::OpenDatabase(Former);
    EXPECT_EQ(FilesBeside(), (QStringList{CopyName, QStringLiteral("Charts.mdb")}));
    const QString copy = QFileInfo(Former).path() + QLatin1Char('/') + CopyName;
    EXPECT_EQ(FormatOf(copy), 1);
    EXPECT_EQ(QFile::permissions(copy), QFile::permissions(Former));
    // Put back, it is carried over once more.
    QFile::remove(Former);
    ASSERT_TRUE(QFile::rename(copy, Former));
    EXPECT_EQ(AllOf(*TableStore::OpenDatabase(Former)), AllOf(*Store));
}

TEST_F(CarryOver, AnEarlierCopyIsNeverOverwritten) {
    FillStore();
    WriteFormer();
    const QString copy = QFileInfo(Former).path() + QLatin1Char('/') + CopyName;
    WriteFile(copy, "somebody's own");
    TableStore::OpenDatabase(Former);
    EXPECT_EQ(ReadFile(copy), "somebody's own");
    EXPECT_EQ(FilesBeside(), (QStringList{QStringLiteral("Charts format 1 2001-03-07 (2).mdb"),
                                          CopyName, QStringLiteral("Charts.mdb")}));
}

TEST_F(CarryOver, ALinkInPlaceOfTheUnfinishedCopyIsNotFollowed) {
    FillStore();
    WriteFormer();
    const QString own = Path(QStringLiteral("own.txt"));
    WriteFile(own, "own");
    QFile::setPermissions(own, QFile::ReadOwner);
    const QFile::Permissions before = QFile::permissions(own);
    const QString copy = QFileInfo(Former).path() + QLatin1Char('/') + CopyName;
    ASSERT_TRUE(QFile::link(own, copy + QStringLiteral(".part")));
    TableStore::OpenDatabase(Former);
    EXPECT_EQ(ReadFile(own), "own");
    EXPECT_EQ(QFile::permissions(own), before);
    EXPECT_EQ(FilesBeside(), (QStringList{CopyName, QStringLiteral("Charts.mdb")}));
    EXPECT_FALSE(QFileInfo(copy).isSymLink());
    EXPECT_EQ(FormatOf(copy), 1);
}

TEST_F(CarryOver, ASecondOpeningMakesNoFurtherCopy) {
    FillStore();
    WriteFormer();
    TableStore::OpenDatabase(Former);
    const QByteArray carried = ReadFile(Former);
    TableStore::OpenDatabase(Former);
    EXPECT_EQ(FilesBeside().size(), 2);
    EXPECT_EQ(ReadFile(Former), carried);
}

TEST_F(CarryOver, TheWatchIsToldOfEveryHundredTablesAndOfTheEnd) {
    FillStore(250);
    WriteFormer();
    QStringList told;
    TableStore::OpenDatabase(
        Former, [&](int done, int all) { told += QStringLiteral("%1 of %2").arg(done).arg(all); });
    EXPECT_EQ(told, (QStringList{QStringLiteral("100 of 251"), QStringLiteral("200 of 251"),
                                 QStringLiteral("251 of 251")}));
}

TEST_F(CarryOver, AnEmptyFormerFileIsCarriedOverToo) {
    WriteFormer();
    EXPECT_EQ(TableStore::OpenDatabase(Former)->TableCount(), 0);
    EXPECT_EQ(FormatOf(Former), 3);
    EXPECT_EQ(FindDamage(Former), QStringList());
}

TEST_F(CarryOver, AFieldOfAnUnknownTypeLeavesAllAsItWas) {
    FillStore();
    WriteFormer();
    {
        SQLite::Database raw(Former.toStdString(), SQLite::OPEN_READWRITE);
        raw.exec("CREATE TABLE t(a VARCHAR)");
    }
    const QByteArray before = ReadFile(Former);
    EXPECT_EQ(ErrorText([&] { TableStore::OpenDatabase(Former); }),
              QStringLiteral("The field 'a' is of an unknown type."));
    EXPECT_EQ(ReadFile(Former), before);
    EXPECT_EQ(FilesBeside(), QStringList(QStringLiteral("Charts.mdb")));
}

TEST_F(CarryOver, WithoutRoomForTheCopyTheFormerFileStaysAndTheNextStartGoesOn) {
    FillStore(60);
    WriteFormer();
    OpenWithoutRoomAndWithIt();
    EXPECT_EQ(FilesBeside(), (QStringList{CopyName, QStringLiteral("Charts.mdb")}));
}

TEST_F(CarryOver, KilledAtAnyMomentTheFileIsWhollyOldOrWhollyNew) {
    FillStore(120);
    WriteFormer();
    KillWhileOpening(1);
}

TEST_F(CarryOver, KilledAtAnyMomentAFileWithoutSumsIsWhollyOldOrWhollyNew) {
    FillStore(120);
    WriteWithoutSums();
    KillWhileOpening(2);
}

TEST_F(CarryOver, AFileWithoutSumsGetsThemAndKeepsAllElse) {
    FillStore();
    WriteWithoutSums();
    ASSERT_EQ(FormatOf(Former), 2);
    EXPECT_EQ(FindDamage(Former), QStringList()) << "it has none that could be wrong";
    const QByteArray before = ReadFile(Former);
    EXPECT_EQ(AllOf(*TableStore::OpenDatabase(Former)), AllOf(*Store));
    EXPECT_EQ(FormatOf(Former), 3);
    EXPECT_EQ(FindDamage(Former), QStringList());
    const QString copyName = QStringLiteral("Charts format 2 2001-03-07.mdb");
    EXPECT_EQ(FilesBeside(), (QStringList{copyName, QStringLiteral("Charts.mdb")}));
    // The engine counts changes in the header.
    const QString copy = QFileInfo(Former).path() + QLatin1Char('/') + copyName;
    EXPECT_EQ(FormatOf(copy), 2);
    EXPECT_EQ(ReadFile(copy).mid(100), before.mid(100));
    // The same sums as if they had been kept from the beginning.
    const auto sums = [](const QString& path) {
        SQLite::Database raw(path.toStdString(), SQLite::OPEN_READONLY);
        return raw
            .execAndGet("SELECT group_concat(Name || Sum) || (SELECT Value FROM Information"
                        " WHERE Name = 'Sum') FROM Catalogue")
            .getString();
    };
    EXPECT_EQ(sums(Former), sums(File));
}

TEST_F(CarryOver, WithoutRoomForTheSumsTheFileStaysAndTheNextStartGoesOn) {
    FillStore(60);
    WriteWithoutSums();
    OpenWithoutRoomAndWithIt();
    EXPECT_EQ(FindDamage(Former), QStringList());
}

TEST_F(CarryOver, DamagedFormerFilesNeverCrashAndStayAsTheyAre) {
    FillStore();
    WriteFormer();
    const QByteArray whole = ReadFile(Former);
    int refusals = 0;
    for (int round = 0; round < 150; ++round) {
        QByteArray damaged = whole;
        for (int i = 0; i < 20; ++i)
            damaged[100 + (round * 7919 + i * 104729) % (damaged.size() - 100)] =
                static_cast<char>(round + i);
        WriteFile(Former, damaged);
        try {
            AllOf(*TableStore::OpenDatabase(Former));
        } catch (const RuntimeError&) {
            ++refusals;
            // What a format keeps in its 64th byte is all that tells a carried file apart here.
            const QByteArray left = ReadFile(Former);
            EXPECT_TRUE(left == damaged || left.at(63) == 3) << round;
        }
    }
    EXPECT_GT(refusals, 50);
}

TEST_F(CarryOver, WhileAnotherProgramWritesNothingIsCarriedOver) {
    FillStore();
    WriteFormer();
    const QByteArray before = ReadFile(Former);
    SQLite::Database other(Former.toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN IMMEDIATE");
    const ShortLockWait shortWait;
    EXPECT_EQ(ErrorText([&] { TableStore::OpenDatabase(Former); }), OtherCopyWrites);
    other.exec("COMMIT");
    EXPECT_EQ(ReadFile(Former), before);
    EXPECT_EQ(FilesBeside(), QStringList(QStringLiteral("Charts.mdb")));
    EXPECT_EQ(AllOf(*TableStore::OpenDatabase(Former)), AllOf(*Store));
}

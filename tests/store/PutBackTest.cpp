#include "store/PutBack.h"

#include "platform/runtime/Actions.h"
#include "platform/runtime/Dates.h"
#include "platform/tables/Damage.h"
#include "store/CopySummary.h"
#include "store/DailyCopies.h"
#include "store/ProgramFiles.h"
#include "tests/common/Charts.h"
#include "tests/common/FileBytes.h"
#include "tests/common/FormerFile.h"
#include "tests/common/OrdinaryUser.h"
#include "tests/common/TestWorld.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <sys/stat.h>

namespace {

const QString CopiedDay = QStringLiteral("2001-03-07");

} // namespace

/// A family on Wednesday with a copy, and on Thursday with more; the program has ended.
class PutBackTest : public ProgramTest {
protected:
    PutBackTest() {
        AddChild(QStringLiteral("Anna"), 12);
        StoreChart(QStringLiteral("Chores Anna"), {{QStringLiteral("Bed"), QStringLiteral("Mon"),
                                                    QString(), QString(), QStringLiteral("2")}});
        KeepDailyCopies(true);
        AddChild(QStringLiteral("Max"), 3);
        QCoreApplication::processEvents();
        KeepDailyCopies(false);
        SetToday(QDate(2001, 3, 8));
        RunAction([] {
            Database().AddPoints(QStringLiteral("Anna"), 40, false);
            Database().DuplicateChartHistory(QStringLiteral("Chores Anna"));
        });
        WriteBytes(SettingsFile(), "0\r\n\r\n5\r\n0\r\n0\r\n");
        WriteBytes(Jobs(), "Own job\r\n");
        ResetSession();
        settings_ = BytesOf(Copied(QStringLiteral("Settings.txt")));
        jobs_ = BytesOf(Copied(QStringLiteral("HomeJobs.dat")));
        database_ = BytesOf(DatabaseOfCopy(CopiedDay));
    }

    static void AddChild(const QString& name, int points) {
        RunAction([&] {
            Database().AddUser(name, QStringLiteral("a"), QStringLiteral("Student"), QString());
            Database().AddPoints(name, static_cast<qint16>(points), false);
        });
    }
    static QString Jobs() { return Path(QStringLiteral("Jobs/HomeJobs.dat")); }
    static QString Copied(const QString& file, const QString& name = CopiedDay) {
        return Path(QStringLiteral("Backups/%1/%2").arg(name, file));
    }
    static QString Kept() { return EntryOf(CopyNames(), 0); }

    void ExpectCopyInPlace() {
        EXPECT_TRUE(BytesOf(DatabaseFile()) == database_);
        EXPECT_EQ(BytesOf(SettingsFile()), settings_);
        EXPECT_EQ(BytesOf(Jobs()), jobs_);
        EXPECT_FALSE(QFileInfo::exists(Path(QStringLiteral("Backups/PuttingBack.txt"))));
    }

    QByteArray settings_;
    QByteArray jobs_;
    QByteArray database_;
};

TEST_F(PutBackTest, AllOfACopyComesBackAndWhatStoodThereIsACopyItself) {
    const QByteArray before = BytesOf(DatabaseFile());
    PutCopyBack(CopiedDay);
    ExpectCopyInPlace();
    EXPECT_EQ(CopyNames(), (QStringList{Kept(), CopiedDay}));
    EXPECT_TRUE(Kept().startsWith(QLatin1String("2001-03-08 "))) << Kept().toStdString();
    EXPECT_TRUE(BytesOf(DatabaseOfCopy(Kept())) == before);
    EXPECT_EQ(BytesOf(Copied(QStringLiteral("Settings.txt"), Kept())), "0\r\n\r\n5\r\n0\r\n0\r\n");
    EXPECT_EQ(BytesOf(Copied(QStringLiteral("HomeJobs.dat"), Kept())), "Own job\r\n");

    PutCopyBack(Kept());
    EXPECT_TRUE(BytesOf(DatabaseFile()) == before);
    EXPECT_EQ(BytesOf(Jobs()), "Own job\r\n");
}

TEST_F(PutBackTest, AListThatTheProgramWouldRefuseComesBackToo) {
    const QByteArray large(LargestSmallFile + 1, 'x');
    WriteBytes(Jobs(), large);
    PutCopyBack(CopiedDay);
    ExpectCopyInPlace();
    PutCopyBack(Kept());
    EXPECT_TRUE(BytesOf(Jobs()) == large);
    EXPECT_FALSE(QFileInfo::exists(Path(QStringLiteral("Backups/PuttingBack.txt"))));
}

TEST_F(PutBackTest, ItRefusesWhileTheProgramRunsAndTheProgramWhileItWorks) {
    const QByteArray before = BytesOf(DatabaseFile());
    {
        const auto program = UseData();
        const auto another = UseData();
        EXPECT_ERROR(70, PutCopyBack(CopiedDay));
    }
    EXPECT_TRUE(BytesOf(DatabaseFile()) == before);
    EXPECT_EQ(CopyNames().size(), 1);
    {
        const auto restoring = FolderUse::Alone(Path(QStringLiteral("Database")));
        EXPECT_ERROR(70, UseData());
    }
    EXPECT_NE(UseData(), nullptr);
}

TEST_F(PutBackTest, WhateverStandsInThePlaceOfTheDatabaseMakesRoom) {
    const QString file = DatabaseFile();
    const struct {
        const char* what;
        std::function<void()> put;
        bool isKept;
    } cases[] = {
        {"damaged", [&] { WriteBytes(file, QByteArray(5000, 'x')); }, true},
        {"empty", [&] { WriteBytes(file, {}); }, true},
        {"missing", [] {}, false},
        {"a folder", [&] { QDir().mkpath(file + QStringLiteral("/full")); }, false},
        {"a pipe", [&] { ::mkfifo(QFile::encodeName(file).constData(), 0600); }, false},
        {"a link",
         [&] {
             WriteBytes(Path(QStringLiteral("trap")), "trap");
             QFile::link(Path(QStringLiteral("trap")), file);
         },
         false},
    };
    for (const auto& one : cases) {
        QFile::remove(file);
        one.put();
        const auto copies = CopyNames().size();
        PutCopyBack(CopiedDay);
        ExpectCopyInPlace();
        EXPECT_EQ(CopyNames().size(), copies + 1) << one.what;
        EXPECT_EQ(QFileInfo::exists(DatabaseOfCopy(Kept())), one.isKept) << one.what;
    }
    EXPECT_EQ(BytesOf(Path(QStringLiteral("trap"))), "trap");
    // The folder, the pipe and the link are beside the file.
    EXPECT_EQ(QDir(Path(QStringLiteral("Database")))
                  .entryList({QStringLiteral("Charts.mdb until *")},
                             QDir::AllEntries | QDir::System | QDir::Hidden)
                  .size(),
              3);
    QDir(Path(QStringLiteral("Database"))).removeRecursively();
    PutCopyBack(CopiedDay);
    ExpectCopyInPlace();
}

TEST_F(PutBackTest, NoPipeIsWaitedForInPlaceOfAFileThatIsLookedAt) {
    const QString file = DatabaseOfCopy(CopiedDay);
    for (const char* beside : {"-journal", "-wal", ""}) {
        SCOPED_TRACE(beside);
        const QString pipe = file + QString::fromLatin1(beside);
        QFile::remove(pipe);
        ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        EXPECT_EQ(SummaryOf(file).Fault,
                  QStringLiteral("unable to open database file: %1").arg(file));
        EXPECT_FALSE(SummaryOfCopy(CopiedDay).Fault.isEmpty());
        EXPECT_EQ(FindDamage(file),
                  QStringList{QStringLiteral("unable to open database file: %1").arg(file)});
        ASSERT_TRUE(QFile::remove(pipe));
    }
}

TEST_F(PutBackTest, AFileThatMayNotBeOpenedMakesRoom) {
    for (const char* folder : {"", "Database", "Settings", "Jobs", "Backups", "Backups/2001-03-07"})
        ::chmod(QFile::encodeName(Path(QString::fromLatin1(folder))).constData(), 0777);
    for (const QString& file :
         {DatabaseOfCopy(CopiedDay), Copied(QStringLiteral("Settings.txt")),
          Copied(QStringLiteral("HomeJobs.dat")), Copied(QStringLiteral("SchoolJobs.dat"))})
        ::chmod(QFile::encodeName(file).constData(), 0644);
    ::chmod(QFile::encodeName(DatabaseFile()).constData(), 0);
    {
        const OrdinaryUser user;
        PutCopyBack(CopiedDay);
    }
    ExpectCopyInPlace();
    EXPECT_EQ(QDir(Path(QStringLiteral("Database"))).entryList(QDir::Files).size(), 2);
}

TEST_F(PutBackTest, PipesBesideTheFormerFileGoWithIt) {
    for (const char* beside : {"-journal", "-wal"})
        ASSERT_EQ(
            ::mkfifo(QFile::encodeName(DatabaseFile() + QLatin1String(beside)).constData(), 0600),
            0);
    PutCopyBack(CopiedDay);
    ExpectCopyInPlace();
    EXPECT_EQ(SummaryOf(DatabaseFile()).Fault, QString());
}

TEST_F(PutBackTest, TheJournalOfTheFormerFileGoesWithIt) {
    const QString journal = DatabaseFile() + QStringLiteral("-journal");
    WriteBytes(journal, "not of this file");
    PutCopyBack(CopiedDay);
    EXPECT_FALSE(QFileInfo::exists(journal));
    EXPECT_EQ(BytesOf(Copied(QStringLiteral("Charts.mdb-journal"), Kept())), "not of this file");
    ExpectCopyInPlace();
}

TEST_F(PutBackTest, ACopyOfAFileWhoseLastChangeWasInterruptedComesBackWithoutThatChange) {
    const CopySummary before = SummaryOf(DatabaseFile());
    const QString journal = QStringLiteral("-journal");
    const QString half = Path(QStringLiteral("half"));
    {
        SQLite::Database writer(DatabaseFile().toStdString(), SQLite::OPEN_READWRITE);
        // Pages go into the file before they are committed.
        writer.exec("PRAGMA cache_size=1");
        writer.exec("BEGIN");
        writer.exec("UPDATE Rows1 SET Points = 777");
        writer.exec("CREATE TABLE Filler AS WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1"
                    " FROM N WHERE I < 500) SELECT randomblob(500) FROM N");
        ASSERT_TRUE(QFile::copy(DatabaseFile(), half));
        ASSERT_TRUE(QFile::copy(DatabaseFile() + journal, half + journal));
    }
    ASSERT_TRUE(QFile::remove(DatabaseFile()));
    ASSERT_TRUE(QFile::rename(half, DatabaseFile()));
    ASSERT_TRUE(QFile::rename(half + journal, DatabaseFile() + journal));
    const QByteArray bytes = BytesOf(DatabaseFile());
    const QByteArray journalBytes = BytesOf(DatabaseFile() + journal);
    ASSERT_GT(journalBytes.size(), 512);
    PutCopyBack(CopiedDay);

    const QString kept = Kept();
    EXPECT_EQ(SummaryOfCopy(kept).Fault, QString());
    EXPECT_EQ(DifferenceOf(SummaryOfCopy(kept), before), QString());
    PutCopyBack(kept);
    EXPECT_EQ(DifferenceOf(SummaryOf(DatabaseFile()), before), QString());
    EXPECT_EQ(FindDamage(DatabaseFile()), QStringList());
    EXPECT_FALSE(QFileInfo::exists(DatabaseFile() + journal));
    EXPECT_TRUE(BytesOf(DatabaseOfCopy(kept)) == bytes) << "the copy stays as it is";
    EXPECT_TRUE(BytesOf(DatabaseOfCopy(kept) + journal) == journalBytes);
    // What was taken back elsewhere is gone again.
    EXPECT_EQ(QDir(CopiesFolder()).entryList({QStringLiteral("*.new")}, QDir::Dirs), QStringList());
}

TEST_F(PutBackTest, ACopyThatIsNotSoundIsRefusedAndChangesNothing) {
    const QByteArray before = BytesOf(DatabaseFile());
    WriteBytes(DatabaseOfCopy(CopiedDay), database_.left(database_.size() - 1));
    EXPECT_ERROR(3000, PutCopyBack(CopiedDay));
    EXPECT_TRUE(BytesOf(DatabaseFile()) == before);
    EXPECT_EQ(CopyNames().size(), 1);
}

TEST_F(PutBackTest, WhatHasBegunIsFinishedByTheNextStart) {
    WriteBytes(Path(QStringLiteral("Backups/PuttingBack.txt")), CopiedDay.toUtf8());
    WriteBytes(DatabaseFile() + QStringLiteral("-journal"), "of the former file");
    EXPECT_NE(UseData(), nullptr);
    ExpectCopyInPlace();
    EXPECT_FALSE(QFileInfo::exists(DatabaseFile() + QStringLiteral("-journal")));
}

TEST_F(PutBackTest, ANoteOfNoCopyStopsNoStart) {
    const QByteArray before = BytesOf(DatabaseFile());
    for (const char* note : {"", "2001-02-30", "../Database", "1999-01-01"}) {
        WriteBytes(Path(QStringLiteral("Backups/PuttingBack.txt")), note);
        EXPECT_NE(UseData(), nullptr) << note;
        EXPECT_FALSE(QFileInfo::exists(Path(QStringLiteral("Backups/PuttingBack.txt")))) << note;
    }
    EXPECT_TRUE(BytesOf(DatabaseFile()) == before);
}

TEST_F(PutBackTest, WhatIsNoNoteStopsNoStart) {
    const QByteArray before = BytesOf(DatabaseFile());
    const QString note = Path(QStringLiteral("Backups/PuttingBack.txt"));
    const QString elsewhere = Path(QStringLiteral("elsewhere"));
    WriteBytes(elsewhere, CopiedDay.toUtf8());
    for (const QString& target : {QStringLiteral("nowhere"), elsewhere}) {
        ASSERT_TRUE(QFile::link(target, note));
        EXPECT_NE(UseData(), nullptr);
        EXPECT_EQ(BytesOf(elsewhere), CopiedDay.toUtf8());
        ASSERT_TRUE(QFile::remove(note));
    }
    ASSERT_TRUE(QDir().mkdir(note));
    EXPECT_NE(UseData(), nullptr);
    EXPECT_TRUE(BytesOf(DatabaseFile()) == before);
}

TEST_F(PutBackTest, WhatCannotBeFinishedIsToldWithTheWayOutAndFinishedOnceItCan) {
    const QString inTheWay = DatabaseFile() + QStringLiteral("-journal");
    ASSERT_TRUE(QDir().mkdir(inTheWay));
    const QString advice =
        QStringLiteral("%1 is a folder, and a file belongs there. Rename the folder, and put the "
                       "file in its place.")
            .arg(inTheWay);
    EXPECT_FALSE(IsPuttingBack());
    const auto adviceOf = [](const auto& work) {
        try {
            work();
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), 75);
            return error.Advice();
        }
        return QString();
    };
    EXPECT_EQ(adviceOf([] { PutCopyBack(CopiedDay); }), advice);
    EXPECT_TRUE(IsPuttingBack());
    EXPECT_EQ(adviceOf([] { UseData(); }), advice);
    EXPECT_TRUE(IsPuttingBack());
    ASSERT_TRUE(QDir().rmdir(inTheWay));
    EXPECT_NE(UseData(), nullptr);
    EXPECT_FALSE(IsPuttingBack());
    ExpectCopyInPlace();
}

TEST_F(PutBackTest, FilesOfAFormerFormatAreReadAndComeBack) {
    const CopySummary before = SummaryNow();
    EXPECT_EQ(before.Accounts.size(), 2);
    const CopySummary copy = SummaryOfCopy(CopiedDay);
    TakeSumsOff(DatabaseFile());
    TakeSumsOff(DatabaseOfCopy(CopiedDay));
    const QByteArray now = BytesOf(DatabaseFile());
    const QByteArray copied = BytesOf(DatabaseOfCopy(CopiedDay));
    EXPECT_EQ(SummaryNow().Fault, QString());
    EXPECT_EQ(DifferenceOf(SummaryNow(), before), QString());
    EXPECT_EQ(DifferenceOf(SummaryOfCopy(CopiedDay), copy), QString());
    EXPECT_TRUE(BytesOf(DatabaseFile()) == now) << "looking changes nothing";
    EXPECT_TRUE(BytesOf(DatabaseOfCopy(CopiedDay)) == copied);

    PutCopyBack(CopiedDay);
    EXPECT_EQ(DifferenceOf(SummaryOf(DatabaseFile()), copy), QString());
    EXPECT_TRUE(BytesOf(DatabaseOfCopy(Kept())) == now);
    PutCopyBack(Kept());
    EXPECT_EQ(DifferenceOf(SummaryOf(DatabaseFile()), before), QString());
    EXPECT_EQ(FindDamage(DatabaseFile()), QStringList());
    EXPECT_EQ(QDir(CopiesFolder()).entryList({QStringLiteral("*.new")}, QDir::Dirs), QStringList());
}

TEST_F(PutBackTest, OnlyFoldersWithTheNamesOfCopiesAreListed) {
    for (const char* name : {"2001-02-28", "2001-03-07 10.20.30 before", "mine", "2001-3-7",
                             "2001-03-07 before", "0123456789abcdef.new"})
        QDir().mkpath(Path(QStringLiteral("Backups/") + QString::fromLatin1(name)));
    QFile::link(Path(QStringLiteral("Jobs")), Path(QStringLiteral("Backups/2001-03-01")));
    EXPECT_EQ(CopyNames(), QStringList({QStringLiteral("2001-03-07 10.20.30 before"), CopiedDay,
                                        QStringLiteral("2001-02-28")}));
    EXPECT_EQ(CopyTitle(CopiedDay), QStringLiteral("Wednesday, 7 March 2001"));
    EXPECT_EQ(CopyTitle(Kept()), QStringLiteral("Wednesday, 7 March 2001, 10:20"));
}

TEST_F(PutBackTest, CopiesHaveEnglishTitlesOnEverySystem) {
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    EXPECT_EQ(CopyTitle(CopiedDay), QStringLiteral("Wednesday, 7 March 2001"));
    EXPECT_EQ(CopyTitle(QStringLiteral("2001-03-07 10.20.30 before")),
              QStringLiteral("Wednesday, 7 March 2001, 10:20"));
}

TEST_F(PutBackTest, TheDifferenceIsToldInNumbersThatAParentKnows) {
    const CopySummary copy = SummaryOf(DatabaseOfCopy(CopiedDay));
    const CopySummary now = SummaryOf(DatabaseFile());
    EXPECT_EQ(copy.Accounts, QStringList{QStringLiteral("Anna")});
    EXPECT_EQ(copy.Charts, QStringList{QStringLiteral("Chores Anna")});
    EXPECT_EQ(copy.PastWeeks, 0);
    EXPECT_EQ(DifferenceOf(copy, now),
              QStringLiteral("1 account fewer, 1 past week fewer, Anna has 40 points fewer"));
    EXPECT_EQ(DifferenceOf(now, copy),
              QStringLiteral("1 account more, 1 past week more, Anna has 40 points more"));
    EXPECT_EQ(DifferenceOf(now, now), QString());
    EXPECT_EQ(SummaryOf(DatabaseFile() + QStringLiteral(".none")).Fault.isEmpty(), false);
}

TEST(DifferenceOfTest, ManyChildrenAreCountedAndOthersInTheirPlaceAreBothToldOf) {
    CopySummary copy;
    CopySummary now;
    for (int child = 0; child < 5; ++child) {
        copy.Children += {QStringLiteral("C%1").arg(child), child + 1};
        now.Children += {QStringLiteral("C%1").arg(child), 0};
    }
    copy.Charts = {QStringLiteral("a"), QStringLiteral("b")};
    now.Charts = {QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d")};
    EXPECT_EQ(DifferenceOf(copy, now),
              QStringLiteral("2 charts fewer, 1 chart more, C0 has 1 point more, C1 has 2 points "
                             "more, C2 has 3 points more, 2 more children have other points"));
}

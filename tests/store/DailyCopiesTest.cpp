#include "store/DailyCopies.h"

#include "platform/runtime/Actions.h"
#include "platform/runtime/Dates.h"
#include "platform/runtime/ProgramFolder.h"
#include "platform/tables/Damage.h"
#include "store/ProgramFiles.h"
#include "store/TableNames.h"
#include "tests/common/FileBytes.h"
#include "tests/common/FileModes.h"
#include "tests/common/FullDisk.h"
#include "tests/common/OrdinaryUser.h"
#include "tests/common/SmallDisk.h"
#include "tests/common/TestWorld.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <filesystem>
#include <sys/stat.h>

namespace {

const QString Words =
    QStringLiteral("Today's safety copy of your accounts and Dutygrids could not be made.\n\n%1\n\n"
                   "What you do is stored as always, and the copies of earlier days are still "
                   "there.");

unsigned RightsOf(const QString& path) {
    struct stat info {};
    EXPECT_EQ(::lstat(QFile::encodeName(path).constData(), &info), 0) << path.toStdString();
    return info.st_mode & 07777U;
}

QList<QDate> DatesOf(const QStringList& texts) {
    QList<QDate> days;
    for (const QString& text : texts)
        days += QDate::fromString(text, Qt::ISODate);
    return days;
}

} // namespace

/// A run that keeps copies.
class DailyCopiesTest : public ProgramTest {
protected:
    DailyCopiesTest() { KeepDailyCopies(true); }
    ~DailyCopiesTest() override { KeepDailyCopies(false); }

    static void Change() {
        RunAction([] {
            Database().AddUser(QStringLiteral("Anna"), QStringLiteral("a"),
                               QStringLiteral("Student"), QString());
        });
    }
    /// A change, and what the program does when it has nothing else to do.
    static void ChangeAndRest() {
        Change();
        QCoreApplication::processEvents();
    }
    static QString Copy(const QString& day, const QString& file = QStringLiteral("Charts.mdb")) {
        return Path(QStringLiteral("Backups/%1/%2").arg(day, file));
    }
    static QStringList Copies() {
        return QDir(Path(QStringLiteral("Backups")))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    static int AccountsIn(const QString& file) {
        return TableStore::OpenToRead(file)->OpenRecordset(UsersTable).RecordCount();
    }
};

TEST_F(DailyCopiesTest, TheFirstChangeOfADayLeavesACopyOfTheStateBeforeIt) {
    ChangeAndRest();
    EXPECT_EQ(Copies(), QStringList{QStringLiteral("2001-03-07")});
    EXPECT_EQ(QDir(Path(QStringLiteral("Backups/2001-03-07")))
                  .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList({QStringLiteral("Charts.mdb"), QStringLiteral("HomeJobs.dat"),
                           QStringLiteral("SchoolJobs.dat"), QStringLiteral("Settings.txt")}));
    EXPECT_EQ(AccountsIn(Copy(QStringLiteral("2001-03-07"))), 0);
    EXPECT_EQ(FindDamage(Copy(QStringLiteral("2001-03-07"))), QStringList());
    EXPECT_EQ(BytesOf(Copy(QStringLiteral("2001-03-07"), QStringLiteral("HomeJobs.dat"))),
              BytesOf(Path(QStringLiteral("Jobs/HomeJobs.dat"))));
    EXPECT_EQ(BytesOf(Copy(QStringLiteral("2001-03-07"), QStringLiteral("Settings.txt"))),
              BytesOf(Path(QStringLiteral("Settings/Settings.txt"))));
}

TEST_F(DailyCopiesTest, TheDaysOtherChangesAndOtherRunsLeaveTheCopyAsItIs) {
    ChangeAndRest();
    const QByteArray first = BytesOf(Copy(QStringLiteral("2001-03-07")));
    ChangeAndRest();
    KeepDailyCopies(false);
    KeepDailyCopies(true);
    ChangeAndRest();
    EXPECT_EQ(BytesOf(Copy(QStringLiteral("2001-03-07"))), first);

    SetToday(QDate(2001, 3, 8));
    ChangeAndRest();
    EXPECT_EQ(AccountsIn(Copy(QStringLiteral("2001-03-08"))), 3);
}

TEST_F(DailyCopiesTest, ReadingLeavesNoCopy) {
    RunAction([] { Database().RetrevePassword(QStringLiteral("Anna")); });
    QCoreApplication::processEvents();
    EXPECT_FALSE(QFileInfo::exists(Path(QStringLiteral("Backups"))));
}

TEST_F(DailyCopiesTest, ACopyTakesItsNameWhenItHasBeenChecked) {
    Change();
    ASSERT_EQ(Copies().size(), 1);
    EXPECT_TRUE(Copies().value(0).endsWith(QLatin1String(".new")));
    ResetSession();
    EXPECT_EQ(Copies(), QStringList{QStringLiteral("2001-03-07")});
}

TEST_F(DailyCopiesTest, ACopyThatFailsItsCheckReplacesNoneDeletesNoneAndIsToldOnce) {
    for (int day = 1; day < 30; ++day)
        QDir().mkpath(Path(QStringLiteral("Backups/1999-01-%1").arg(day, 2, 10, QLatin1Char('0'))));
    const QStringList before = Copies();
    Change();
    for (const QString& name : Copies())
        if (name.endsWith(QLatin1String(".new"))) {
            QFile file(Copy(name));
            ASSERT_TRUE(file.open(QIODevice::ReadWrite));
            file.seek(4096);
            file.write(QByteArray(4096, 'x'));
        }
    QCoreApplication::processEvents();
    EXPECT_EQ(Copies(), before);
    // The box comes when the program rests again.
    Boxes.Expect(Words.arg(
        QStringLiteral("The copy did not pass its check, so the "
                       "file itself may be damaged. Please end the program and start \"Sparkit "
                       "Dutygrid Restore\", which can put back the copy of an earlier day.")));
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    Boxes.VerifyAllShown();
    ChangeAndRest();
    EXPECT_EQ(Rows(UsersTable).size(), 2);
}

TEST_F(DailyCopiesTest, AFolderThatCannotBeWrittenIsToldOnceInARunAndTheWorkGoesOn) {
    ASSERT_TRUE(QDir().mkdir(Path(QStringLiteral("Backups"))));
    const FileMode backups(Path(QStringLiteral("Backups")), 0500);
    for (const QString& entry :
         {QString(), QStringLiteral("Database"), QStringLiteral("Database/Charts.mdb")})
        ASSERT_EQ(::chmod(QFile::encodeName(Path(entry)).constData(), 0777), 0);
    Boxes.Expect(Words.arg(QStringLiteral("Nothing can be stored in the folder %1. Please ask the "
                                          "person who looks after this computer.")
                               .arg(Path(QStringLiteral("Backups")))));
    {
        const OrdinaryUser user;
        ChangeAndRest();
        SetToday(QDate(2001, 3, 8));
        ChangeAndRest();
    }
    Boxes.VerifyAllShown();
    EXPECT_EQ(Copies(), QStringList());
    EXPECT_EQ(Rows(UsersTable).size(), 2);
}

TEST_F(DailyCopiesTest, AFullDiskIsToldAndLeavesNothingBehind) {
    ASSERT_TRUE(QDir().mkdir(Path(QStringLiteral("Backups"))));
    {
        const FullDisk disk(8192);
        RunAction([] { Database().RetrevePassword(QStringLiteral("Anna")); });
        CopyBeforeChange(*TableStore::OpenToRead(Path(QStringLiteral("Database/Charts.mdb"))));
    }
    Boxes.Expect(Words.arg(QStringLiteral("The computer says: disk I/O error (%1)")
                               .arg(Path(QStringLiteral("Backups")))));
    QCoreApplication::processEvents();
    Boxes.VerifyAllShown();
    EXPECT_EQ(Copies(), QStringList());
}

TEST_F(DailyCopiesTest, AFailingCopyTakesNothingFromTheActionThatItComesBefore) {
    const QString picture = Path(QStringLiteral("large.bmp"));
    WriteBytes(picture, QByteArray(200'000, 'x'));
    KeepDailyCopies(false);
    Change();
    RunAction([&] {
        Database().AddUser(QStringLiteral("Ben"), QStringLiteral("b"), QStringLiteral("Student"),
                           picture);
    });
    KeepDailyCopies(true);
    const QString file = Path(QStringLiteral("Database/Charts.mdb"));
    Boxes.Expect(Words.arg(QStringLiteral("The computer says: disk I/O error (%1)")
                               .arg(Path(QStringLiteral("Backups")))));
    {
        // Room for the rows, which stand before the picture, but not for a second file as large.
        const FullDisk disk(QFileInfo(file).size() - 16'384);
        RunAction([] {
            Database().AddPoints(QStringLiteral("Anna"), 5, false);
            // As at a box in the middle of it.
            CommitAction();
            Database().AddPoints(QStringLiteral("Anna"), 2, false);
        });
    }
    QCoreApplication::processEvents();
    Boxes.VerifyAllShown();
    const auto tables = TableStore::OpenToRead(file);
    EXPECT_EQ(tables->OpenRecordset(UsersTable).Value(QStringLiteral("Points")).toInt(), 7);
}

TEST_F(DailyCopiesTest, OnlyTheOwnerAndTheGroupMayReadWhatTheyMayReadThere) {
    ::chmod(QFile::encodeName(Path(QStringLiteral("Database/Charts.mdb"))).constData(), 0664);
    ChangeAndRest();
    EXPECT_EQ(RightsOf(Path(QStringLiteral("Backups"))), 0770U);
    EXPECT_EQ(RightsOf(Path(QStringLiteral("Backups/2001-03-07"))), 0770U);
    EXPECT_EQ(RightsOf(Copy(QStringLiteral("2001-03-07"))), 0660U);
    EXPECT_EQ(RightsOf(Copy(QStringLiteral("2001-03-07"), QStringLiteral("Settings.txt"))), 0660U);

    ::chmod(QFile::encodeName(Path(QStringLiteral("Database/Charts.mdb"))).constData(), 0600);
    SetToday(QDate(2001, 3, 8));
    ChangeAndRest();
    EXPECT_EQ(RightsOf(Path(QStringLiteral("Backups/2001-03-08"))), 0700U);
    EXPECT_EQ(RightsOf(Copy(QStringLiteral("2001-03-08"))), 0600U);
}

TEST_F(DailyCopiesTest, NoLinkIsFollowed) {
    QDir().mkpath(Path(QStringLiteral("Backups")));
    QDir().mkpath(Path(QStringLiteral("trap/1999-01-01")));
    QFile::copy(Path(QStringLiteral("Settings/Settings.txt")),
                Path(QStringLiteral("trap/1999-01-01/mine")));
    // In the place of today's copy, of one that is too old, and of a list of jobs.
    QFile::link(Path(QStringLiteral("trap")), Path(QStringLiteral("Backups/2001-03-07")));
    QFile::link(Path(QStringLiteral("trap/1999-01-01")),
                Path(QStringLiteral("Backups/1999-01-01")));
    QFile::link(Path(QStringLiteral("trap/1999-01-01/mine")), Path(QStringLiteral("Jobs/Own.dat")));
    QDir().mkpath(Path(QStringLiteral("Backups/1999-01-02")));
    QFile::link(Path(QStringLiteral("trap/1999-01-01")),
                Path(QStringLiteral("Backups/1999-01-02/inside")));
    for (int day = 1; day < 30; ++day)
        QDir().mkpath(Path(QStringLiteral("Backups/2000-01-%1").arg(day, 2, 10, QLatin1Char('0'))));
    SetToday(QDate(2001, 3, 8));
    ChangeAndRest();
    EXPECT_FALSE(QFileInfo::exists(Copy(QStringLiteral("2001-03-08"), QStringLiteral("Own.dat"))));
    EXPECT_TRUE(QFileInfo::exists(Copy(QStringLiteral("2001-03-08"))));
    EXPECT_TRUE(QFileInfo::exists(Path(QStringLiteral("trap/1999-01-01/mine"))));
    EXPECT_EQ(QDir(Path(QStringLiteral("trap")))
                  .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList{QStringLiteral("1999-01-01")});
}

TEST_F(DailyCopiesTest, AListThatCannotBeReadIsLeftOutAndToldOnce) {
    const QString large = Path(QStringLiteral("Jobs/Large.dat"));
    const QString locked = Path(QStringLiteral("Jobs/Locked.dat"));
    ASSERT_TRUE(QFile(large).open(QIODevice::WriteOnly));
    ASSERT_TRUE(QFile::resize(large, LargestSmallFile + 1));
    WriteBytes(locked, "locked");
    for (const QString& entry : {QString(), QStringLiteral("Database"), QStringLiteral("Jobs"),
                                 QStringLiteral("Database/Charts.mdb")})
        QFile::setPermissions(Path(entry), QFile::Permissions(0x7777));
    QFile::setPermissions(locked, {});
    Boxes.Expect(QStringLiteral("Today's safety copy holds your accounts and Dutygrids, but not "
                                "these files, which cannot be read or are too large:\n\n%1\n%2")
                     .arg(large, locked));
    {
        const OrdinaryUser user;
        ChangeAndRest();
        // The box comes when the program rests again.
        QCoreApplication::processEvents();
        SetToday(QDate(2001, 3, 8));
        ChangeAndRest();
        QCoreApplication::processEvents();
    }
    Boxes.VerifyAllShown();
    for (const QString& day : {QStringLiteral("2001-03-07"), QStringLiteral("2001-03-08")}) {
        EXPECT_TRUE(FindDamage(Copy(day)).isEmpty());
        EXPECT_TRUE(QFileInfo::exists(Copy(day, QStringLiteral("HomeJobs.dat"))));
        EXPECT_FALSE(QFileInfo::exists(Copy(day, QStringLiteral("Large.dat"))));
        EXPECT_FALSE(QFileInfo::exists(Copy(day, QStringLiteral("Locked.dat"))));
    }
}

TEST_F(DailyCopiesTest, AListLeftOutKeepsNoFailureFromBeingToldAndIsToldOfAWholeCopyAlone) {
    ASSERT_TRUE(QFile::resize(Path(QStringLiteral("Jobs/HomeJobs.dat")), LargestSmallFile + 1));
    const QString leftOut =
        QStringLiteral("Today's safety copy holds your accounts and Dutygrids, but not these "
                       "files, which cannot be read or are too large:\n\n%1")
            .arg(Path(QStringLiteral("Jobs/HomeJobs.dat")));
    const auto changeAndDamageTheCopy = [] {
        Change();
        for (const QString& name : Copies())
            if (name.endsWith(QLatin1String(".new")))
                WriteBytes(Copy(name), "damaged");
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    };
    const QString failure = Words.arg(
        QStringLiteral("The copy did not pass its check, so the file itself may be damaged. Please "
                       "end the program and start \"Sparkit Dutygrid Restore\", which can put back "
                       "the copy of an earlier day."));
    Boxes.Expect(leftOut);
    ChangeAndRest();
    QCoreApplication::processEvents();
    Boxes.VerifyAllShown();
    SetToday(QDate(2001, 3, 8));
    Boxes.Expect(failure);
    changeAndDamageTheCopy();
    Boxes.VerifyAllShown();

    KeepDailyCopies(true);
    SetToday(QDate(2001, 3, 9));
    Boxes.Expect(failure);
    changeAndDamageTheCopy();
    Boxes.VerifyAllShown();
}

TEST_F(DailyCopiesTest, ALinkInPlaceOfTodaysCopyIsTold) {
    const QString trap = Path(QStringLiteral("trap"));
    QDir().mkpath(Path(QStringLiteral("Backups")));
    QDir().mkpath(trap);
    ASSERT_TRUE(QFile::link(trap, Path(QStringLiteral("Backups/2001-03-07"))));
    Boxes.Expect(Words.arg(QStringLiteral("Nothing can be stored in the folder %1. Please ask the "
                                          "person who looks after this computer.")
                               .arg(Path(QStringLiteral("Backups")))));
    ChangeAndRest();
    // The box comes when the program rests again.
    QCoreApplication::processEvents();
    Boxes.VerifyAllShown();
    EXPECT_TRUE(QDir(trap).isEmpty());
    EXPECT_EQ(Copies(), QStringList{QStringLiteral("2001-03-07")});
}

TEST_F(DailyCopiesTest, ADiskWithoutRoomIsToldInPlainWords) {
    SmallDisk disk("8m");
    disk.Need();
    if (!disk.IsMounted())
        return;
    RunAction([this] {
        Database().AddUser(QStringLiteral("Ben"), QStringLiteral("b"), QStringLiteral("Student"),
                           PictureFile());
    });
    ResetSession();
    const QString home = ProgramFolder();
    ASSERT_EQ(QProcess::execute(QStringLiteral("cp"),
                                {QStringLiteral("-a"), home + QStringLiteral("/."), disk.Folder()}),
              0);
    ASSERT_TRUE(QDir(disk.Folder() + QStringLiteral("/Backups")).removeRecursively());
    SetProgramFolder(disk.Folder());
    Database().InitDatabse();
    KeepDailyCopies(true);
    // Room for what the change writes, and none for a second file as large.
    ASSERT_TRUE(disk.Fill(8));
    Boxes.Expect(Words.arg(QStringLiteral("There is no room left on the disk. Please delete "
                                          "something that you no longer need.")));
    ChangeAndRest();
    Boxes.VerifyAllShown();
    EXPECT_EQ(Rows(UsersTable).size(), 2);
    ResetSession();
    SetProgramFolder(home);
}

TEST_F(DailyCopiesTest, WhatKillsHaveLeftIsRemovedAndOtherFoldersStay) {
    for (const QString& name :
         {QStringLiteral("0123456789abcdef.new"), QStringLiteral("fedcba9876543210.new"),
          QStringLiteral("My own"), QStringLiteral("2001-3-1")})
        QDir().mkpath(Path(QStringLiteral("Backups/%1/sub").arg(name)));
    namespace fs = std::filesystem;
    fs::last_write_time(Path(QStringLiteral("Backups/0123456789abcdef.new")).toStdString(),
                        fs::file_time_type::clock::now() - std::chrono::hours(1));
    ChangeAndRest();
    EXPECT_EQ(Copies(),
              QStringList({QStringLiteral("2001-03-07"), QStringLiteral("2001-3-1"),
                           QStringLiteral("fedcba9876543210.new"), QStringLiteral("My own")}));
}

TEST_F(DailyCopiesTest, AYearOfDaysLeavesSevenDaysFourWeeksAndTwelveMonths) {
    QDate day(2001, 3, 7);
    for (int count = 0; count < 400; ++count, day = day.addDays(1)) {
        SetToday(day);
        ChangeAndRest();
    }
    // Until Wednesday 10 April 2002.
    EXPECT_EQ(Copies(), QStringList({QStringLiteral("2001-05-31"), QStringLiteral("2001-06-30"),
                                     QStringLiteral("2001-07-31"), QStringLiteral("2001-08-31"),
                                     QStringLiteral("2001-09-30"), QStringLiteral("2001-10-31"),
                                     QStringLiteral("2001-11-30"), QStringLiteral("2001-12-31"),
                                     QStringLiteral("2002-01-31"), QStringLiteral("2002-02-28"),
                                     QStringLiteral("2002-03-24"), QStringLiteral("2002-03-31"),
                                     QStringLiteral("2002-04-04"), QStringLiteral("2002-04-05"),
                                     QStringLiteral("2002-04-06"), QStringLiteral("2002-04-07"),
                                     QStringLiteral("2002-04-08"), QStringLiteral("2002-04-09"),
                                     QStringLiteral("2002-04-10")}));
}

TEST_F(DailyCopiesTest, AFileWithoutTablesIsNotCopied) {
    ResetSession();
    ASSERT_TRUE(QFile::remove(Path(QStringLiteral("Database/Charts.mdb"))));
    Database().InitDatabse();
    RunAction([] { Database().CreateChart(QStringLiteral("Chores")); });
    QCoreApplication::processEvents();
    EXPECT_FALSE(QFileInfo::exists(Path(QStringLiteral("Backups"))));
}

TEST(CopiesToKeepTest, KeepsTheLastDaysWeeksAndMonthsThatHaveCopies) {
    struct Case {
        const char* what;
        QStringList days;
        QString today;
        QStringList kept;
    };
    const auto text = [](const char* words) { return QString::fromLatin1(words); };
    const QList<Case> cases{
        {"none", {}, text("2026-03-08"), {}},
        {"eight days of one week and month",
         text("2026-03-08 2026-03-07 2026-03-06 2026-03-05 2026-03-04 2026-03-03 2026-03-02")
                 .split(QLatin1Char(' ')) +
             QStringList{text("2026-03-02")},
         text("2026-03-08"),
         text("2026-03-08 2026-03-07 2026-03-06 2026-03-05 2026-03-04 2026-03-03 2026-03-02")
             .split(QLatin1Char(' '))},
        {"days with gaps count, not the calendar",
         text("2026-03-08 2025-01-07 2024-06-06 2020-03-05 2019-03-04 2018-03-03 2017-03-02")
             .split(QLatin1Char(' ')),
         text("2026-03-08"),
         text("2026-03-08 2025-01-07 2024-06-06 2020-03-05 2019-03-04 2018-03-03 2017-03-02")
             .split(QLatin1Char(' '))},
        // 28 December 2025 is in week 52, 29 December already in week 1 of 2026.
        {"the newest of a week, over the turn of the year",
         text("2026-01-10 2026-01-09 2026-01-08 2026-01-07 2026-01-06 2026-01-05 2026-01-04 "
              "2026-01-03 2025-12-29 2025-12-28 2025-12-27 2025-12-21")
             .split(QLatin1Char(' ')),
         text("2026-01-10"),
         text("2026-01-10 2026-01-09 2026-01-08 2026-01-07 2026-01-06 2026-01-05 2026-01-04 "
              "2025-12-29 2025-12-28 2025-12-21")
             .split(QLatin1Char(' '))},
        {"a clock that ran ahead pushes nothing out",
         text("2099-01-01 2098-01-01 2026-03-07 2026-03-06 2026-03-05 2026-03-04 2026-03-03 "
              "2026-03-02 2026-03-01")
             .split(QLatin1Char(' ')),
         text("2026-03-07"),
         text("2099-01-01 2098-01-01 2026-03-07 2026-03-06 2026-03-05 2026-03-04 2026-03-03 "
              "2026-03-02 2026-03-01")
             .split(QLatin1Char(' '))},
        {"a clock that runs ahead, as its own day's copy is made",
         text("2099-01-01 2026-03-07 2026-03-06 2026-03-05 2026-03-04 2026-03-03 2026-03-02")
             .split(QLatin1Char(' ')),
         text("2099-01-01"),
         text("2099-01-01 2026-03-07 2026-03-06 2026-03-05 2026-03-04 2026-03-03 2026-03-02")
             .split(QLatin1Char(' '))},
    };
    for (const Case& one : cases) {
        QList<QDate> kept =
            CopiesToKeep(DatesOf(one.days), QDate::fromString(one.today, Qt::ISODate));
        QStringList texts;
        for (const QDate& day : kept)
            if (!texts.contains(day.toString(Qt::ISODate)))
                texts += day.toString(Qt::ISODate);
        EXPECT_EQ(texts, one.kept) << one.what;
    }
}

TEST(CopiesToKeepTest, ThirteenMonthsLoseTheFirst) {
    QList<QDate> days;
    for (int month = 0; month < 13; ++month)
        days += QDate(2025, 1, 31).addMonths(month);
    const QList<QDate> kept = CopiesToKeep(days, QDate(2026, 1, 31));
    EXPECT_EQ(kept.size(), 12);
    EXPECT_FALSE(kept.contains(QDate(2025, 1, 31)));
}

TEST(DayOfCopyTest, OnlyADayInFullIsOne) {
    EXPECT_EQ(DayOfCopy(QStringLiteral("2026-03-08")), QDate(2026, 3, 8));
    for (const char* other : {"2026-3-8", "2026-02-30", "2026-03-08 ", "2026-03-08.new", "", ".."})
        EXPECT_FALSE(DayOfCopy(QString::fromLatin1(other)).isValid()) << other;
}

#include "tests/common/FullDisk.h"
#include "platform/runtime/Actions.h"
#include "platform/runtime/ProgramFolder.h"
#include "tests/common/SmallDisk.h"
#include "tests/faults/FaultWorld.h"
#include "tests/faults/Household.h"
#include "tests/faults/Snapshot.h"

#include <QFile>
#include <QFileInfo>

namespace {

void AddChildren() {
    for (const char* name : {"Anna", "Ben", "Carla"})
        RunAction([&] {
            Database().AddUser(QString::fromLatin1(name), QStringLiteral("pw"),
                               QStringLiteral("Student"), QString());
        });
}

/// A chart of so many jobs for every day, saved for the three children in one action.
void SaveForAll(Household& family, FakeEditor& editor, int jobs, const QString& word) {
    editor.rows.clear();
    for (int job = 0; job < jobs; ++job)
        editor.rows.append({word + QStringLiteral(" number %1, with care").arg(job),
                            QStringLiteral("Sun-Sat"), QStringLiteral("Mum"),
                            QStringLiteral("Easy"), QStringLiteral("3")});
    RunAction([&] {
        family.SaveChart(QStringLiteral("Chores"),
                         {QStringLiteral("Anna"), QStringLiteral("Ben"), QStringLiteral("Carla")},
                         true);
    });
}

} // namespace

TEST_F(FaultTest, ASaveThatFindsNoRoomShowsTheEnginesWordsAndKeepsTheChartsAsTheyWere) {
    Database().InitDatabse();
    Household family(1, QString());
    FakeEditor editor;
    AddChildren();
    SaveForAll(family, editor, 4, QStringLiteral("Wash"));
    const QByteArray before = SnapshotOf(File());
    ASSERT_EQ(Boxes.Errors(), QStringList());

    int failures = 0;
    for (qint64 limit = 512;; limit += 2048) {
        ASSERT_LT(limit, 4'000'000) << "no save has failed and none has succeeded";
        Boxes.Shown.clear();
        {
            const FullDisk noRoom(limit);
            SaveForAll(family, editor, 12, QStringLiteral("Sweep"));
        }
        if (Boxes.Errors().isEmpty())
            break;
        ++failures;
        EXPECT_EQ(Boxes.Errors().size(), 1) << limit;
        EXPECT_TRUE(Boxes.Errors().constFirst().contains(QLatin1String("disk")))
            << Boxes.Errors().constFirst().toStdString();
        const QByteArray after = SnapshotOf(File());
        ASSERT_TRUE(after == before)
            << limit << " bytes: " << FirstDifference(before, after).constData();
    }
    EXPECT_GE(failures, 10);
    const QByteArray saved = SnapshotOf(File());
    EXPECT_TRUE(saved.startsWith(SoundFile));
    EXPECT_TRUE(saved.contains("Sweep number 11, with care"));
    EXPECT_FALSE(saved.contains("Sweep number 12, with care"));
}

TEST_F(FaultTest, AFullDiskLosesNothingThatWasReportedAsDoneAndTheProgramGoesOnOnceThereIsRoom) {
    const SmallDisk disk("400k");
    disk.Need();
    if (!disk.IsMounted())
        return;
    MakeEmptyDatabase(disk.Folder());
    SetProgramFolder(disk.Folder());
    const QString file = ChartsFile(disk.Folder());
    const QString filler = disk.Folder() + QStringLiteral("/filler");
    WriteBytes(filler, QByteArray(120'000, 'x'));
    Database().InitDatabse();
    Household family(1, QString());
    FakeEditor editor;
    AddChildren();

    // Every save is larger than the one before; sooner or later the disk is full.
    QByteArray lastDone;
    int jobs = 4;
    for (; Boxes.Errors().isEmpty(); jobs += 8) {
        ASSERT_LT(jobs, 1000);
        lastDone = SnapshotOf(file);
        SaveForAll(family, editor, jobs, QStringLiteral("Sweep"));
    }
    EXPECT_GT(jobs, 12) << "the first save has failed";
    EXPECT_TRUE(Boxes.Errors().constFirst().contains(QLatin1String("database or disk is full")))
        << Boxes.Errors().constFirst().toStdString();
    const QByteArray found = SnapshotOf(file);
    EXPECT_TRUE(found == lastDone) << FirstDifference(lastDone, found).constData();

    QFile::remove(filler);
    Boxes.Shown.clear();
    SaveForAll(family, editor, 5, QStringLiteral("Polish"));
    EXPECT_EQ(Boxes.Errors(), QStringList());
    EXPECT_TRUE(SnapshotOf(file).contains("Polish number 4, with care"));
    ResetSession();
}

TEST_F(FaultTest, APictureThatFindsNoRoomLeavesTheAccountWithItsFormerPicture) {
    Database().InitDatabse();
    const QString small = Folder() + QStringLiteral("/small");
    const QString large = Folder() + QStringLiteral("/large");
    WriteBytes(small, QByteArray(5'000, 's'));
    WriteBytes(large, QByteArray(300'000, 'l'));
    RunAction([&] {
        Database().AddUser(QStringLiteral("Anna"), QStringLiteral("pw"), QStringLiteral("Student"),
                           small);
    });
    const QByteArray before = SnapshotOf(File());
    {
        const FullDisk noRoom(QFileInfo(File()).size() + 100'000);
        RunAction([&] { Database().ChangePicture(QStringLiteral("Anna"), large); });
    }
    EXPECT_EQ(Boxes.Errors().size(), 1);
    EXPECT_TRUE(SnapshotOf(File()) == before);

    RunAction([&] { Database().ChangePicture(QStringLiteral("Anna"), large); });
    EXPECT_EQ(Boxes.Errors().size(), 1);
    EXPECT_TRUE(SnapshotOf(File()).contains("blob 300010 "));
}

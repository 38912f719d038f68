#include "tests/faults/disk/PowerCut.h"
#include "platform/runtime/ProgramFolder.h"
#include "tests/common/MemoryFolder.h"
#include "tests/common/Rounds.h"
#include "tests/faults/ChildProcess.h"
#include "tests/faults/EachCall.h"
#include "tests/faults/FaultWorld.h"
#include "tests/faults/Household.h"
#include "tests/faults/SmallFiles.h"
#include "tests/faults/Snapshot.h"

#include <QDir>
#include <QFile>
#include <iostream>

namespace {

class PowerCutTest : public FaultTest {
protected:
    QList<RecordedCall> Record(const QStringList& arguments) const {
        return RecordOf(arguments, Folder());
    }

    std::mt19937 Chance{Seed()};
};

} // namespace

TEST_F(PowerCutTest, TheDatabaseIsAsItWasAfterTheLastActionReportedOrTheNext) {
    const int families = Rounds(3, 30);
    constexpr int Actions = 40;
    constexpr int CutsOfAFamily = 100;
    const int cuts = families * Rounds(CutsOfAFamily, 10 * CutsOfAFamily);
    QTemporaryDir pictures(MemoryFolder());
    Household::MakePictures(pictures.path());
    int bad = 0;
    int badWithoutAFolderSync = 0;
    int badWithoutAJournalSync = 0;
    for (int family = 0; family < families; ++family) {
        WriteBytes(File(), {});
        QFile::remove(File());
        MakeEmptyDatabase(Folder());
        const CutDisk disk(Folder());
        const quint32 seed = 40 + static_cast<quint32>(family);
        const QList<RecordedCall> calls =
            Record({PlayCommand, Folder(), pictures.path(), QString::number(seed),
                    QStringLiteral("1"), QString::number(Actions)});
        ASSERT_GE(calls.size(), 10 * Actions);

        const QTemporaryDir modelFolder(MemoryFolder());
        MakeEmptyDatabase(modelFolder.path());
        ResetSession();
        SetProgramFolder(modelFolder.path());
        Database().InitDatabse();
        Household model(seed, pictures.path());
        QByteArrayList states{SnapshotOf(ChartsFile(modelFolder.path()))};
        for (int action = 1; action <= Actions; ++action) {
            model.Do(action);
            states += SnapshotOf(ChartsFile(modelFolder.path()));
        }
        ASSERT_EQ(Boxes.Errors(), QStringList());

        const auto isGood = [&](const QString& folder, int reported) {
            try {
                const QByteArray found = SnapshotOf(ChartsFile(folder));
                return found == states.value(reported) || found == states.value(reported + 1);
            } catch (const std::exception&) {
                return false;
            }
        };
        bad += PowerCuts(disk, calls).Bad(cuts / families, Chance, isGood);
        // What would be lost with a sync less shows that these cuts can lose something.
        CutDisk forgetful(disk);
        forgetful.IgnoreSyncs(
            [this](const QString& path) { return path == QFileInfo(File()).path(); });
        badWithoutAFolderSync += PowerCuts(forgetful, calls).Bad(CutsOfAFamily, Chance, isGood);
        forgetful = disk;
        forgetful.IgnoreSyncs(
            [](const QString& path) { return path.endsWith(QLatin1String("-journal")); });
        badWithoutAJournalSync += PowerCuts(forgetful, calls).Bad(CutsOfAFamily, Chance, isGood);
    }
    std::cout << cuts << " cuts, " << bad << " of them bad; without syncs of the folder "
              << badWithoutAFolderSync << ", without syncs of the journal "
              << badWithoutAJournalSync << " of " << families * CutsOfAFamily << '\n';
    EXPECT_EQ(bad, 0);
    EXPECT_GT(badWithoutAFolderSync, 0);
    EXPECT_GT(badWithoutAJournalSync, 0);
}

TEST_F(PowerCutTest, ASmallFileHoldsWhatWasWrittenLastOrTheNext) {
    const int cuts = Rounds(200, 5000);
    const SmallFiles files(Folder());
    files.Write(1);
    const CutDisk disk(Folder());
    const QList<RecordedCall> calls =
        Record({RewriteCommand, Folder(), QString::number(Rounds(8, 60))});
    const auto isGood = [](const QString& folder, int reported) {
        const std::optional<int> text = SmallFiles(folder).TextState();
        return text == qMax(1, reported) || text == reported + 1;
    };
    EXPECT_EQ(PowerCuts(disk, calls).Bad(cuts, Chance, isGood), 0);
    CutDisk forgetful(disk);
    forgetful.IgnoreSyncs([](const QString& path) { return path.contains(QLatin1String(".new")); });
    EXPECT_GT(PowerCuts(forgetful, calls).Bad(cuts, Chance, isGood), 0);
    forgetful = disk;
    forgetful.IgnoreSyncs([this](const QString& path) { return path == Folder(); });
    EXPECT_GT(PowerCuts(forgetful, calls).Bad(cuts, Chance, isGood), 0);
}

#include "tests/faults/disk/PowerCut.h"
#include "platform/runtime/ProgramFolder.h"
#include "tests/common/MemoryFolder.h"
#include "tests/common/Rounds.h"
#include "tests/faults/ChildProcess.h"
#include "tests/faults/FaultWorld.h"
#include "tests/faults/Household.h"
#include "tests/faults/SmallFiles.h"
#include "tests/faults/Snapshot.h"
#include "tests/faults/disk/Recorded.h"

#include <QDir>
#include <QFile>
#include <algorithm>
#include <iostream>

namespace {

/// Cuts the power at random moments of a record, and hands on what is left together with the
/// number that had been reported as done by then.
class PowerCuts {
public:
    using Judge = std::function<bool(const QString& folder, int reported)>;

    PowerCuts(const CutDisk& disk, const QList<RecordedCall>& calls) : disk_(disk), calls_(calls) {}

    /// The number of cuts that the judge finds bad.
    int Bad(int cuts, std::mt19937& chance, const Judge& isGood) {
        QList<qsizetype> moments;
        for (int cut = 0; cut < cuts; ++cut)
            moments += static_cast<qsizetype>(chance() % static_cast<quint32>(calls_.size()));
        std::sort(moments.begin(), moments.end());
        int bad = 0;
        int reported = 0;
        qsizetype taken = 0;
        for (const qsizetype moment : std::as_const(moments)) {
            for (; taken <= moment; ++taken) {
                const RecordedCall& call = calls_.at(taken);
                disk_.Take(call);
                if (call.note.call == FileCall::Report)
                    reported = static_cast<int>(call.note.number);
            }
            const QTemporaryDir left(MemoryFolder());
            disk_.CutInto(left.path(), chance);
            bad += !isGood(left.path(), reported);
        }
        return bad;
    }

private:
    CutDisk disk_;
    const QList<RecordedCall>& calls_;
};

class PowerCutTest : public FaultTest {
protected:
    /// Has a process of its own do things in the program folder; what it changed there.
    QList<RecordedCall> Record(const QStringList& arguments) {
        const QString file = record_.filePath(QStringLiteral("record"));
        QFile::remove(file);
        ChildProcess child(arguments, RecordedTo(file, Folder()));
        EXPECT_EQ(child.WaitForExit(), 0);
        return ReadRecord(file);
    }

    std::mt19937 Chance{20010307};

private:
    QTemporaryDir record_{MemoryFolder()};
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

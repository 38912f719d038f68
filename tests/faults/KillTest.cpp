#include "platform/runtime/ProgramFolder.h"
#include "platform/tables/Damage.h"
#include "tests/common/MemoryFolder.h"
#include "tests/common/Rounds.h"
#include "tests/faults/ChildProcess.h"
#include "tests/faults/FaultWorld.h"
#include "tests/faults/Household.h"
#include "tests/faults/Snapshot.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <chrono>
#include <iostream>
#include <thread>

namespace {

/// Kills before a family starts anew with an empty database.
constexpr int KillsPerFamily = 60;

/// Where the kills fell. Those that all fell between two actions would show nothing.
struct Tally {
    int kills = 0;
    int actions = 0;      ///< actions reported as done
    int insideAction = 0; ///< a journal was there: the action had written something
    int insideCommit = 0; ///< the file had been written to and had to be rolled back
    int beforeReport = 0; ///< the action was committed, its report had not come yet

    bool IsTelling(int asked) const {
        return kills >= asked && actions >= asked && insideAction >= asked / 10 &&
               insideCommit >= asked / 30;
    }
};

/// A family in a process that is killed again and again, beside the same family living in peace.
class Killed {
public:
    Killed(quint32 seed, const QString& folder, const QString& modelFolder, const QString& pictures,
           std::mt19937& chance)
        : seed_(seed), file_(ChartsFile(folder)),
          modelFile_(ChartsFile(modelFolder)), arguments_{PlayCommand, folder, pictures,
                                                          QString::number(seed)},
          chance_(chance), model_(seed, pictures) {}

    void KillOnce(Tally& tally) {
        const int done = RunUntilKilled();
        ++tally.kills;
        tally.actions += done - nextAction_ + 1;

        const QString journal = file_ + QStringLiteral("-journal");
        const bool hadJournal = QFileInfo(journal).size() > 0;
        const QByteArray bytesFound = BytesOf(file_);
        const QByteArray found = SnapshotOf(file_);
        ASSERT_TRUE(found.startsWith(SoundFile)) << found.left(500).constData();
        ASSERT_EQ(FindDamage(file_), QStringList());
        // A journal whose head has not been written yet says that the file is as it was: it
        // stays until the next write. Any other has been played back and is gone.
        if (QFileInfo::exists(journal)) {
            const QByteArray head = BytesOf(journal).left(8);
            EXPECT_EQ(head.count('\0'), head.size()) << "a journal is left over";
        }
        tally.insideAction += hadJournal;
        tally.insideCommit += BytesOf(file_) != bytesFound;

        for (; nextAction_ <= done; ++nextAction_)
            model_.Do(nextAction_);
        QByteArray expected = SnapshotOf(modelFile_);
        if (found != expected) {
            // The action under way may have been committed just before its report.
            model_.Do(nextAction_++);
            expected = SnapshotOf(modelFile_);
            ++tally.beforeReport;
        }
        ASSERT_TRUE(found == expected) << "seed " << seed_ << ", reported as done: " << done << ", "
                                       << FirstDifference(expected, found).constData();
    }

private:
    /// The number of the last action reported as done.
    int RunUntilKilled() {
        ChildProcess child(arguments_ + QStringList{QString::number(nextAction_)});
        int done = nextAction_ - 1;
        const auto next = [&] {
            const std::optional<qint32> report = child.NextReport();
            if (report)
                done = *report;
            return report.has_value();
        };
        // The first report says that the database is open and the actions begin.
        const auto reports = 1 + chance_() % 5;
        for (auto report = reports; report > 0; --report)
            EXPECT_TRUE(next()) << "the child ended by itself";
        // Most kills come at any moment. Commits are short: a third is aimed at them.
        unsigned longestDelay = chance_() % 2 == 0 ? 1'500 : 12'000;
        if (chance_() % 3 == 0) {
            AwaitCommit();
            longestDelay = 800;
        }
        std::this_thread::sleep_for(std::chrono::microseconds(chance_() % longestDelay));
        EXPECT_TRUE(child.Kill()) << "the child ended by itself";
        while (next())
            continue;
        return done;
    }

    /// Waits until a journal is complete and the file is about to be written to; some time at most.
    void AwaitCommit() const {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < 40) {
            QFile journal(file_ + QStringLiteral("-journal"));
            if (journal.open(QIODevice::ReadOnly | QIODevice::Unbuffered) &&
                journal.read(1) == QByteArray(1, '\xd9'))
                return;
        }
    }

    quint32 seed_;
    QString file_;
    QString modelFile_;
    QStringList arguments_;
    std::mt19937& chance_;
    Household model_;
    int nextAction_ = 1;
};

} // namespace

TEST_F(FaultTest, AKillAtAnyMomentLeavesTheStateAfterTheLastActionReportedOrTheNext) {
    const int kills = Rounds(90, 3'000);
    QTemporaryDir pictures;
    Household::MakePictures(pictures.path());
    std::mt19937 chance(Seed());
    Tally tally;
    // How many fall where is the machine's: where the disk is memory few fall inside a commit.
    const auto goesOn = [&] {
        return !tally.IsTelling(kills) && tally.kills < 5 * kills && !HasFailure();
    };
    for (quint32 family = 0; goesOn(); ++family) {
        const QTemporaryDir folder;
        const QTemporaryDir modelFolder(MemoryFolder());
        MakeEmptyDatabase(folder.path());
        MakeEmptyDatabase(modelFolder.path());
        ResetSession();
        SetProgramFolder(modelFolder.path());
        Database().InitDatabse();
        Killed killed(Seed() + family, folder.path(), modelFolder.path(), pictures.path(), chance);
        for (int kill = 0; kill < KillsPerFamily && goesOn(); ++kill)
            killed.KillOnce(tally);
        EXPECT_EQ(Boxes.Errors(), QStringList());
    }
    std::cout << tally.kills << " kills, " << tally.actions << " actions reported as done\n"
              << tally.insideAction << " kills with a journal present, " << tally.insideCommit
              << " of them with the file half written, " << tally.beforeReport
              << " between a commit and its report\n";
    EXPECT_TRUE(tally.IsTelling(kills));
}

#include "platform/runtime/ProgramFolder.h"
#include "tests/common/MemoryFolder.h"
#include "tests/common/Rounds.h"
#include "tests/faults/ChildProcess.h"
#include "tests/faults/EachCall.h"
#include "tests/faults/FaultWorld.h"
#include "tests/faults/Household.h"
#include "tests/faults/SmallFiles.h"
#include "tests/faults/Snapshot.h"

#include <QFile>
#include <QFileInfo>
#include <iostream>

/// A process is killed before and after each single call by which it changes a file.
class KillAtCallTest : public FaultTest {};

TEST_F(KillAtCallTest, AnActionIsWholeOrNotThere) {
    const int least = Rounds(100, 10'000);
    QTemporaryDir pictures(MemoryFolder());
    Household::MakePictures(pictures.path());
    int kills = 0;
    int actions = 0;
    for (quint32 seed = 7; kills < least && !HasFailure(); ++seed) {
        const QTemporaryDir modelFolder(MemoryFolder());
        const QString modelFile = ChartsFile(modelFolder.path());
        MakeEmptyDatabase(modelFolder.path());
        ResetSession();
        SetProgramFolder(modelFolder.path());
        Database().InitDatabse();
        Household model(seed, pictures.path());
        constexpr int ActionsOfAFamily = 40;
        for (int action = 1; action <= ActionsOfAFamily && kills < least; ++action) {
            const QByteArray bytes = BytesOf(modelFile);
            const QByteArray before = SnapshotOf(modelFile);
            model.Do(action);
            const QByteArray after = SnapshotOf(modelFile);
            // The first ones only make the accounts.
            if (before == after || action < 8)
                continue;
            ++actions;
            kills += KillAtEachCall(
                Folder(),
                {PlayCommand, Folder(), pictures.path(), QString::number(seed),
                 QString::number(action), QString::number(action)},
                Rounds(120, 1),
                [&] {
                    QFile::remove(File() + QStringLiteral("-journal"));
                    WriteBytes(File(), bytes);
                },
                [&]() -> std::optional<bool> {
                    const QByteArray found = SnapshotOf(File());
                    return found == after    ? std::optional(true)
                           : found == before ? std::optional(false)
                                             : std::nullopt;
                });
        }
        EXPECT_EQ(Boxes.Errors(), QStringList());
    }
    std::cout << kills << " kills at the calls of " << actions << " actions\n";
}

TEST_F(KillAtCallTest, ASmallFileIsTheFormerOrTheNew) {
    const SmallFiles files(Folder());
    const int kills = KillAtEachCall(
        Folder(), {RewriteCommand, Folder(), QStringLiteral("1")}, 1, [&] { files.WriteText(0); },
        [&]() -> std::optional<bool> {
            const std::optional<int> state = files.TextState();
            return state ? std::optional(state == 1) : std::nullopt;
        });
    // A draft, its contents, their sync, its new name and that one's sync, before and after each.
    EXPECT_GE(kills, 10);
}

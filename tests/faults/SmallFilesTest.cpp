#include "tests/faults/SmallFiles.h"
#include "platform/runtime/TextFiles.h"
#include "tests/common/Errors.h"
#include "tests/common/FullDisk.h"
#include "tests/common/Rounds.h"
#include "tests/faults/ChildProcess.h"
#include "tests/faults/EachCall.h"
#include "tests/faults/FaultWorld.h"

#include <QDir>
#include <QFileInfo>
#include <chrono>
#include <random>
#include <thread>

/// The settings, the lists of job names and the user's registry.
class SmallFilesTest : public FaultTest {
protected:
    static QStringList FilesBeside(const QString& file) {
        return QFileInfo(file).dir().entryList(QDir::Files | QDir::Hidden);
    }

    /// What failed writes could not remove; a later one would, once it is old enough, and that a
    /// removal fails is told to nobody.
    void RemoveDrafts() const {
        for (const QString& file : {files.TextFile(), files.RegistryFile()}) {
            QDir folder = QFileInfo(file).dir();
            for (const QString& draft :
                 folder.entryList({QStringLiteral("*.new")}, QDir::Files | QDir::Hidden))
                ASSERT_TRUE(folder.remove(draft));
        }
    }

    SmallFiles files{Folder()};
};

TEST_F(SmallFilesTest, AWriteThatFindsNoRoomLeavesTheFormerContents) {
    files.Write(1);
    // There is room for the registry as it is up to the last of these, not for a longer value.
    for (const auto& [limit, operation] :
         {std::pair(0, 11005), {1, 11005}, {4'096, 11005}, {70'000, 11001}}) {
        const FullDisk noRoom(limit);
        EXPECT_ERROR(75, files.WriteText(2)) << limit;
        EXPECT_ERROR(operation, files.WriteRegistry(222'222)) << limit;
    }
    EXPECT_EQ(files.TextState(), 1);
    EXPECT_EQ(files.RegistryState(), 1);
    EXPECT_EQ(FilesBeside(files.TextFile()), QStringList(QStringLiteral("lines.txt")));
    EXPECT_EQ(FilesBeside(files.RegistryFile()), QStringList(QStringLiteral("registry.json")));

    files.Write(3);
    EXPECT_EQ(files.TextState(), 3);
    EXPECT_EQ(files.RegistryState(), 3);
}

TEST_F(SmallFilesTest, AShortFileThatFindsNoRoomKeepsItsFormerContents) {
    const auto write = [this](int number) {
        OutputFile file(files.TextFile());
        for (int line = 0; line < 5; ++line)
            file.PrintNumber(number);
        file.Close();
    };
    write(1);
    const QByteArray before = BytesOf(files.TextFile());
    ASSERT_EQ(before.size(), 25);
    for (const qint64 limit : {0, 1, 24}) {
        const FullDisk noRoom(limit);
        EXPECT_ERROR(75, write(2)) << limit;
        EXPECT_EQ(BytesOf(files.TextFile()), before) << limit;
    }
    const FullDisk justRoom(25);
    EXPECT_NO_THROW(write(2));
}

TEST_F(SmallFilesTest, AKillAtAnyMomentLeavesTheFormerContentsOrTheNew) {
    constexpr int Kills = 40;
    std::mt19937 chance(Seed());
    for (int kill = 0; kill < Kills && !HasFailure(); ++kill) {
        ChildProcess child({RewriteCommand, Folder()});
        std::optional<qint32> done = child.NextReport();
        ASSERT_TRUE(done.has_value()) << "the child ended by itself";
        std::this_thread::sleep_for(std::chrono::microseconds(chance() % 12'000));
        EXPECT_TRUE(child.Kill()) << "the child ended by itself";
        while (const std::optional<qint32> next = child.NextReport())
            done = next;
        const std::optional<int> text = files.TextState();
        const std::optional<int> registry = files.RegistryState();
        EXPECT_TRUE(text == *done || text == *done + 1) << *done << ": " << text.value_or(-1);
        EXPECT_TRUE(registry == *done || registry == *done + 1)
            << *done << ": " << registry.value_or(-1);
        EXPECT_TRUE(QFileInfo(files.RegistryFile())
                        .dir()
                        .entryList({QStringLiteral("*.damaged*")})
                        .isEmpty());
    }
}

TEST_F(SmallFilesTest, ACallThatFailsLeavesTheFormerContentsOrTheNewAndIsTold) {
    const int faults = FailEachCall(
        Folder(), {RewriteCommand, Folder(), QStringLiteral("1")}, 1,
        [this] {
            files.Write(0);
            RemoveDrafts();
        },
        [this](int told) {
            const std::optional<int> text = files.TextState();
            const std::optional<int> registry = files.RegistryState();
            EXPECT_TRUE(text == 0 || text == 1);
            EXPECT_TRUE(registry == 0 || registry == 1);
            if (told == 0)
                EXPECT_TRUE(text == 1 && registry == 1) << "not told";
            else
                EXPECT_TRUE(told == 75 || told == LargeFault) << told;
        });
    // The draft, its contents, their sync, its name, that one's sync; of both files.
    EXPECT_GE(faults, 6 * 10);
    files.Write(2);
    EXPECT_EQ(files.TextState(), 2);
    EXPECT_EQ(files.RegistryState(), 2);
}

#include "platform/runtime/Actions.h"
#include "platform/runtime/ProgramFolder.h"
#include "platform/tables/Damage.h"
#include "session/Session.h"
#include "store/DailyCopies.h"
#include "store/ProgramFiles.h"
#include "store/PutBack.h"
#include "tests/common/MemoryFolder.h"
#include "tests/faults/CallKill.h"
#include "tests/faults/FaultWorld.h"
#include "tests/faults/Snapshot.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <iostream>

namespace {

const QString Day = QStringLiteral("2001-03-07");

/// How many entries into the system, and returns from it, lie between two kills.
int Step() {
    return qEnvironmentVariableIsSet("DUTYGRID_LONG") ? 1 : 5;
}

void WriteAnew(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).path());
    WriteBytes(path, bytes);
}

} // namespace

/// The files of a family, in memory, where thousands of rounds cost little.
class CopiesKillTest : public FaultTest {
protected:
    CopiesKillTest() {
        SetProgramFolder(folder_.path());
        MakeEmptyDatabase(folder_.path());
        Database().InitDatabse();
        AddAccount();
        ResetSession();
        old_ = {BytesOf(DatabaseFile()), "settings", "jobs"};
    }

    static void AddAccount() {
        RunAction([] {
            Database().AddUser(QStringLiteral("Anna"), QStringLiteral("a"),
                               QStringLiteral("Student"), QString());
        });
    }

    struct Files {
        QByteArray Charts;
        QByteArray Settings;
        QByteArray Jobs;
        bool operator==(const Files&) const = default;
    };

    QString JobFile() const { return folder_.path() + QStringLiteral("/Jobs/HomeJobs.dat"); }
    void Write(const Files& files) const {
        QFile::remove(DatabaseFile() + QStringLiteral("-journal"));
        WriteAnew(DatabaseFile(), files.Charts);
        WriteAnew(SettingsFile(), files.Settings);
        WriteAnew(JobFile(), files.Jobs);
    }
    Files Read() const {
        return {BytesOf(DatabaseFile()), BytesOf(SettingsFile()), BytesOf(JobFile())};
    }
    void ForgetCopies() const { QDir(CopiesFolder()).removeRecursively(); }

    QTemporaryDir folder_{MemoryFolder()};
    Files old_;
};

TEST_F(CopiesKillTest, AKillLeavesNoCopyOfTheDayOrASoundOneOfTheStateBefore) {
    const auto change = [] {
        KeepDailyCopies(true);
        Database().InitDatabse();
        AddAccount();
        ResetSession();
    };
    Write(old_);
    const QByteArray before = SnapshotOf(DatabaseFile());
    int kills = 0;
    int copies = 0;
    for (int call = 1;; call += Step(), ++kills) {
        ForgetCopies();
        Write(old_);
        const bool wasKilled = KilledAtCall(call, change);
        if (QFileInfo(CopiesFolder() + QLatin1Char('/') + Day).exists()) {
            ++copies;
            ASSERT_EQ(FindDamage(DatabaseOfCopy(Day)), QStringList()) << "call " << call;
            ASSERT_EQ(SnapshotOf(DatabaseOfCopy(Day)), before) << "call " << call;
            ASSERT_EQ(
                BytesOf(CopiesFolder() + QLatin1Char('/') + Day + QStringLiteral("/Settings.txt")),
                "settings");
        }
        if (!wasKilled)
            break;
    }
    std::cout << kills << " kills, " << copies << " with the copy of the day\n";
    EXPECT_GE(kills, 50);
    EXPECT_GE(copies, 1);
}

TEST_F(CopiesKillTest, AKillOfARestoreLeavesAllOfTheFormerFilesOrAllOfTheCopy) {
    // The copy, and a file whose last change was interrupted.
    const QString copy = CopiesFolder() + QLatin1Char('/') + Day + QLatin1Char('/');
    const Files copied{old_.Charts, "settings of that day", "jobs of that day"};
    Files now{QByteArray(50000, 'x'), "settings now", "jobs now"};
    int kills = 0;
    int former = 0;
    for (int call = 1;; call += Step(), ++kills) {
        ForgetCopies();
        WriteAnew(copy + QStringLiteral("Charts.mdb"), copied.Charts);
        WriteAnew(copy + QStringLiteral("Settings.txt"), copied.Settings);
        WriteAnew(copy + QStringLiteral("HomeJobs.dat"), copied.Jobs);
        Write(now);
        WriteBytes(DatabaseFile() + QStringLiteral("-journal"), "of the file now");
        const bool wasKilled = KilledAtCall(call, [] { PutCopyBack(Day); });
        // The next start.
        ASSERT_NE(UseData(), nullptr);
        const Files found = Read();
        ASSERT_TRUE(found == now || found == copied) << "call " << call;
        EXPECT_EQ(QFileInfo::exists(DatabaseFile() + QStringLiteral("-journal")), found == now)
            << "call " << call;
        former += found == now;
        if (found == copied) {
            ASSERT_EQ(CopyNames().size(), 2) << "call " << call;
            EXPECT_TRUE(BytesOf(DatabaseOfCopy(CopyNames().constFirst())) == now.Charts);
        }
        EXPECT_TRUE(BytesOf(copy + QStringLiteral("Charts.mdb")) == copied.Charts);
        if (!wasKilled)
            break;
    }
    std::cout << kills << " kills, " << former << " with the former files\n";
    EXPECT_GE(kills, 50);
    EXPECT_GE(former, 10);
    EXPECT_GE(kills - former, 10);
}

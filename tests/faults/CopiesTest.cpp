#include "platform/runtime/Actions.h"
#include "platform/runtime/ProgramFolder.h"
#include "platform/tables/Damage.h"
#include "session/Session.h"
#include "store/PutBack.h"
#include "tests/common/FormerFile.h"
#include "tests/common/MemoryFolder.h"
#include "tests/common/Rounds.h"
#include "tests/faults/ChildProcess.h"
#include "tests/faults/DiskWork.h"
#include "tests/faults/EachCall.h"
#include "tests/faults/FaultWorld.h"
#include "tests/faults/Household.h"
#include "tests/faults/Snapshot.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <iostream>

namespace {

/// A work, and the syncs without which a power cut does harm to it.
struct WorkCase {
    const char* Name;
    QString Work;
    /// The format of the file that is opened.
    int Format;
    QString NeededSyncs;
    /// The last calls, at which they are missed.
    qsizetype Last;
};

void PrintTo(const WorkCase& work, std::ostream* out) {
    *out << work.Name;
}

const WorkCase Works[] = {
    {"DailyCopy", ChangeWork, 3, QStringLiteral(".new"), 12},
    {"PuttingBack", PutBackWork, 3, QStringLiteral(".new"), 60},
    {"CarryingOver", OpenWork, 1, QStringLiteral("-journal"), 60},
    {"AddingSums", OpenWork, 2, QStringLiteral("-journal"), 60},
};

/// What a work has left.
struct Found {
    bool IsSound = false;   ///< all of the former or all of the new
    bool IsChanged = false; ///< what the user wants is done
    bool IsDone = false;    ///< what goes with it, too
};

void WriteAnew(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).path());
    WriteBytes(path, bytes);
}

/// The files of a family, in memory, where thousands of rounds cost little.
class CopiesTest : public FaultTest, public testing::WithParamInterface<WorkCase> {
protected:
    CopiesTest() {
        Household::MakePictures(folder_.path());
        Make(folder_.path(), 3);
        // As the work leaves it where nothing fails.
        const QTemporaryDir model(MemoryFolder());
        Make(model.path(), GetParam().Format);
        start_ = BytesOf(ChartsFile(model.path()));
        before_ = SnapshotOf(ChartsFile(model.path()));
        if (GetParam().Work != PutBackWork) {
            ChildProcess child({WorkCommand, model.path(), GetParam().Work});
            EXPECT_EQ(child.WaitForExit(), 0);
            after_ = SnapshotOf(ChartsFile(model.path()));
            EXPECT_FALSE(after_ == before_);
        }
        SetProgramFolder(folder_.path());
    }

    QString ProgramFolder() const { return folder_.path(); }
    QStringList Arguments() const { return {WorkCommand, ProgramFolder(), GetParam().Work}; }

    /// Everything as it was before the work.
    void Prepare() const {
        QDir(ProgramFolder() + QStringLiteral("/Backups")).removeRecursively();
        QDir(ProgramFolder() + QStringLiteral("/Database")).removeRecursively();
        if (GetParam().Work != PutBackWork)
            return Write(ProgramFolder(), {start_, "settings", "jobs"});
        // A file that is none any more, whose last change was interrupted, and a sound copy.
        WriteAnew(Copy(ProgramFolder(), "Charts.mdb"), Copied().Charts);
        WriteAnew(Copy(ProgramFolder(), "Settings.txt"), Copied().Settings);
        WriteAnew(Copy(ProgramFolder(), "HomeJobs.dat"), Copied().Jobs);
        Write(ProgramFolder(), Damaged());
        WriteBytes(ChartsFile(ProgramFolder()) + QStringLiteral("-journal"), "of the file now");
    }

    /// What the next start finds in a folder.
    Found Look(const QString& folder) const {
        try {
            return GetParam().Work == ChangeWork    ? LookAtCopy(folder)
                   : GetParam().Work == PutBackWork ? LookAtFilesPutBack(folder)
                                                    : LookAtCarriedFile(folder);
        } catch (const std::exception&) {
            return {};
        }
    }

    std::mt19937 Chance{Seed()};

private:
    struct Files {
        QByteArray Charts;
        QByteArray Settings;
        QByteArray Jobs;
        bool operator==(const Files&) const = default;
    };

    Files Copied() const { return {start_, "settings of that day", "jobs of that day"}; }
    static Files Damaged() { return {QByteArray(50'000, 'x'), "settings now", "jobs now"}; }

    static QString Copy(const QString& folder, const char* file) {
        return QStringLiteral("%1/Backups/%2/%3").arg(folder, WorkDay, QLatin1String(file));
    }
    static QString Settings(const QString& folder) {
        return folder + QStringLiteral("/Settings/Settings.txt");
    }
    static QString Jobs(const QString& folder) {
        return folder + QStringLiteral("/Jobs/HomeJobs.dat");
    }
    static void Write(const QString& folder, const Files& files) {
        WriteAnew(ChartsFile(folder), files.Charts);
        WriteAnew(Settings(folder), files.Settings);
        WriteAnew(Jobs(folder), files.Jobs);
    }

    /// A database with a child and its picture.
    void Make(const QString& folder, int format) const {
        ResetSession();
        SetProgramFolder(folder);
        MakeEmptyDatabase(folder);
        Database().InitDatabse();
        RunAction([this] {
            Database().AddUser(QStringLiteral("Anna"), QStringLiteral("a"),
                               QStringLiteral("Student"),
                               folder_.path() + QStringLiteral("/picture1"));
        });
        ResetSession();
        const QString file = ChartsFile(folder);
        if (format == 2)
            TakeSumsOff(file);
        if (format == 1) {
            const QString present = folder + QStringLiteral("/present");
            EXPECT_TRUE(QFile::rename(file, present));
            WriteFormerFile(file, present);
            EXPECT_TRUE(QFile::remove(present));
        }
    }

    Found LookAtCopy(const QString& folder) const {
        Found found;
        const QByteArray charts = SnapshotOf(ChartsFile(folder));
        const bool isCopied = QFileInfo::exists(QFileInfo(Copy(folder, "")).path());
        found.IsSound = charts == before_ || charts == after_;
        if (isCopied)
            found.IsSound = found.IsSound && SnapshotOf(Copy(folder, "Charts.mdb")) == before_ &&
                            FindDamage(Copy(folder, "Charts.mdb")).isEmpty() &&
                            BytesOf(Copy(folder, "Settings.txt")) == "settings" &&
                            BytesOf(Copy(folder, "HomeJobs.dat")) == "jobs";
        found.IsChanged = charts == after_;
        found.IsDone = found.IsChanged && isCopied;
        return found;
    }

    Found LookAtFilesPutBack(const QString& folder) const {
        // The next start finishes what has been begun.
        SetProgramFolder(folder);
        UseData();
        const Files files{BytesOf(ChartsFile(folder)), BytesOf(Settings(folder)),
                          BytesOf(Jobs(folder))};
        QStringList kept = QDir(folder + QStringLiteral("/Database"))
                               .entryList({QStringLiteral("Charts.mdb until *")});
        for (QString& name : kept)
            name.prepend(folder + QStringLiteral("/Database/"));
        for (const QString& copy : CopyNames())
            kept += DatabaseOfCopy(copy);
        // As a copy, or beside its place where it could not be read.
        const bool hasKept = std::any_of(kept.cbegin(), kept.cend(), [](const QString& path) {
            return QFileInfo::exists(path) && BytesOf(path) == Damaged().Charts;
        });
        SetProgramFolder(ProgramFolder());
        const bool isBack = files == Copied();
        const bool hasJournal = QFileInfo::exists(ChartsFile(folder) + QStringLiteral("-journal"));
        const bool isSound =
            (isBack && !hasJournal && hasKept) || (files == Damaged() && hasJournal);
        return {isSound && BytesOf(Copy(folder, "Charts.mdb")) == Copied().Charts, isBack, isBack};
    }

    Found LookAtCarriedFile(const QString& folder) const {
        const QByteArray charts = SnapshotOf(ChartsFile(folder));
        const QString former = QStringLiteral("%1/Database/Charts format %2 %3.mdb")
                                   .arg(folder)
                                   .arg(GetParam().Format)
                                   .arg(WorkDay);
        const bool isCarried = charts == after_;
        const bool isSound = isCarried ? SnapshotOf(former) == before_ : charts == before_;
        return {isSound, isCarried, isCarried};
    }

    QTemporaryDir folder_{MemoryFolder()};
    QByteArray start_;
    QByteArray before_;
    QByteArray after_;
};

INSTANTIATE_TEST_SUITE_P(Works, CopiesTest, testing::ValuesIn(Works),
                         [](const auto& work) { return std::string(work.param.Name); });

} // namespace

TEST_P(CopiesTest, AKillAtAnyCallLeavesAllOfTheFormerOrAllOfTheNew) {
    const int kills = KillAtEachCall(
        ProgramFolder(), Arguments(), Rounds(12, 1), [this] { Prepare(); },
        [this]() -> std::optional<bool> {
            const Found found = Look(ProgramFolder());
            return found.IsSound ? std::optional(found.IsDone) : std::nullopt;
        });
    std::cout << kills << " kills\n";
    EXPECT_GE(kills, 5);
}

TEST_P(CopiesTest, ACallThatFailsLeavesAllOfTheFormerOrAllOfTheNewAndIsTold) {
    int undone = 0;
    const int faults = FailEachCall(
        ProgramFolder(), Arguments(), Rounds(25, 1), [this] { Prepare(); },
        [&](int told) {
            const Found found = Look(ProgramFolder());
            EXPECT_TRUE(found.IsSound) << "half of it";
            EXPECT_TRUE(told == LargeFault || (told == 0 && found.IsDone)) << "not told: " << told;
            undone += !found.IsDone;
            // The disk is well again.
            if (GetParam().Work != ChangeWork && !found.IsDone) {
                EXPECT_EQ(ChildProcess(Arguments()).WaitForExit(), 0);
                EXPECT_TRUE(Look(ProgramFolder()).IsDone);
            }
        });
    std::cout << faults << " faults, " << undone << " undone\n";
    EXPECT_GE(faults, 5);
    EXPECT_GE(undone, 1);
}

TEST_P(CopiesTest, APowerCutLeavesAllOfTheFormerOrAllOfTheNew) {
    Prepare();
    const CutDisk disk(ProgramFolder());
    const QList<RecordedCall> calls = RecordOf(Arguments(), ProgramFolder());
    const auto isGood = [this](const QString& folder, int reported) {
        const Found found = Look(folder);
        return found.IsSound && (reported == 0 || found.IsChanged);
    };
    const int cuts = Rounds(150, 5'000);
    const int bad = PowerCuts(disk, calls).Bad(cuts, Chance, isGood);
    CutDisk forgetful(disk);
    forgetful.IgnoreSyncs(
        [](const QString& path) { return path.contains(GetParam().NeededSyncs); });
    const int controls = Rounds(150, 1'000);
    const int lost =
        PowerCuts(forgetful, calls).Bad(controls, Chance, isGood, calls.size() - GetParam().Last);
    std::cout << cuts << " cuts, " << bad << " of them bad; without needed syncs " << lost << " of "
              << controls << '\n';
    EXPECT_EQ(bad, 0);
    EXPECT_GT(lost, 0);
}

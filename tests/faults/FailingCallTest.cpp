#include "platform/runtime/Actions.h"
#include "platform/runtime/Dates.h"
#include "platform/runtime/ProgramFolder.h"
#include "store/DayTexts.h"
#include "tests/common/Errors.h"
#include "tests/common/MemoryFolder.h"
#include "tests/common/Rounds.h"
#include "tests/faults/FailingDisk.h"
#include "tests/faults/FaultWorld.h"
#include "tests/faults/Household.h"
#include "tests/faults/Snapshot.h"

#include <QFile>
#include <iostream>

namespace {

const QStringList Children{QStringLiteral("Anna"), QStringLiteral("Ben"), QStringLiteral("Carla")};

/// A way in which a call of the engine fails.
struct WayToFail {
    const char* name;
    DiskCall call;
    int code;
};

const WayToFail WaysToFail[] = {
    {"write", DiskCall::Write, SQLITE_IOERR_WRITE},
    {"write, disk full", DiskCall::Write, SQLITE_FULL},
    {"write, no memory", DiskCall::Write, SQLITE_IOERR_NOMEM},
    {"sync", DiskCall::Sync, SQLITE_IOERR_FSYNC},
    {"truncate", DiskCall::Truncate, SQLITE_IOERR_TRUNCATE},
    {"open", DiskCall::Open, SQLITE_CANTOPEN},
    {"open, no memory", DiskCall::Open, SQLITE_NOMEM},
    {"delete", DiskCall::Delete, SQLITE_IOERR_DELETE},
    {"read", DiskCall::Read, SQLITE_IOERR_READ},
    {"read, no memory", DiskCall::Read, SQLITE_IOERR_NOMEM},
};

struct Outcomes {
    int faults = 0;
    int undone = 0; ///< the file as it was before the action
    int done = 0;   ///< as it is after it: the action needed no more of the disk
    int silent = 0; ///< undone, and nobody was told
    int half = 0;
};

} // namespace

/// Actions of a family on a disk of which each call fails once, and once for good.
class FailingCallTest : public FaultTest {
protected:
    FailingCallTest() {
        MakeEmptyDatabase(folder_.path());
        SetProgramFolder(folder_.path());
        Household::MakePictures(folder_.path());
        Database().InitDatabse();
        for (const QString& child : Children)
            RunAction([&] {
                Database().AddUser(child, QStringLiteral("pw"), QStringLiteral("Student"),
                                   Picture());
            });
        FillEditor(QStringLiteral("Wash"));
        RunAction([this] { SaveForAll(); });
        RunAction(
            [this] { family_.SaveChart(QStringLiteral("Garden"), Children.mid(0, 1), true); });
        for (const QString& child : Children)
            RunAction([&] { TickAll(QStringLiteral("Chores ") + child); });
        EXPECT_EQ(Boxes.Errors(), QStringList());
        ResetSession();
        start_ = BytesOf(Charts());
        FillEditor(QStringLiteral("Sweep"));
    }
    ~FailingCallTest() override { ResetSession(); }

    QString Charts() const { return ChartsFile(folder_.path()); }
    QString Picture(int number = 0) const {
        return folder_.path() + QStringLiteral("/picture%1").arg(number);
    }

    void FillEditor(const QString& word) {
        editor_.rows.clear();
        for (int job = 0; job < 4; ++job)
            editor_.rows.append({word + QStringLiteral(" number %1").arg(job),
                                 QStringLiteral("Sun-Sat"), QStringLiteral("Mum"),
                                 QStringLiteral("Easy"), QStringLiteral("3")});
    }

    void SaveForAll() { family_.SaveChart(QStringLiteral("Chores"), Children, true); }

    void TickAll(const QString& chart) {
        ChartViewers.RedimPreserve(0);
        viewer_.rows = {ViewerRow{}};
        Database().ReadInfoFromChart(chart, 0, true, DayAbbreviation(2));
        for (ViewerRow& row : viewer_.rows)
            row.Completed = !row.Completed;
        Database().WriteInfoToChart(chart, 0, true, QString(), QDate(), QDate(), false);
    }

    /// Opens the database as it was at first.
    void Start() {
        ResetSession();
        QFile::remove(Charts() + QStringLiteral("-journal"));
        WriteBytes(Charts(), start_);
        Database().InitDatabse();
        Boxes.Shown.clear();
    }

    /// Fails calls of the action, each in its turn: all of them in a long run, some in a short one.
    template <class Action>
    void FailEachCall(Action&& action) {
        const QByteArray before = SnapshotOf(Charts());
        Start();
        RunAction(action);
        EXPECT_EQ(Boxes.Errors(), QStringList());
        const QByteArray after = SnapshotOf(Charts());
        ASSERT_TRUE(before != after) << "the action does nothing";

        FailingDisk disk;
        int first = 0;
        for (const WayToFail& fault : WaysToFail)
            for (const bool forGood : {false, true}) {
                Start();
                disk.Count(fault.call);
                RunAction(action);
                const int step = Rounds(disk.Counted() / 4 + 1, 1);
                first += 7;
                // Each way begins elsewhere, so that together they come by most places.
                for (int number = 1 + first % step;; number += step) {
                    Start();
                    disk.FailAt(fault.call, number, fault.code, forGood);
                    RunAction(action);
                    disk.Mend();
                    if (!disk.HasFailed())
                        break;
                    SCOPED_TRACE(testing::Message() << fault.name << " number " << number
                                                    << (forGood ? " and all that follow" : ""));
                    Judge(before, after, action);
                }
            }
        ResetSession();
        std::cout << outcomes_.faults << " faults: " << outcomes_.undone << " undone, "
                  << outcomes_.done << " done, " << outcomes_.half << " half, " << outcomes_.silent
                  << " silent\n";
        EXPECT_GT(outcomes_.undone, 10);
    }

private:
    template <class Action>
    void Judge(const QByteArray& before, const QByteArray& after, Action&& action) {
        ++outcomes_.faults;
        const QByteArray found = SnapshotOf(Charts());
        const qsizetype told = Boxes.Errors().size();
        if (found == after) {
            ++outcomes_.done;
            EXPECT_LE(told, 1) << Boxes.Shown.join(u'\n').toStdString();
            return;
        }
        outcomes_.half += found != before;
        outcomes_.silent += told == 0;
        ASSERT_TRUE(found == before) << FirstDifference(before, found).constData();
        ++outcomes_.undone;
        EXPECT_EQ(told, 1) << Boxes.Shown.join(u'\n').toStdString();
        EXPECT_EQ(Boxes.Shown.size(), told) << "something undone was said to be done";
        // The same press once more, by the same running program.
        Boxes.Shown.clear();
        RunAction(action);
        EXPECT_EQ(Boxes.Errors(), QStringList());
        const QByteArray again = SnapshotOf(Charts());
        EXPECT_TRUE(again == after) << FirstDifference(after, again).constData();
    }

    QTemporaryDir folder_{MemoryFolder()};
    Household family_{1, QString()};
    FakeEditor editor_;
    FakeViewer viewer_;
    QByteArray start_;
    Outcomes outcomes_;
};

TEST_F(FailingCallTest, ASaveForManyOverTickedChartsIsWholeOrUndoneAndLosesNoTickOfTheWeek) {
    FailEachCall([this] { SaveForAll(); });
}

TEST_F(FailingCallTest, ARollOverIsWholeOrUndone) {
    FailEachCall([] {
        SetToday(QDate(2001, 3, 14));
        CurrentUser = Children.first();
        FakeList list;
        Database().PopulateChartList(list, true);
    });
}

TEST_F(FailingCallTest, PointsAreAddedOrNot) {
    FailEachCall([] { Database().AddPoints(Children.first(), 5, false); });
}

TEST_F(FailingCallTest, TheMarksOfADayAreStoredOrNot) {
    FailEachCall([this] { TickAll(QStringLiteral("Chores Anna")); });
}

TEST_F(FailingCallTest, AnAccountGoesWithItsChartsOrStays) {
    FailEachCall([] { Database().DeleteAccount(Children.first()); });
}

TEST_F(FailingCallTest, AChartGoesOrStays) {
    FailEachCall([] { Database().DeleteChart(QStringLiteral("Garden Anna")); });
}

TEST_F(FailingCallTest, AnIncentiveWithAPictureIsSetOrNot) {
    FailEachCall(
        [this] { Database().AddToy(Children.first(), QStringLiteral("Bike"), Picture(1), 120); });
}

TEST_F(FailingCallTest, AnAccountIsMadeOrNot) {
    FailEachCall([this] {
        Database().AddUser(QStringLiteral("Dora"), QStringLiteral("pw"), QStringLiteral("Student"),
                           Picture(2));
    });
}

TEST_F(FailingCallTest, APasswordIsChangedOrNot) {
    FailEachCall([] { Database().ChangePassword(Children.first(), QStringLiteral("new")); });
}

TEST_F(FailingCallTest, WhetherAChartRollsOnIsNotGuessedWhereItCannotBeRead) {
    const QString chart = QStringLiteral("Garden Anna");
    FailingDisk disk;
    Start();
    disk.FailAt(DiskCall::Read, 1, SQLITE_IOERR_READ, true);
    EXPECT_ERROR(3000, Database().ReturnAutoCreate(chart));
    disk.Mend();
    EXPECT_TRUE(Database().ReturnAutoCreate(chart));
    ResetSession();
}

#include "tests/common/Errors.h"
#include "tests/common/Rounds.h"
#include "tests/faults/BusyFamily.h"
#include "tests/faults/FailingDisk.h"
#include "tests/faults/Snapshot.h"

#include <iostream>

namespace {

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

/// Actions of a family on a disk of which each call fails once, and once for good.
class FailingCallTest : public BusyFamilyTest, public testing::WithParamInterface<const char*> {
protected:
    void Act() { BusyFamilyTest::Act(GetParam()); }

    void Judge(const QByteArray& before, const QByteArray& after) {
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
        Act();
        EXPECT_EQ(Boxes.Errors(), QStringList());
        const QByteArray again = SnapshotOf(Charts());
        EXPECT_TRUE(again == after) << FirstDifference(after, again).constData();
    }

    Outcomes outcomes_;
};

INSTANTIATE_TEST_SUITE_P(Actions, FailingCallTest, BusyFamilyTest::Actions, BusyFamilyTest::NameOf);

} // namespace

TEST_P(FailingCallTest, LeavesTheActionWholeOrUndoneAndTold) {
    const QByteArray before = SnapshotOf(Charts());
    Start();
    Act();
    EXPECT_EQ(Boxes.Errors(), QStringList());
    const QByteArray after = SnapshotOf(Charts());
    ASSERT_TRUE(before != after) << "the action does nothing";

    FailingDisk disk;
    int first = 0;
    for (const WayToFail& fault : WaysToFail)
        for (const bool forGood : {false, true}) {
            Start();
            disk.Count(fault.call);
            Act();
            const int step = Rounds(disk.Counted() / 4 + 1, 1);
            first += 7;
            // Each way begins elsewhere, so that together they come by most places.
            for (int number = 1 + first % step;; number += step) {
                Start();
                disk.FailAt(fault.call, number, fault.code, forGood);
                Act();
                disk.Mend();
                if (!disk.HasFailed())
                    break;
                SCOPED_TRACE(testing::Message() << fault.name << " number " << number
                                                << (forGood ? " and all that follow" : ""));
                Judge(before, after);
            }
        }
    ResetSession();
    std::cout << outcomes_.faults << " faults: " << outcomes_.undone << " undone, "
              << outcomes_.done << " done, " << outcomes_.half << " half, " << outcomes_.silent
              << " silent\n";
    EXPECT_GT(outcomes_.undone, 10);
}

TEST_F(BusyFamilyTest, WhetherAChartRollsOnIsNotGuessedWhereItCannotBeRead) {
    const QString chart = QStringLiteral("Garden Anna");
    FailingDisk disk;
    Start();
    disk.FailAt(DiskCall::Read, 1, SQLITE_IOERR_READ, true);
    EXPECT_ERROR(3000, Database().ReturnAutoCreate(chart));
    disk.Mend();
    EXPECT_TRUE(Database().ReturnAutoCreate(chart));
    ResetSession();
}

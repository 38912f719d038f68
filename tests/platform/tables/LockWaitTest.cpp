#include "platform/runtime/Progress.h"
#include "tests/common/QuickEnough.h"
#include "tests/common/ReadLock.h"
#include "tests/platform/tables/TablesTest.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QScopeGuard>
#include <atomic>

namespace {

/// Another copy of the program holds a lock while this one wants to write.
class LockWaitTest : public TablesTest {
protected:
    LockWaitTest() {
        MakeTable();
        Store->Commit();
        SetCommitHook([this] { Store->Commit(); });
        SetWaitWatch([this](bool isWaiting) {
            told += isWaiting;
            if (!isWaiting)
                return;
            toldAfter = waited.elapsed();
            isTold = true;
        });
        waited.start();
    }
    ~LockWaitTest() override {
        SetCommitHook({});
        SetWaitWatch({});
    }

    static QString ChartName() { return QStringLiteral("Chart"); }

    void Write(const QString& memo) {
        Recordset rows = Store->OpenRecordset(ChartName());
        AddMemo(rows, memo);
    }

    /// Writes while a lock is held until something is so, and says how many milliseconds it took.
    template <class Condition>
    qint64 WriteWhileLockedUntil(const Condition& isSo) {
        told.clear();
        isTold = false;
        std::future<void> thread = Beside([&](const auto& goOn) {
            SQLite::Database other(File.toStdString(), SQLite::OPEN_READWRITE);
            other.exec("BEGIN IMMEDIATE");
            goOn();
            while (!isSo())
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            other.exec("COMMIT");
        });
        waited.start();
        Write(QStringLiteral("a"));
        const qint64 took = waited.elapsed();
        thread.get();
        Store->Commit();
        return took;
    }

    QList<bool> told;
    std::atomic<bool> isTold = false;
    qint64 toldAfter = 0;
    QElapsedTimer waited;
};

TEST_F(LockWaitTest, AShortWaitIsNotTold) {
    UntilQuickEnough([this] {
        QElapsedTimer locked;
        locked.start();
        const qint64 took = WriteWhileLockedUntil([&] { return locked.hasExpired(100); });
        const bool isShort = took >= 50 && took < 500;
        EXPECT_TRUE(!isShort || told.isEmpty());
        return isShort;
    });
}

TEST_F(LockWaitTest, AWaitOfMoreThanHalfASecondIsToldUntilItIsOver) {
    int writes = 0;
    UntilQuickEnough([&] {
        const QDeadlineTimer latest(4000);
        WriteWhileLockedUntil([&] { return isTold || latest.hasExpired(); });
        ++writes;
        EXPECT_EQ(told, QList<bool>({true, false}));
        EXPECT_GE(toldAfter, 500);
        return toldAfter < 1200;
    });
    EXPECT_EQ(Memos(*Store), QStringList(writes, QStringLiteral("a")));
}

TEST_F(LockWaitTest, AfterFiveSecondsTheUserHearsOfTheOtherCopyAndNothingOfTheActionIsWritten) {
    SQLite::Database other(File.toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN IMMEDIATE");
    Boxes.ExpectError(ErrorNumber::EngineFault, OtherCopyWrites);
    waited.start();
    RunAction([&] {
        WithErrorsSkipped([this] { Write(QStringLiteral("first half")); });
        EXPECT_EQ(told, QList<bool>({true, false}));
        EXPECT_GE(waited.elapsed(), 5000);
        EXPECT_LT(waited.elapsed(), 5000 + Patience);
        other.exec("COMMIT");
        WithErrorsSkipped([this] { Write(QStringLiteral("second half")); });
        Tell(QStringLiteral("Saved."));
    });
    EXPECT_EQ(Memos(*Store), QStringList());
    RunAction([this] { Write(QStringLiteral("again")); });
    EXPECT_EQ(Memos(*Store), QStringList(QStringLiteral("again")));
}

TEST_F(LockWaitTest, ALockOfTheWholeFileIsWaitedForOnceOnly) {
    UntilQuickEnough([this] {
        told.clear();
        Recordset rows = Store->OpenRecordset(ChartName());
        SQLite::Database other(File.toStdString(), SQLite::OPEN_READWRITE);
        other.exec("BEGIN EXCLUSIVE");
        waited.start();
        // The look at the file after the fault meets the lock again.
        EXPECT_EQ(ErrorText([&] { AddMemo(rows, QStringLiteral("a")); }), OtherCopyWrites);
        const qint64 took = waited.elapsed();
        EXPECT_GE(took, 5000);
        EXPECT_EQ(told, QList<bool>({true, false}));
        return took < 9500;
    });
}

TEST_F(LockWaitTest, HoweverBusyTheMachineAWaitIsToldBeforeItIsGivenUp) {
    LockWait::SetLongest(500);
    const auto restore = qScopeGuard([] { LockWait::SetLongest(LockWait::UsualLongest); });
    SQLite::Database other(File.toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN IMMEDIATE");
    EXPECT_EQ(ErrorText([this] { Write(QStringLiteral("a")); }), OtherCopyWrites);
    EXPECT_EQ(told, QList<bool>({true, false}));
}

} // namespace

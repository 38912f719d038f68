#include "platform/runtime/Progress.h"
#include "tests/common/ReadLock.h"
#include "tests/platform/tables/TablesTest.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QElapsedTimer>

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
            if (isWaiting)
                toldAfter = waited.elapsed();
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

    /// Runs `write` while a lock is held for some milliseconds.
    template <class Action>
    void WhileLockedFor(int milliseconds, Action&& write) {
        std::future<void> thread = Beside([this, milliseconds](const auto& goOn) {
            SQLite::Database other(File.toStdString(), SQLite::OPEN_READWRITE);
            other.exec("BEGIN IMMEDIATE");
            goOn();
            std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
            other.exec("COMMIT");
        });
        waited.start();
        write();
        thread.get();
    }

    QList<bool> told;
    qint64 toldAfter = 0;
    QElapsedTimer waited;
};

TEST_F(LockWaitTest, AShortWaitIsNotTold) {
    WhileLockedFor(100, [this] { Write(QStringLiteral("a")); });
    EXPECT_EQ(told, QList<bool>());
}

TEST_F(LockWaitTest, AWaitOfMoreThanHalfASecondIsToldUntilItIsOver) {
    WhileLockedFor(1200, [this] {
        Write(QStringLiteral("a"));
        EXPECT_EQ(told, QList<bool>({true, false}));
    });
    EXPECT_GE(toldAfter, 500);
    EXPECT_LT(toldAfter, 1200);
    Store->Commit();
    EXPECT_EQ(Memos(*Store), QStringList(QStringLiteral("a")));
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
    Recordset rows = Store->OpenRecordset(ChartName());
    SQLite::Database other(File.toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN EXCLUSIVE");
    waited.start();
    // The look at the file after the fault meets the lock again.
    EXPECT_EQ(ErrorText([&] { AddMemo(rows, QStringLiteral("a")); }), OtherCopyWrites);
    EXPECT_GE(waited.elapsed(), 5000);
    EXPECT_LT(waited.elapsed(), 9500);
    EXPECT_EQ(told, QList<bool>({true, false}));
}

} // namespace

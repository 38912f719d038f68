#include "tests/common/FullDisk.h"
#include "tests/common/ReadLock.h"
#include "tests/platform/tables/TablesTest.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <csignal>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class Durability : public TablesTest {
protected:
    const QString Chart = QStringLiteral("Chart");

    void CommitOneRow() {
        Recordset rows = MakeTable();
        AddMemo(rows, QStringLiteral("kept"));
        Store->Commit();
    }

    /// More than the engine keeps in memory, so that it writes before the commit.
    static void AddMuch(Recordset rows) {
        for (int i = 0; i < 60; ++i)
            AddMemo(rows, QString(100'000, QLatin1Char('x')));
    }

    void ExpectOnlyTheKeptRow() {
        EXPECT_EQ(Memos(*Store), QStringList{QStringLiteral("kept")});
        EXPECT_EQ(Names(*Store), QStringList{Chart});
    }
};

} // namespace

TEST_F(Durability, WithoutACommitNothingIsKept) {
    CommitOneRow();
    Recordset rows = Store->OpenRecordset(Chart);
    AddMemo(rows, QStringLiteral("lost"));
    rows.Edit();
    rows.SetValue(0, QStringLiteral("wrong"));
    rows.Update();
    Store->CreateTable(QStringLiteral("Lost"), AllTypes());
    Reopen();
    ExpectOnlyTheKeptRow();
    Store->DeleteTable(Chart);
    Reopen();
    ExpectOnlyTheKeptRow();
}

TEST_F(Durability, OthersSeeOnlyWhatIsCommitted) {
    CommitOneRow();
    const auto other = TableStore::OpenDatabase(File);
    Recordset rows = Store->OpenRecordset(Chart);
    AddMemo(rows, QStringLiteral("second"));
    EXPECT_EQ(Memos(*other).size(), 1);
    Store->Commit();
    EXPECT_EQ(Memos(*other).size(), 2);
}

TEST_F(Durability, CommitWithoutWritesDoesNothing) {
    CommitOneRow();
    const QByteArray before = ReadFile(File);
    Store->Commit();
    Memos(*Store);
    Store->Commit();
    EXPECT_EQ(ReadFile(File), before);
}

TEST_F(Durability, CursorsStayUsableOverACommit) {
    CommitOneRow();
    Recordset rows = Store->OpenRecordset(Chart);
    rows.Edit();
    rows.SetValue(0, QStringLiteral("changed"));
    Store->Commit();
    rows.Update();
    Store->Commit();
    EXPECT_EQ(rows.Value(0).toString(), QStringLiteral("changed"));
    rows.MoveNext();
    EXPECT_TRUE(rows.Eof());
}

TEST_F(Durability, OpenCursorsHoldNoLock) {
    CommitOneRow();
    const auto other = TableStore::OpenDatabase(File);
    Recordset reader = other->OpenRecordset(Chart);
    EXPECT_EQ(reader.Value(0).toString(), QStringLiteral("kept"));
    Recordset rows = Store->OpenRecordset(Chart);
    AddMemo(rows, QStringLiteral("second"));
    Store->Commit();
    reader.MoveNext();
    EXPECT_EQ(reader.Value(0).toString(), QStringLiteral("second"));
}

TEST_F(Durability, CursorSeesAnotherConnectionsRowsOnceItWrites) {
    CommitOneRow();
    Recordset mine = Store->OpenRecordset(Chart);
    const auto other = TableStore::OpenDatabase(File);
    Recordset theirs = other->OpenRecordset(Chart);
    theirs.Delete();
    other->Commit();
    EXPECT_ERROR(3021, {
        mine.Edit();
        mine.SetValue(0, QStringLiteral("x"));
        mine.Update();
    });
    EXPECT_EQ(mine.RecordCount(), 0);
}

TEST_F(Durability, CursorOutlastsTheTablesThatAnotherConnectionMakes) {
    CommitOneRow();
    Recordset mine = Store->OpenRecordset(Chart);
    const auto other = TableStore::OpenDatabase(File);
    other->CreateTable(QStringLiteral("Theirs"), AllTypes());
    other->Commit();
    EXPECT_EQ(Store->TableCount(), 2);
    AddMemo(mine, QStringLiteral("second"));
    EXPECT_EQ(mine.Value(0).toString(), QStringLiteral("kept"));
    mine.MoveNext();
    EXPECT_EQ(mine.Value(0).toString(), QStringLiteral("second"));
}

TEST_F(Durability, AReadingSeesAllThatIsThereAndLetsGoOfTheFileAtItsEnd) {
    MakeTable();
    Store->Commit();
    const auto other = TableStore::OpenDatabase(File);
    {
        const TableStore::Reading reading(*Store);
        EXPECT_EQ(Memos(*Store), QStringList());
    }
    Recordset theirs = other->OpenRecordset(QStringLiteral("Chart"));
    AddMemo(theirs, QStringLiteral("a"));
    other->Commit();
    const TableStore::Reading reading(*Store);
    EXPECT_EQ(Memos(*Store), QStringList(QStringLiteral("a")));
}

TEST_F(Durability, AReadingKeepsAllWhoWriteWaitingUntilTheOutermostOneEnds) {
    CommitOneRow();
    SQLite::Database other(File.toStdString(), SQLite::OPEN_READWRITE);
    {
        const TableStore::Reading outer(*Store);
        {
            const TableStore::Reading inner(*Store);
            EXPECT_EQ(Memos(*Store).size(), 1);
        }
        other.exec("BEGIN IMMEDIATE");
        other.exec("UPDATE Rows1 SET Memo = 'theirs'");
        EXPECT_EQ(other.tryExec("COMMIT"), SQLITE_BUSY);
        EXPECT_EQ(Memos(*Store), QStringList(QStringLiteral("kept")));
    }
    EXPECT_EQ(other.tryExec("COMMIT"), SQLITE_OK);
    EXPECT_EQ(Memos(*Store), QStringList(QStringLiteral("theirs")));
}

TEST_F(Durability, AWriteOrACommitEndsAReading) {
    MakeTable();
    Store->Commit();
    const auto other = TableStore::OpenDatabase(File);
    const TableStore::Reading reading(*Store);
    Recordset ours = Store->OpenRecordset(QStringLiteral("Chart"));
    AddMemo(ours, QStringLiteral("ours"));
    Store->Commit();
    Recordset theirs = other->OpenRecordset(QStringLiteral("Chart"));
    AddMemo(theirs, QStringLiteral("theirs"));
    other->Commit();
    EXPECT_EQ(Memos(*Store), QStringList({QStringLiteral("ours"), QStringLiteral("theirs")}));
}

TEST_F(Durability, AnEditToTheValueThatThisCursorHasReadPrevailsOverAnotherConnectionsChange) {
    Recordset ours = MakeTable();
    AddMemo(ours, QStringLiteral("a"));
    Store->Commit();
    ours.MoveFirst();
    EXPECT_EQ(ours.Value(0).toString(), QStringLiteral("a"));
    const auto other = TableStore::OpenDatabase(File);
    Recordset theirs = other->OpenRecordset(QStringLiteral("Chart"));
    theirs.Edit();
    theirs.SetValue(0, QStringLiteral("b"));
    theirs.Update();
    other->Commit();
    ours.Edit();
    ours.SetValue(0, QStringLiteral("a"));
    ours.Update();
    Store->Commit();
    EXPECT_EQ(Memos(*other), QStringList(QStringLiteral("a")));
}

TEST_F(Durability, WriterWaitsForAnotherOne) {
    CommitOneRow();
    std::future<void> thread = Beside([this](const auto& goOn) {
        const auto other = TableStore::OpenDatabase(File);
        Recordset rows = other->OpenRecordset(Chart);
        AddMemo(rows, QStringLiteral("theirs"));
        goOn();
        std::this_thread::sleep_for(std::chrono::milliseconds(150));
        other->Commit();
    });
    Recordset rows = Store->OpenRecordset(Chart);
    AddMemo(rows, QStringLiteral("mine"));
    Store->Commit();
    thread.get();
    EXPECT_EQ(Memos(*Store), (QStringList{QStringLiteral("kept"), QStringLiteral("theirs"),
                                          QStringLiteral("mine")}));
}

TEST_F(Durability, FullDiskAtTheCommitRollsBackAndSaysSo) {
    CommitOneRow();
    Recordset before = Store->OpenRecordset(Chart);
    Store->DeleteTable(Chart);
    Recordset rows = MakeTable();
    for (int i = 0; i < 200; ++i)
        AddMemo(rows, QString(500, QLatin1Char('x')));
    Store->CreateTable(QStringLiteral("Lost"), AllTypes());
    {
        const FullDisk full(QFileInfo(File).size() + 4096);
        EXPECT_ERROR(3000, Store->Commit());
        Store->Commit();
    }
    EXPECT_ERROR(3078, rows.RecordCount());
    EXPECT_ERROR(9, Store->TableName(1));
    EXPECT_EQ(Store->TableName(0), Chart);
    ExpectOnlyTheKeptRow();
    Reopen();
    ExpectOnlyTheKeptRow();
}

TEST_F(Durability, ACommitThatWaitsInVainForOneWhoReadsTakesBackWhatWasWritten) {
    CommitOneRow();
    Recordset rows = Store->OpenRecordset(Chart);
    AddMemo(rows, QStringLiteral("lost"));
    {
        const ReadLock lock(File);
        EXPECT_EQ(ErrorText([&] { Store->Commit(); }), OtherCopyWrites);
    }
    Store->Commit();
    ExpectOnlyTheKeptRow();
    AddMemo(rows, QStringLiteral("after"));
    Store->Commit();
    Reopen();
    EXPECT_EQ(Memos(*Store), (QStringList{QStringLiteral("kept"), QStringLiteral("after")}));
}

TEST_F(Durability, CursorsReadWhatIsStoredAfterAFailedCommit) {
    CommitOneRow();
    Recordset rows = Store->OpenRecordset(Chart);
    rows.Edit();
    rows.SetValue(0, QString(200'000, QLatin1Char('x')));
    rows.Update();
    {
        const FullDisk full(QFileInfo(File).size());
        EXPECT_ERROR(3000, Store->Commit());
    }
    EXPECT_EQ(rows.Value(0).toString(), QStringLiteral("kept"));
    AddMemo(rows, QStringLiteral("after"));
    Store->Commit();
    Reopen();
    EXPECT_EQ(Memos(*Store), (QStringList{QStringLiteral("kept"), QStringLiteral("after")}));
}

TEST_F(Durability, FullDiskInTheMiddleOfWritingLosesNothingCommitted) {
    CommitOneRow();
    {
        const FullDisk full(1'000'000);
        EXPECT_ERROR(3000, AddMuch(Store->OpenRecordset(Chart)));
        WithErrorsSkipped([&] { Store->Commit(); });
    }
    const QStringList memos = Memos(*Store);
    EXPECT_EQ(memos.value(0), QStringLiteral("kept"));
    Recordset rows = Store->OpenRecordset(Chart);
    AddMemo(rows, QStringLiteral("after"));
    Store->Commit();
    Reopen();
    EXPECT_EQ(Memos(*Store), memos + QStringList{QStringLiteral("after")});
}

TEST_F(Durability, KilledWriterLosesOnlyWhatWasNotCommitted) {
    CommitOneRow();
    Store.reset();
    const pid_t child = InChild([this] {
        const auto store = TableStore::OpenDatabase(File);
        AddMuch(store->OpenRecordset(Chart));
        kill(getpid(), SIGKILL);
    });
    ASSERT_GE(child, 0);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_TRUE(QFile::exists(File + QStringLiteral("-journal")));
    Store = TableStore::OpenDatabase(File);
    ExpectOnlyTheKeptRow();
    EXPECT_FALSE(QFile::exists(File + QStringLiteral("-journal")));
}

#include "platform/tables/Damage.h"
#include "tests/common/FullDisk.h"
#include "tests/platform/tables/TablesTest.h"

#include <SQLiteCpp/SQLiteCpp.h>

namespace {

const QStringList Sound;

/// What a look for damage says of files that others have changed.
class Damage : public TablesTest {
protected:
    Damage() {
        for (const char* name : {"Anna's", "Ben's"}) {
            Recordset rows = MakeTable(QString::fromLatin1(name));
            for (int row = 0; row < 4; ++row) {
                rows.AddNew();
                rows.SetValue(0, QStringLiteral("Job %1").arg(row));
                rows.SetValue(1, QStringLiteral("007"));
                rows.SetValue(2, row);
                rows.SetValue(3, row > 1);
                rows.SetValue(4, QDate(2001, 3, 4).addDays(row));
                rows.AppendChunk(QStringLiteral("Bytes"), QByteArray(9'000, char('a' + row)));
                rows.Update();
            }
        }
        Store->Commit();
    }

    /// What is found after other hands have been at the file, which is put back afterwards.
    QStringList After(const char* statements) {
        const QByteArray before = ReadFile(File);
        SQLite::Database(File.toStdString(), SQLite::OPEN_READWRITE).exec(statements);
        const QStringList found = FindDamage(File);
        WriteFile(File, before);
        return found;
    }
};

const QString Named = QStringLiteral("'Ben's' is not as it was stored.");
const QString Unreadable = QStringLiteral("'Ben's' cannot be read.");
const QString ListDamaged =
    QStringLiteral("The list of charts and accounts is not as it was stored.");
const QString Strays = QStringLiteral("There are rows of no chart and no account.");

} // namespace

TEST_F(Damage, NoneIsFoundInASoundFileAndNothingIsWritten) {
    const QByteArray before = ReadFile(File);
    EXPECT_EQ(FindDamage(File), Sound);
    EXPECT_EQ(ReadFile(File), before);
    EXPECT_EQ(After("SELECT 1"), Sound);
    const QString empty = Path(QStringLiteral("New.mdb"));
    TableStore::CreateDatabase(empty, QString());
    EXPECT_EQ(FindDamage(empty), Sound);
}

TEST_F(Damage, TheSumOfTheSameRowsIsTheSameInAllFilesOfTheFormat) {
    SQLite::Database file(File.toStdString());
    EXPECT_EQ(file.execAndGet("SELECT Sum FROM Catalogue WHERE Id = 1").getInt64(),
              7332285485970371802);
}

TEST_F(Damage, EveryWriteKeepsTheSumsInItsCommit) {
    const auto expectSound = [this](const char* what) {
        Store->Commit();
        EXPECT_EQ(FindDamage(File), Sound) << what;
    };
    Recordset rows = Store->OpenRecordset(QStringLiteral("Anna's"));
    Recordset others = Store->OpenRecordset(QStringLiteral("Anna's"));
    rows.Edit();
    rows.SetValue(2, 99);
    rows.SetValue(0, QVariant());
    rows.Update();
    expectSound("edited");
    others.Edit();
    others.SetValue(2, 100);
    others.Update();
    expectSound("edited through a cursor that has read the former values");
    rows.Edit();
    rows.AppendChunk(QStringLiteral("Bytes"), "another picture");
    rows.Update();
    expectSound("another picture");
    rows.Edit();
    rows.SetValue(1, QStringLiteral("008"));
    rows.Update();
    expectSound("the text beside a picture");
    others.Delete();
    expectSound("deleted, picture and all");
    Store->CopyRows(QStringLiteral("Ben's"), QStringLiteral("Anna's"),
                    {QStringLiteral("Memo"), QStringLiteral("Bytes")});
    expectSound("copied behind other rows");
    Store->SetField(QStringLiteral("Anna's"), QStringLiteral("Boolean"), true);
    expectSound("set in all rows");
    Store->SetField(QStringLiteral("Anna's"), QStringLiteral("Bytes"), QVariant());
    expectSound("no pictures in any row");
    MakeTable(QStringLiteral("Copy"));
    Store->CopyRows(QStringLiteral("Anna's"), QStringLiteral("Copy"),
                    {QStringLiteral("Memo"), QStringLiteral("Text"), QStringLiteral("Long")});
    expectSound("copied to an empty table, in part");
    MakeTable(QStringLiteral("Whole copy"));
    Store->CopyRows(QStringLiteral("Ben's"), QStringLiteral("Whole copy"),
                    {QStringLiteral("Memo"), QStringLiteral("Text"), QStringLiteral("Long"),
                     QStringLiteral("Boolean"), QStringLiteral("Date"), QStringLiteral("Bytes")});
    expectSound("copied to an empty table");
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext())
        rows.Delete();
    expectSound("all deleted");
    AddMemo(rows, QStringLiteral("first again"));
    expectSound("added");
    Store->DeleteTable(QStringLiteral("Anna's"));
    expectSound("dropped");
    Store->CreateTable(QStringLiteral("Number"), {{QStringLiteral("N"), FieldType::Long}});
    expectSound("a table of another shape");
    Store->DeleteTable(QStringLiteral("Number"));
    MakeTable(QStringLiteral("anna's"));
    expectSound("the last table dropped, another made");
}

TEST_F(Damage, WhatIsRolledBackLeavesNothingInTheSums) {
    Recordset rows = Store->OpenRecordset(QStringLiteral("Ben's"));
    {
        const FullDisk full(QFileInfo(File).size());
        for (int row = 0; row < 200; ++row)
            AddMemo(rows, QString(400, QLatin1Char('x')));
        EXPECT_ERROR(3000, Store->Commit());
    }
    EXPECT_EQ(FindDamage(File), Sound);
    {
        // More than the engine keeps in memory: it rolls back within the transaction.
        const FullDisk full(QFileInfo(File).size());
        AddMemo(rows, QStringLiteral("taken back"));
        EXPECT_ERROR(3000, AddMemo(rows, QString(8'000'000, QLatin1Char('x'))));
    }
    EXPECT_EQ(rows.RecordCount(), 4);
    AddMemo(rows, QStringLiteral("kept"));
    Store->Commit();
    EXPECT_EQ(FindDamage(File), Sound);
    AddMemo(rows, QStringLiteral("not committed"));
    Reopen();
    EXPECT_EQ(FindDamage(File), Sound);
}

TEST_F(Damage, TwoThatWriteInTurnKeepTheSums) {
    const auto other = TableStore::OpenDatabase(File);
    for (int turn = 0; turn < 5; ++turn) {
        for (TableStore* store : {Store.get(), other.get()}) {
            Recordset rows = store->OpenRecordset(QStringLiteral("Ben's"));
            rows.Edit();
            rows.SetValue(2, rows.Value(2).toInt() + 1);
            rows.Update();
            AddMemo(rows, QStringLiteral("more"));
            store->Commit();
        }
        EXPECT_EQ(FindDamage(File), Sound) << turn;
    }
}

TEST_F(Damage, AChangedCellIsFoundAndItsTableNamed) {
    for (const char* change :
         {"Memo = 'Job 4'", "Memo = NULL", "Memo = ''", "Text = '7'", "Long = 1", "Long = NULL",
          "Boolean = 1", "Boolean = 0", "Date = '2001-03-08'", "Bytes = NULL", "Bytes = x''",
          "Bytes = zeroblob(length(Bytes))", "Bytes = substr(Bytes, 2)",
          "Memo = Text, Text = Memo"})
        EXPECT_EQ(
            After(
                ("UPDATE Rows1 SET " + std::string(change) + " WHERE Key = (2 << 32) + 4").c_str()),
            QStringList(Named))
            << change;
}

TEST_F(Damage, ACellThatNoProgramOfOursHasStoredCannotBeRead) {
    for (const char* change :
         {"Memo = x'41'", "Long = 'many'", "Long = 2147483648", "Long = 1.5", "Boolean = 'yes'",
          "Date = '2001-02-30'", "Date = 'soon'", "Bytes = CAST(Bytes AS TEXT)"})
        EXPECT_EQ(
            After(
                ("UPDATE Rows1 SET " + std::string(change) + " WHERE Key = (2 << 32) + 4").c_str()),
            QStringList(Unreadable))
            << change;
}

TEST_F(Damage, RowsThatHaveGoneComeOrMovedAreFound) {
    EXPECT_EQ(After("DELETE FROM Rows1 WHERE Key = (2 << 32) + 4"), QStringList(Named));
    EXPECT_EQ(After("INSERT INTO Rows1(Key) VALUES((2 << 32) + 9)"), QStringList(Named));
    EXPECT_EQ(After("UPDATE Rows1 SET Key = Key + 1 WHERE Key = (2 << 32) + 4"),
              QStringList(Named));
    EXPECT_EQ(After("UPDATE Rows1 SET Key = (5 << 32) + 1 WHERE Key = (2 << 32) + 4"),
              (QStringList{Named, Strays}));
    EXPECT_EQ(After("INSERT INTO Rows1(Key) VALUES((5 << 32) + 1)"), QStringList(Strays));
    // Two rows that have changed places.
    EXPECT_EQ(After("UPDATE Rows1 SET Memo = 'Job ' || (4 - Key % 8), Long = 4 - Key % 8"
                    " WHERE Key IN ((2 << 32) + 1, (2 << 32) + 3)"),
              QStringList(Named));
}

TEST_F(Damage, ChangesOfTheFilesOwnRecordsAreFound) {
    for (const char* statements :
         {"UPDATE Catalogue SET Name = 'BEN''S' WHERE Id = 2",
          "UPDATE Catalogue SET NextRow = NextRow + 1", "DELETE FROM Information",
          "UPDATE Information SET Value = 'x' WHERE Name = 'Locale'",
          "UPDATE Information SET Value = '0' || Value WHERE Name = 'Sum'",
          "UPDATE sqlite_sequence SET seq = 7", "DELETE FROM sqlite_sequence",
          "INSERT INTO Catalogue(Name, FoldedName, Shape) VALUES('x', 'x', 1)",
          "INSERT INTO Information VALUES('x', 'x')"})
        EXPECT_EQ(After(statements), QStringList(ListDamaged)) << statements;
    EXPECT_EQ(After("UPDATE Catalogue SET Sum = Sum + 1 WHERE Id = 2"),
              (QStringList{Named, ListDamaged}));
    EXPECT_EQ(After("DELETE FROM Catalogue WHERE Id = 2"), (QStringList{Strays, ListDamaged}));
    // A name that is not found by its folded form; of two tables that have changed names neither
    // is noticed by its rows, which still belong together.
    EXPECT_EQ(After("UPDATE Catalogue SET FoldedName = 'x' WHERE Id = 2"),
              (QStringList{Unreadable, ListDamaged}));
    EXPECT_EQ(After("UPDATE Catalogue SET FoldedName = 'x' WHERE Id = 2;"
                    "UPDATE Catalogue SET Name = 'Ben''s', FoldedName = 'ben''s' WHERE Id = 1;"
                    "UPDATE Catalogue SET Name = 'Anna''s', FoldedName = 'anna''s' WHERE Id = 2"),
              QStringList(ListDamaged));
}

TEST_F(Damage, AnotherDeclarationIsFound) {
    const QString declared =
        QStringLiteral("The file is damaged: what 'Rows1' holds is not declared.");
    EXPECT_TRUE(After("ALTER TABLE Rows1 RENAME COLUMN Memo TO Mem0").contains(declared));
    EXPECT_TRUE(After("ALTER TABLE Rows1 ADD COLUMN More MEMO TEXT").contains(declared));
    EXPECT_TRUE(After("ALTER TABLE Rows1 RENAME TO Rows7").contains(declared));
    EXPECT_EQ(After("UPDATE Shapes SET Fields = Fields || ' '"),
              (QStringList{declared, ListDamaged}));
    // The engine itself reads what is in another case.
    for (const char* table : {"Information", "Shapes", "Catalogue", "Rows1", "sqlite_sequence"})
        EXPECT_EQ(
            After(("PRAGMA writable_schema = ON;"
                   "UPDATE sqlite_master SET sql = replace(sql, 'e', 'E') WHERE name = '" +
                   std::string(table) + "'")
                      .c_str()),
            QStringList(QStringLiteral("The file is damaged: what '%1' holds is not declared.")
                            .arg(QLatin1String(table))))
            << table;
}

TEST_F(Damage, DamageBeneathTheTablesIsSaidInTheEnginesWords) {
    const QByteArray whole = ReadFile(File);
    QByteArray damaged = whole;
    damaged.replace(4096 * 2, 4096, QByteArray(4096, '\0'));
    WriteFile(File, damaged);
    const QStringList found = FindDamage(File);
    ASSERT_FALSE(found.isEmpty());
    EXPECT_TRUE(found.first().startsWith(QStringLiteral("The file ")))
        << found.first().toStdString();
    WriteFile(File, whole.left(whole.size() - 4096));
    EXPECT_EQ(FindDamage(File), QStringList(QStringLiteral(
                                    "The file cannot be read: database disk image is malformed.")));
}

TEST_F(Damage, AFileThatIsNoneOrNotOursIsSaidToBeSo) {
    const QString path = Path(QStringLiteral("Other.mdb"));
    EXPECT_TRUE(FindDamage(path).value(0).contains(QStringLiteral("unable to open")));
    EXPECT_FALSE(QFile::exists(path));
    WriteFile(path, {});
    EXPECT_EQ(FindDamage(path), QStringList(QStringLiteral("The file is empty.")));
    EXPECT_EQ(ReadFile(path), QByteArray());
    WriteFile(path, QByteArray(5000, 'x'));
    EXPECT_EQ(FindDamage(path),
              QStringList(QStringLiteral("The file cannot be read: file is not a database.")));
    QFile::remove(path);
    SQLite::Database(path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
        .exec("CREATE TABLE t(a)");
    EXPECT_TRUE(FindDamage(path).value(0).contains(QStringLiteral("another program")));
}

TEST_F(Damage, RowsThatGoBackDoNotKeepAWalkForEver) {
    // Pages of rows in which the keys of two have been exchanged, with more rows than are read at
    // once behind them.
    {
        Recordset rows = Store->OpenRecordset(QStringLiteral("Ben's"));
        for (int row = 0; row < 300; ++row)
            AddMemo(rows, QStringLiteral("short"));
        Store->Commit();
    }
    const QByteArray whole = ReadFile(File);
    int raised = 0;
    // A key is a varint of the table's 2 in the high and the row's number in the low 32 bits.
    for (const int row : {64, 68, 100, 127}) {
        QByteArray damaged = whole;
        const QByteArray head("\xa0\x80\x80\x80");
        const qsizetype at = damaged.indexOf(head + char(row));
        ASSERT_GT(at, 0) << row;
        damaged[at + 4] = 5;
        WriteFile(File, damaged);
        Reopen();
        try {
            Recordset rows = Store->OpenRecordset(QStringLiteral("Ben's"));
            for (int step = 0; !rows.Eof(); rows.MoveNext())
                ASSERT_LT(++step, 1'000) << row;
        } catch (const RuntimeError& error) {
            ++raised;
            EXPECT_EQ(error.Text(), QStringLiteral("database disk image is malformed"));
        }
        EXPECT_NE(FindDamage(File), Sound) << row;
    }
    EXPECT_GT(raised, 0);
}

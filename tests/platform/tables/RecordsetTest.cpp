#include "tests/platform/tables/TablesTest.h"

namespace {

class Cursors : public TablesTest {
protected:
    /// A table of `count` rows with the numbers from 0 on in their memos.
    Recordset Numbered(int count) {
        Recordset rows = MakeTable();
        for (int i = 0; i < count; ++i)
            AddMemo(rows, QString::number(i));
        return Store->OpenRecordset(QStringLiteral("Chart"));
    }

    static QString Memo(const Recordset& rows) { return rows.Value(0).toString(); }

    static void SetMemo(Recordset& rows, const char* text) {
        rows.Edit();
        rows.SetValue(0, QLatin1String(text));
        rows.Update();
    }
};

} // namespace

TEST_F(Cursors, EmptyTableIsAtBothEndsAndHasNoCurrentRow) {
    Recordset rows = MakeTable();
    EXPECT_TRUE(rows.Eof());
    EXPECT_TRUE(rows.Bof());
    EXPECT_EQ(rows.RecordCount(), 0);
    EXPECT_EQ(rows.FieldCount(), 6);
    EXPECT_ERROR(3021, rows.MoveFirst());
    EXPECT_ERROR(3021, rows.MoveNext());
    EXPECT_ERROR(3021, rows.Value(0));
    EXPECT_ERROR(3021, rows.Edit());
    EXPECT_ERROR(3021, rows.Delete());
    EXPECT_ERROR(3021, rows.FieldSize(QStringLiteral("Bytes")));
    EXPECT_ERROR(3021, rows.GetChunk(QStringLiteral("Bytes"), 0, 1));
}

TEST_F(Cursors, OpensAtItsFirstRow) {
    Recordset rows = Numbered(3);
    EXPECT_FALSE(rows.Eof());
    EXPECT_FALSE(rows.Bof());
    EXPECT_EQ(Memo(rows), QStringLiteral("0"));
}

TEST_F(Cursors, WalksInTheOrderOfMakingAndStopsBehindTheLastRow) {
    for (const int count : {1, 2, 64, 65, 66, 129, 300}) {
        Recordset rows = Numbered(count);
        EXPECT_EQ(rows.RecordCount(), count);
        for (int i = 0; i < count; ++i) {
            ASSERT_FALSE(rows.Eof());
            ASSERT_EQ(Memo(rows), QString::number(i));
            rows.MoveNext();
        }
        EXPECT_TRUE(rows.Eof());
        EXPECT_FALSE(rows.Bof());
        EXPECT_ERROR(3021, rows.MoveNext());
        EXPECT_ERROR(3021, rows.Value(0));
        rows.MoveFirst();
        EXPECT_EQ(Memo(rows), QStringLiteral("0"));
        Store->DeleteTable(QStringLiteral("Chart"));
    }
}

TEST_F(Cursors, FieldsAreNamedOrCounted) {
    Recordset rows = Numbered(1);
    EXPECT_EQ(Shown(rows.Value(QStringLiteral("memo"))), Shown(rows.Value(0)));
    EXPECT_ERROR(9, rows.Value(6));
    EXPECT_ERROR(9, rows.Value(-1));
    EXPECT_ERROR(9, rows.Value(QStringLiteral("Nothing")));
    EXPECT_ERROR(9, rows.FieldSize(QStringLiteral("Nothing")));
    rows.Edit();
    EXPECT_ERROR(9, rows.SetValue(6, 1));
    EXPECT_ERROR(9, rows.SetValue(QStringLiteral("Nothing"), 1));
    EXPECT_ERROR(9, rows.AppendChunk(QStringLiteral("Nothing"), "x"));
}

TEST_F(Cursors, AddNewKeepsTheCurrentRow) {
    Recordset rows = Numbered(3);
    rows.MoveNext();
    AddMemo(rows, QStringLiteral("new"));
    EXPECT_EQ(Memo(rows), QStringLiteral("1"));
    rows.MoveNext();
    rows.MoveNext();
    EXPECT_EQ(Memo(rows), QStringLiteral("new"));
}

TEST_F(Cursors, RowsAddedBehindTheWalkAreReached) {
    Recordset rows = Numbered(70);
    int seen = 0;
    for (; !rows.Eof(); rows.MoveNext())
        if (++seen <= 70)
            AddMemo(rows, QStringLiteral("more"));
    EXPECT_EQ(seen, 140);
}

TEST_F(Cursors, FirstRowOfAnEmptyTableNeedsAMove) {
    Recordset rows = MakeTable();
    AddMemo(rows, QStringLiteral("one"));
    EXPECT_TRUE(rows.Eof());
    EXPECT_FALSE(rows.Bof());
    EXPECT_ERROR(3021, rows.Value(0));
    rows.MoveFirst();
    EXPECT_EQ(Memo(rows), QStringLiteral("one"));
}

TEST_F(Cursors, NewRowHasNullsAndFalse) {
    Recordset rows = MakeTable();
    rows.AddNew();
    rows.Update();
    rows.MoveFirst();
    QStringList values;
    for (int i = 0; i < 5; ++i)
        values.append(Shown(rows.Value(i)));
    EXPECT_EQ(values.join(QLatin1Char('|')), QStringLiteral("Null|Null|Null|bool false|Null"));
    EXPECT_EQ(rows.FieldSize(QStringLiteral("Bytes")), 0);
}

TEST_F(Cursors, EditChangesOnlyWhatIsSet) {
    Recordset rows = MakeTable();
    rows.AddNew();
    rows.SetValue(QStringLiteral("Memo"), QStringLiteral("job"));
    rows.SetValue(QStringLiteral("Long"), 5);
    rows.Update();
    rows.MoveFirst();
    rows.Edit();
    rows.SetValue(QStringLiteral("Long"), 6);
    EXPECT_EQ(Shown(rows.Value(2)), QStringLiteral("int 5"));
    rows.Update();
    EXPECT_EQ(Shown(rows.Value(2)), QStringLiteral("int 6"));
    EXPECT_EQ(Memo(rows), QStringLiteral("job"));
}

TEST_F(Cursors, SettingNeedsAddNewOrEdit) {
    Recordset rows = Numbered(1);
    EXPECT_ERROR(3021, rows.SetValue(0, 1));
    EXPECT_ERROR(3021, rows.AppendChunk(QStringLiteral("Bytes"), "x"));
    EXPECT_ERROR(3021, rows.Update());
    SetMemo(rows, "x");
    EXPECT_ERROR(3021, rows.Update());
}

TEST_F(Cursors, MovingForgetsWhatWasBegun) {
    Recordset rows = Numbered(2);
    rows.Edit();
    rows.SetValue(0, QStringLiteral("lost"));
    rows.MoveNext();
    EXPECT_ERROR(3021, rows.Update());
    rows.AddNew();
    rows.MoveFirst();
    EXPECT_ERROR(3021, rows.Update());
    EXPECT_EQ(Memos(*Store), (QStringList{QStringLiteral("0"), QStringLiteral("1")}));
}

TEST_F(Cursors, EditingEveryRowOfAWalkChangesEveryRow) {
    Recordset rows = Numbered(150);
    for (; !rows.Eof(); rows.MoveNext())
        SetMemo(rows, "done");
    EXPECT_EQ(Memos(*Store).count(QStringLiteral("done")), 150);
}

TEST_F(Cursors, DeletedRowIsNotCurrentUntilTheNextMove) {
    Recordset rows = Numbered(3);
    rows.Delete();
    EXPECT_FALSE(rows.Eof());
    EXPECT_ERROR(3021, rows.Value(0));
    EXPECT_ERROR(3021, rows.Edit());
    EXPECT_ERROR(3021, rows.Delete());
    EXPECT_EQ(rows.RecordCount(), 2);
    rows.MoveNext();
    EXPECT_EQ(Memo(rows), QStringLiteral("1"));
    rows.MoveNext();
    rows.Delete();
    rows.MoveNext();
    EXPECT_TRUE(rows.Eof());
    rows.MoveFirst();
    EXPECT_EQ(Memo(rows), QStringLiteral("1"));
}

TEST_F(Cursors, DeletingAlongAWalkLeavesTheOthers) {
    Recordset rows = Numbered(200);
    for (; !rows.Eof(); rows.MoveNext())
        if (Memo(rows).toInt() % 3 != 0)
            rows.Delete();
    EXPECT_EQ(Memos(*Store).size(), 67);
    EXPECT_EQ(Memos(*Store).value(1), QStringLiteral("3"));
}

TEST_F(Cursors, RowAddedAfterDeletingTheLastOneIsTheNext) {
    Recordset rows = Numbered(1);
    rows.Delete();
    AddMemo(rows, QStringLiteral("new"));
    EXPECT_ERROR(3021, rows.Value(0));
    rows.MoveNext();
    EXPECT_EQ(Memo(rows), QStringLiteral("new"));
}

TEST_F(Cursors, NewRowIsNotTakenForADeletedOne) {
    Recordset first = Numbered(1);
    Recordset second = Store->OpenRecordset(QStringLiteral("Chart"));
    first.Edit();
    first.SetValue(0, QStringLiteral("wrong"));
    second.Delete();
    AddMemo(second, QStringLiteral("new"));
    EXPECT_ERROR(3021, first.Update());
    EXPECT_EQ(Memos(*Store), QStringList{QStringLiteral("new")});
}

TEST_F(Cursors, ValuesAreReadAsAnotherCursorHasWrittenThem) {
    Recordset reader = Numbered(100);
    Recordset writer = Store->OpenRecordset(QStringLiteral("Chart"));
    reader.MoveNext();
    reader.MoveNext();
    writer.MoveNext();
    writer.MoveNext();
    SetMemo(writer, "changed");
    EXPECT_EQ(Memo(reader), QStringLiteral("changed"));
    writer.MoveNext();
    SetMemo(writer, "ahead");
    reader.MoveNext();
    EXPECT_EQ(Memo(reader), QStringLiteral("ahead"));
    writer.MoveNext();
    writer.Delete();
    reader.MoveNext();
    EXPECT_EQ(Memo(reader), QStringLiteral("5"));
    EXPECT_EQ(reader.RecordCount(), 99);
}

TEST_F(Cursors, OwnWritesDoNotHideThoseOfAnotherCursor) {
    Recordset mine = Numbered(3);
    mine.MoveNext();
    Recordset other = Store->OpenRecordset(QStringLiteral("Chart"));
    other.MoveNext();
    other.Edit();
    other.SetValue(QStringLiteral("Long"), 7);
    other.Update();
    SetMemo(mine, "mine");
    EXPECT_EQ(Shown(mine.Value(2)), QStringLiteral("int 7"));
    EXPECT_EQ(Memo(mine), QStringLiteral("mine"));
    EXPECT_EQ(Memo(other), QStringLiteral("mine"));
}

TEST_F(Cursors, RowDeletedByAnotherCursorHasGone) {
    Recordset mine = Numbered(3);
    Recordset other = Store->OpenRecordset(QStringLiteral("Chart"));
    mine.Edit();
    mine.SetValue(0, QStringLiteral("x"));
    other.Delete();
    EXPECT_ERROR(3021, mine.Update());
    EXPECT_ERROR(3021, mine.Value(0));
    EXPECT_ERROR(3021, mine.Edit());
    EXPECT_ERROR(3021, mine.Delete());
    mine.MoveNext();
    EXPECT_EQ(Memo(mine), QStringLiteral("1"));
}

TEST_F(Cursors, UpdateThatSetsNothingStillNeedsItsRow) {
    Recordset mine = Numbered(2);
    mine.Edit();
    mine.Update();
    EXPECT_EQ(Memo(mine), QStringLiteral("0"));
    Recordset other = Store->OpenRecordset(QStringLiteral("Chart"));
    mine.Edit();
    other.Delete();
    EXPECT_ERROR(3021, mine.Update());
}

TEST_F(Cursors, FirstRowOfAnotherCursorsMakingIsFound) {
    Recordset mine = MakeTable();
    Recordset other = Store->OpenRecordset(QStringLiteral("Chart"));
    AddMemo(other, QStringLiteral("theirs"));
    mine.MoveFirst();
    EXPECT_EQ(Memo(mine), QStringLiteral("theirs"));
}

TEST_F(Cursors, ClosedCursorIsOfNoUse) {
    Recordset rows = Numbered(1);
    rows.Close();
    EXPECT_ERROR(91, rows.Eof());
    EXPECT_ERROR(91, rows.Name());
    EXPECT_ERROR(91, rows.MoveFirst());
    EXPECT_ERROR(91, rows.Value(0));
    EXPECT_ERROR(91, rows.AddNew());
    EXPECT_ERROR(91, rows.Close());
}

TEST_F(Cursors, CursorThatOutlivesItsStoreIsOfNoUse) {
    Recordset rows = Numbered(1);
    rows.AddNew();
    Store.reset();
    EXPECT_ERROR(91, rows.Update());
    EXPECT_ERROR(91, rows.Eof());
    EXPECT_ERROR(91, rows.Value(0));
    EXPECT_ERROR(91, rows.RecordCount());
}

TEST_F(Cursors, CursorsCanBeMoved) {
    Recordset rows = Numbered(2);
    Recordset taken = std::move(rows);
    taken.MoveNext();
    EXPECT_EQ(Memo(taken), QStringLiteral("1"));
    taken = Store->OpenRecordset(QStringLiteral("Chart"));
    EXPECT_EQ(Memo(taken), QStringLiteral("0"));
}

TEST_F(Cursors, CopiedRowsKeepTheirOrderAndLeaveOutTheOtherFields) {
    Recordset rows = MakeTable();
    for (int number = 0; number < 100; ++number) {
        rows.AddNew();
        rows.SetValue(0, QStringLiteral("memo %1").arg(number));
        rows.SetValue(2, number);
        rows.SetValue(3, true);
        rows.Update();
    }
    rows.MoveFirst();
    rows.Delete();
    Recordset copy = MakeTable(QStringLiteral("Copy"));
    AddMemo(copy, QStringLiteral("before"));
    Store->CopyRows(QStringLiteral("Chart"), QStringLiteral("copy"), {QStringLiteral("Memo")});
    AddMemo(copy, QStringLiteral("after"));
    QStringList wanted{QStringLiteral("before")};
    wanted += Memos(*Store);
    wanted += QStringLiteral("after");
    EXPECT_EQ(Memos(*Store, QStringLiteral("Copy")), wanted);
    EXPECT_EQ(wanted.size(), 101);
    copy.MoveFirst();
    copy.MoveNext();
    EXPECT_EQ(Shown(copy.Value(2)), QStringLiteral("Null"));
    EXPECT_EQ(Shown(copy.Value(3)), QStringLiteral("bool false"));
}

TEST_F(Cursors, ACursorThatHasSeenTheLastRowComesToThoseThatAreCopiedBehindIt) {
    Recordset source = MakeTable();
    AddMemo(source, QStringLiteral("copied"));
    Recordset rows = MakeTable(QStringLiteral("Copy"));
    AddMemo(rows, QStringLiteral("first"));
    AddMemo(rows, QStringLiteral("last"));
    rows.MoveFirst();
    rows.MoveNext();
    ASSERT_EQ(Memo(rows), QStringLiteral("last"));
    Store->CopyRows(QStringLiteral("Chart"), QStringLiteral("Copy"), {QStringLiteral("Memo")});
    rows.MoveNext();
    EXPECT_EQ(Memo(rows), QStringLiteral("copied"));
}

TEST_F(Cursors, AFieldSetInAllRowsIsSeenByCursorsOnThemAndInNoOtherTable) {
    Recordset rows = MakeTable();
    Recordset others = MakeTable(QStringLiteral("Chart2"));
    AddMemo(others, QStringLiteral("other"));
    Store->SetField(QStringLiteral("Chart"), QStringLiteral("Long"), 1);
    EXPECT_TRUE(rows.Eof()) << "a table without rows";
    for (const int number : {7, 5, 7}) {
        rows.AddNew();
        rows.SetValue(2, number);
        rows.SetValue(3, number == 5);
        rows.Update();
    }
    AddMemo(rows, QStringLiteral("Null"));
    const auto shown = [&](int field) {
        QStringList values;
        for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext())
            values += Shown(rows.Value(field));
        return values.join(QLatin1Char(','));
    };
    EXPECT_EQ(shown(2), QStringLiteral("int 7,int 5,int 7,Null"));
    rows.MoveFirst();
    Store->SetField(QStringLiteral("chart"), QStringLiteral("LONG"), QStringLiteral("7"));
    EXPECT_EQ(shown(2), QStringLiteral("int 7,int 7,int 7,int 7"));
    EXPECT_EQ(shown(3), QStringLiteral("bool false,bool true,bool false,bool false"));
    Store->SetField(QStringLiteral("Chart"), QStringLiteral("Boolean"), true);
    EXPECT_EQ(shown(3), QStringLiteral("bool true,bool true,bool true,bool true"));
    Store->SetField(QStringLiteral("Chart"), QStringLiteral("Long"), QVariant());
    EXPECT_EQ(shown(2), QStringLiteral("Null,Null,Null,Null"));
    others.MoveFirst();
    EXPECT_EQ(Shown(others.Value(2)), QStringLiteral("Null"));
    EXPECT_EQ(Shown(others.Value(3)), QStringLiteral("bool false"));
    Store->Commit();
    Reopen();
    rows = Store->OpenRecordset(QStringLiteral("Chart"));
    EXPECT_EQ(shown(3), QStringLiteral("bool true,bool true,bool true,bool true"));
}

TEST_F(Cursors, AFieldThatCannotBeSetInAllRowsRaisesWhatSettingItInOneDoes) {
    Recordset rows = MakeTable();
    AddMemo(rows, QStringLiteral("memo"));
    const auto set = [&](const char* table, const char* field, const QVariant& value) {
        Store->SetField(QLatin1String(table), QLatin1String(field), value);
    };
    EXPECT_ERROR(3078, set("None", "Long", 1));
    EXPECT_ERROR(9, set("Chart", "None", 1));
    EXPECT_ERROR(13, set("Chart", "Long", QStringLiteral("many")));
    EXPECT_ERROR(94, set("Chart", "Boolean", QVariant()));
    EXPECT_ERROR(3163, set("Chart", "Text", QStringLiteral("eleven long")));
    rows.MoveFirst();
    EXPECT_EQ(Shown(rows.Value(2)), QStringLiteral("Null"));
}

TEST_F(Cursors, IdentityOfADeletedLastRowIsNotGivenAgainByAnotherConnection) {
    Recordset rows = MakeTable();
    AddMemo(rows, QStringLiteral("first"));
    AddMemo(rows, QStringLiteral("last"));
    Store->Commit();
    rows.MoveFirst();
    rows.MoveNext();
    const auto other = TableStore::OpenDatabase(File);
    {
        Recordset theirs = other->OpenRecordset(QStringLiteral("Chart"));
        theirs.MoveNext();
        theirs.Delete();
        other->Commit();
    }
    const auto third = TableStore::OpenDatabase(File);
    Recordset fresh = third->OpenRecordset(QStringLiteral("Chart"));
    AddMemo(fresh, QStringLiteral("new"));
    third->Commit();
    Store->TableCount();
    EXPECT_ERROR(3021, rows.Value(0));
    rows.MoveNext();
    EXPECT_EQ(rows.Value(0).toString(), QStringLiteral("new"));
}

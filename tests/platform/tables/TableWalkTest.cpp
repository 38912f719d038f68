#include "tests/platform/tables/TablesTest.h"

namespace {

const QString Chart = QStringLiteral("Chart");

class TableWalkTest : public TablesTest {
protected:
    static QStringList Fields(std::initializer_list<const char*> names) {
        QStringList fields;
        for (const char* name : names)
            fields += QString::fromLatin1(name);
        return fields;
    }
};

TEST_F(TableWalkTest, ReadsTheFieldsAskedForInTheRowsOrder) {
    Recordset rows = MakeTable();
    for (int number = 0; number < 200; ++number) {
        rows.AddNew();
        rows.SetValue(0, QStringLiteral("memo %1").arg(number));
        rows.SetValue(2, number);
        rows.SetValue(3, number % 2 == 0);
        rows.SetValue(4, QDate(2001, 3, 4).addDays(number));
        rows.Update();
    }
    TableWalk walk = Store->WalkThrough(Chart, Fields({"date", "Memo", "BOOLEAN", "Text"}));
    for (int number = 0; number < 200; ++number) {
        ASSERT_FALSE(walk.Eof());
        EXPECT_EQ(walk.Value(0), QVariant(QDate(2001, 3, 4).addDays(number)));
        EXPECT_EQ(walk.Value(1), QVariant(QStringLiteral("memo %1").arg(number)));
        EXPECT_EQ(walk.Value(2), QVariant(number % 2 == 0));
        EXPECT_FALSE(walk.Value(3).isValid());
        walk.MoveNext();
    }
    EXPECT_TRUE(walk.Eof());
}

TEST_F(TableWalkTest, EmptyTableAndThePlaceBehindTheLastRowHaveNoRow) {
    MakeTable();
    TableWalk walk = Store->WalkThrough(QStringLiteral("chart"), Fields({"Memo"}));
    EXPECT_TRUE(walk.Eof());
    EXPECT_ERROR(3021, walk.Value(0));
    EXPECT_ERROR(3021, walk.MoveNext());
}

TEST_F(TableWalkTest, MissingTableRaises3078AndUnknownField9) {
    MakeTable();
    EXPECT_ERROR(3078, Store->WalkThrough(QStringLiteral("gone"), Fields({"Memo"})));
    EXPECT_ERROR(9, Store->WalkThrough(Chart, Fields({"Memo", "Nothing"})));
}

TEST_F(TableWalkTest, TableCanBeDroppedWhenTheWalkIsOver) {
    Recordset rows = MakeTable();
    AddMemo(rows, QStringLiteral("a"));
    AddMemo(rows, QStringLiteral("b"));
    {
        const TableWalk walk = Store->WalkThrough(Chart, Fields({"Memo"}));
        EXPECT_EQ(walk.Value(0), QVariant(QStringLiteral("a")));
    }
    Store->DeleteTable(Chart);
    EXPECT_EQ(Store->TableCount(), 0);
}

TEST_F(TableWalkTest, NamesWithQuotesAreRead) {
    const QString name = QStringLiteral("My \"own\" 'chart'");
    Recordset rows = MakeTable(name);
    AddMemo(rows, QStringLiteral("a"));
    EXPECT_EQ(Store->WalkThrough(name, Fields({"Memo"})).Value(0), QVariant(QStringLiteral("a")));
}

TEST_F(TableWalkTest, GoesOnToOtherTablesAlsoOfAnotherShape) {
    Recordset first = MakeTable();
    AddMemo(first, QStringLiteral("a"));
    AddMemo(first, QStringLiteral("b"));
    MakeTable(QStringLiteral("Empty"));
    Store->CreateTable(QStringLiteral("Other"), {{QStringLiteral("Number"), FieldType::Long},
                                                 {QStringLiteral("Memo"), FieldType::Memo}});
    Recordset other = Store->OpenRecordset(QStringLiteral("Other"));
    other.AddNew();
    other.SetValue(1, QStringLiteral("c"));
    other.Update();
    TableWalk walk = Store->WalkThrough(Fields({"Memo"}));
    EXPECT_TRUE(walk.Eof());
    walk.Open(Chart);
    EXPECT_EQ(walk.Value(0), QVariant(QStringLiteral("a")));
    walk.Open(QStringLiteral("Empty"));
    EXPECT_TRUE(walk.Eof());
    walk.Open(QStringLiteral("OTHER"));
    EXPECT_EQ(walk.Value(0), QVariant(QStringLiteral("c")));
    EXPECT_ERROR(3078, walk.Open(QStringLiteral("gone")));
    EXPECT_TRUE(walk.Eof());
    walk.Open(Chart);
    walk.MoveNext();
    EXPECT_EQ(walk.Value(0), QVariant(QStringLiteral("b")));
    walk.MoveNext();
    EXPECT_TRUE(walk.Eof()) << "no row of the next table";
}

TEST_F(TableWalkTest, AWalkThatHasLeftItsRowHoldsNoLock) {
    Recordset rows = MakeTable();
    AddMemo(rows, QStringLiteral("a"));
    AddMemo(rows, QStringLiteral("b"));
    Store->Commit();
    TableWalk walk = Store->WalkThrough(Chart, Fields({"Memo"}));
    walk.Leave();
    EXPECT_ERROR(3021, walk.Value(0));
    const auto other = TableStore::OpenDatabase(File);
    other->DeleteTable(Chart);
    other->Commit();
    EXPECT_EQ(Store->TableCount(), 0);
}

} // namespace

#include "tests/platform/tables/TablesTest.h"

#include <algorithm>

namespace {

class Catalogue : public TablesTest {
protected:
    void Make(const QString& name) { Store->CreateTable(name, AllTypes()); }

    static QStringList OddNames() {
        QStringList names;
        for (const char* name : {"it's",
                                 "say \"hi\"",
                                 "\"",
                                 "a/b\\c",
                                 "v1.2",
                                 "..",
                                 "jobs 🧹🎉",
                                 " front",
                                 "back ",
                                 "  ",
                                 "",
                                 "[x]",
                                 "`x`",
                                 "a;DROP TABLE b",
                                 "%s%_",
                                 "SELECT",
                                 "rowid",
                                 "sqlitezz",
                                 "MSysThing",
                                 "History Tom from: 3/4/2001",
                                 "tab\tline\nend",
                                 "\u00c4rger",
                                 "日本語",
                                 "main.x",
                                 "?1"})
            names.append(QString::fromUtf8(name));
        names.append(QString(200, QLatin1Char('n')));
        names.append(QString(5000, QLatin1Char('m')));
        return names;
    }
};

} // namespace

TEST_F(Catalogue, TablesStandInTheOrderOfTheirNamesWhoseCaseDoesNotCount) {
    for (const char* name : {"c", "USERS", "a", "B", "Zoo", "b2"})
        Make(QLatin1String(name));
    QStringList order;
    for (const char* name : {"a", "B", "b2", "c", "USERS", "Zoo"})
        order += QLatin1String(name);
    EXPECT_EQ(Names(*Store), order);
    Store->Commit();
    Reopen();
    EXPECT_EQ(Names(*Store), order);
}

TEST_F(Catalogue, DroppingMovesTheLaterTablesDown) {
    for (const char* name : {"a", "b", "c", "d"})
        Make(QLatin1String(name));
    Store->DeleteTable(QStringLiteral("b"));
    EXPECT_EQ(Store->TableCount(), 3);
    EXPECT_EQ(Store->TableName(1), QStringLiteral("c"));
    EXPECT_ERROR(9, Store->TableName(3));
    Store->DeleteTable(QStringLiteral("d"));
    Make(QStringLiteral("b"));
    const QStringList order{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
    EXPECT_EQ(Names(*Store), order);
    Store->Commit();
    Reopen();
    EXPECT_EQ(Names(*Store), order);
}

TEST_F(Catalogue, IndexOutsideIsOutOfRange) {
    EXPECT_ERROR(9, Store->TableName(0));
    Make(QStringLiteral("a"));
    EXPECT_ERROR(9, Store->TableName(-1));
    EXPECT_ERROR(9, Store->TableName(1));
}

TEST_F(Catalogue, NamesMayHoldAnyCharacter) {
    QStringList names = OddNames();
    for (const QString& name : names) {
        Make(name);
        Recordset rows = Store->OpenRecordset(name);
        AddMemo(rows, name);
    }
    Store->Commit();
    Reopen();
    std::sort(names.begin(), names.end(), [](const QString& one, const QString& other) {
        return one.toCaseFolded().toStdString() < other.toCaseFolded().toStdString();
    });
    EXPECT_EQ(Names(*Store), names);
    for (const QString& name : names) {
        EXPECT_EQ(Store->OpenRecordset(name).Name(), name);
        EXPECT_EQ(Memos(*Store, name), QStringList{name});
        Store->DeleteTable(name);
    }
    EXPECT_EQ(Store->TableCount(), 0);
}

TEST_F(Catalogue, NamesIgnoreCaseByUnicodeRules) {
    Make(QStringLiteral("\u00c4rger Gro\u00dfe \u03a3"));
    const QString other = QStringLiteral("\u00e4RGER gro\u00dfe \u03c3");
    EXPECT_TRUE(Store->HasTable(other));
    EXPECT_EQ(Store->OpenRecordset(other).Name(), Store->TableName(0));
    EXPECT_ERROR(3000, Make(other));
    EXPECT_EQ(Store->TableCount(), 1);
    Store->DeleteTable(other);
    EXPECT_EQ(Store->TableCount(), 0);
}

TEST_F(Catalogue, SecondTableOfANameIsRefused) {
    Recordset rows = MakeTable();
    AddMemo(rows, QStringLiteral("kept"));
    EXPECT_ERROR(3000, Make(QStringLiteral("CHART")));
    EXPECT_EQ(ErrorText([&] { Make(QStringLiteral("CHART")); }),
              QStringLiteral("table Chart already exists"));
    EXPECT_EQ(Memos(*Store), QStringList{QStringLiteral("kept")});
}

TEST_F(Catalogue, NoNameIsReserved) {
    for (const char* name : {"sqlite_x", "SQLITE_SEQUENCE", "sqlite_master", "MSysLocale",
                             "Catalogue", "Shapes", "Information", "Rows1", "Key"}) {
        const QString wanted = QLatin1String(name);
        EXPECT_FALSE(Store->HasTable(wanted)) << name;
        Recordset rows = MakeTable(wanted);
        AddMemo(rows, wanted);
        Store->Commit();
        Reopen();
        EXPECT_EQ(Memos(*Store, wanted), QStringList(wanted)) << name;
    }
    EXPECT_EQ(Store->TableCount(), 9);
}

TEST_F(Catalogue, NameWithCharacterZeroIsRefused) {
    const QString refusal = QStringLiteral("A name cannot hold the character with the number 0.");
    const QString name = QStringLiteral("a") + QChar(0) + QStringLiteral("b");
    EXPECT_EQ(ErrorText([&] { Make(name); }), refusal);
    EXPECT_EQ(ErrorText([&] { Store->CreateTable(QStringLiteral("t"), {{name}}); }), refusal);
    EXPECT_EQ(Store->TableCount(), 0);
}

TEST_F(Catalogue, HalfASurrogatePairIsNamedAsItIsStored) {
    Make(QString(QChar(0xd83e)));
    Store->Commit();
    const QStringList names = Names(*Store);
    Reopen();
    EXPECT_EQ(Names(*Store), names);
    EXPECT_TRUE(Store->OpenRecordset(names.value(0)).Eof());
}

TEST_F(Catalogue, RefusedMakingLeavesNoTransactionBehind) {
    EXPECT_ERROR(3000, Make(QString(QChar(0))));
    const auto other = TableStore::OpenDatabase(File);
    other->CreateTable(QStringLiteral("free"), AllTypes());
    other->Commit();
    EXPECT_EQ(Names(*Store), QStringList{QStringLiteral("free")});
}

TEST_F(Catalogue, MissingTableIsNamed) {
    const QString name = QStringLiteral("No \"such\" table");
    EXPECT_ERROR(3078, Store->OpenRecordset(name));
    EXPECT_ERROR(3078, Store->DeleteTable(name));
    EXPECT_TRUE(ErrorText([&] { Store->OpenRecordset(name); }).contains(name));
    EXPECT_FALSE(Store->HasTable(name));
}

TEST_F(Catalogue, SeesWhatAnotherConnectionMakesAndDrops) {
    Make(QStringLiteral("a"));
    Store->Commit();
    const auto other = TableStore::OpenDatabase(File);
    other->CreateTable(QStringLiteral("b"), AllTypes());
    EXPECT_EQ(Store->TableCount(), 1);
    other->DeleteTable(QStringLiteral("a"));
    other->Commit();
    EXPECT_EQ(Names(*Store), QStringList{QStringLiteral("b")});
    EXPECT_ERROR(3078, Store->OpenRecordset(QStringLiteral("a")));
    EXPECT_TRUE(Store->OpenRecordset(QStringLiteral("b")).Eof());
    EXPECT_FALSE(Store->HasTable(QStringLiteral("a")));
}

TEST_F(Catalogue, NameTakenByAnotherConnectionIsRefused) {
    const auto other = TableStore::OpenDatabase(File);
    other->CreateTable(QStringLiteral("\u00c4"), AllTypes());
    other->Commit();
    EXPECT_ERROR(3000, Make(QStringLiteral("\u00e4")));
}

TEST_F(Catalogue, TableReplacedByAnotherConnectionIsReadWithItsNewFields) {
    MakeTable();
    Store->Commit();
    EXPECT_EQ(Store->OpenRecordset(QStringLiteral("Chart")).FieldCount(), 6);
    const auto other = TableStore::OpenDatabase(File);
    other->DeleteTable(QStringLiteral("Chart"));
    other->CreateTable(QStringLiteral("Chart"), {{QStringLiteral("Only"), FieldType::Long}});
    other->Commit();
    EXPECT_EQ(Store->OpenRecordset(QStringLiteral("Chart")).FieldCount(), 1);
}

TEST_F(Catalogue, TableMadeAfreshUnderItsNameHasItsNewFields) {
    Recordset rows = MakeTable();
    AddMemo(rows, QStringLiteral("old"));
    Store->DeleteTable(QStringLiteral("Chart"));
    Store->CreateTable(QStringLiteral("Chart"), {{QStringLiteral("Number"), FieldType::Long}});
    Recordset fresh = Store->OpenRecordset(QStringLiteral("Chart"));
    EXPECT_TRUE(fresh.Eof());
    EXPECT_EQ(fresh.FieldCount(), 1);
    fresh.AddNew();
    fresh.SetValue(QStringLiteral("Number"), 5);
    fresh.Update();
    fresh.MoveFirst();
    EXPECT_EQ(Shown(fresh.Value(0)), QStringLiteral("int 5"));
}

TEST_F(Catalogue, TableIsDroppedWhileCursorsStandOnItAndOnOthers) {
    Recordset first = MakeTable();
    Recordset other = MakeTable(QStringLiteral("Other"));
    for (int i = 0; i < 200; ++i) {
        AddMemo(first, QStringLiteral("x"));
        AddMemo(other, QStringLiteral("y"));
    }
    first.MoveFirst();
    other.MoveFirst();
    other.MoveNext();
    other.AddNew();
    Store->DeleteTable(QStringLiteral("Chart"));
    EXPECT_ERROR(3078, first.Value(0));
    EXPECT_ERROR(3078, first.MoveNext());
    EXPECT_ERROR(3078, first.MoveFirst());
    EXPECT_ERROR(3078, first.RecordCount());
    EXPECT_ERROR(3078, first.Edit());
    EXPECT_ERROR(3078, first.AddNew());
    EXPECT_EQ(other.Value(0).toString(), QStringLiteral("y"));
    EXPECT_EQ(other.RecordCount(), 200);
}

TEST_F(Catalogue, CursorOfADroppedTableDoesNotReadItsSuccessor) {
    Recordset before = MakeTable();
    before.AddNew();
    Store->DeleteTable(QStringLiteral("Chart"));
    Recordset after = MakeTable();
    AddMemo(after, QStringLiteral("new"));
    EXPECT_ERROR(3078, before.Update());
    EXPECT_ERROR(3078, before.MoveFirst());
    EXPECT_EQ(Memos(*Store), QStringList{QStringLiteral("new")});
}

TEST_F(Catalogue, CursorNamesItsTableThatAnotherConnectionHasDropped) {
    Recordset rows = MakeTable();
    Store->Commit();
    const auto other = TableStore::OpenDatabase(File);
    other->DeleteTable(QStringLiteral("Chart"));
    other->CreateTable(QStringLiteral("Chart"), {{QStringLiteral("Memo"), FieldType::Memo}});
    other->Commit();
    EXPECT_EQ(Store->TableCount(), 1);
    EXPECT_ERROR(3078, rows.MoveFirst());
    EXPECT_ERROR(3078, rows.AddNew());
}

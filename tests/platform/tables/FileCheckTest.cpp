#include "platform/tables/FileCheck.h"

#include "tests/platform/tables/TablesTest.h"

#include <SQLiteCpp/SQLiteCpp.h>

namespace {

/// A file with a table of every type of field and a picture over many pages.
void MakeFile(const QString& path) {
    const auto tables = TableStore::CreateDatabase(path, {});
    tables->CreateTable(QStringLiteral("Children"),
                        {{QStringLiteral("Name"), FieldType::Text},
                         {QStringLiteral("Born"), FieldType::Date},
                         {QStringLiteral("Points"), FieldType::Long},
                         {QStringLiteral("In"), FieldType::Boolean},
                         {QStringLiteral("Face"), FieldType::LongBinary}});
    Recordset rows = tables->OpenRecordset(QStringLiteral("Children"));
    for (int child = 0; child < 30; ++child) {
        rows.AddNew();
        rows.SetValue(0, QStringLiteral("Child %1").arg(child));
        rows.SetValue(1, QDate(2001, 3, 7));
        rows.SetValue(2, child);
        rows.AppendChunk(QStringLiteral("Face"), QByteArray(20000, 'f'));
        rows.Update();
    }
    tables->Commit();
}

QString AfterStatement(const QString& path, const char* sql) {
    {
        SQLite::Database database(path.toStdString(), SQLite::OPEN_READWRITE);
        database.exec(sql);
    }
    return WhatIsWrongWith(path);
}

} // namespace

class FileCheckTest : public TablesTest {
protected:
    FileCheckTest() { MakeFile(path_); }
    QString path_ = File + QStringLiteral(".checked");
};

TEST_F(FileCheckTest, ASoundFileIsFoundSoundAndLeftAsItIs) {
    QFile file(path_);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();
    EXPECT_EQ(WhatIsWrongWith(path_), QString());
    file.seek(0);
    EXPECT_EQ(file.readAll(), before);
}

TEST_F(FileCheckTest, AFileThatCannotBeOpenedIsNotSound) {
    EXPECT_NE(WhatIsWrongWith(path_ + QStringLiteral(".none")), QString());
    QFile empty(path_);
    ASSERT_TRUE(empty.open(QIODevice::WriteOnly | QIODevice::Truncate));
    empty.close();
    EXPECT_EQ(WhatIsWrongWith(path_), QStringLiteral("file is not a database"));
}

TEST_F(FileCheckTest, ValuesThatTheProgramDoesNotStoreAreFound) {
    EXPECT_EQ(AfterStatement(path_, "UPDATE Rows1 SET Points = 'many' WHERE Points = 7"),
              QStringLiteral("Type mismatch"));
}

TEST_F(FileCheckTest, RowsOfNoTableAreFound) {
    EXPECT_EQ(AfterStatement(path_, "INSERT INTO Rows1(Key, Name) VALUES(77 << 32, 'x')"),
              QStringLiteral("Rows belong to no table."));
}

TEST_F(FileCheckTest, ATableWithoutItsRowsIsFound) {
    EXPECT_NE(AfterStatement(path_, "UPDATE Catalogue SET Shape = 9"), QString());
}

TEST_F(FileCheckTest, APageOfAPictureThatIsGoneIsFound) {
    QFile file(path_);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.seek(file.size() / 2 / 4096 * 4096);
    file.write(QByteArray(4096, '\xff'));
    file.close();
    EXPECT_NE(WhatIsWrongWith(path_), QString());
}

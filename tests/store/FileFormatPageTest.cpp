#include "tests/store/StoreTest.h"

#include <SQLiteCpp/SQLiteCpp.h>

namespace {

/// The example queries of the page on the file format, run on a file of the program's.
class FileFormatPageTest : public StoreTest {
protected:
    static QStringList Queries() {
        QFile page(QStringLiteral(DUTYGRID_SOURCE_DIR "/docs/file-format.md"));
        EXPECT_TRUE(page.open(QIODevice::ReadOnly));
        QStringList queries = QString::fromUtf8(page.readAll()).split(QStringLiteral("```sql\n"));
        queries.removeFirst();
        for (QString& query : queries)
            query = query.section(QStringLiteral("```"), 0, 0);
        return queries;
    }

    /// What a query finds on a day, each row as its fields joined by "|".
    static QStringList Found(QString query, const QDate& day) {
        query.replace(QStringLiteral("'now'"),
                      QStringLiteral("'%1'").arg(day.toString(Qt::ISODate)));
        SQLite::Database file(Path(QStringLiteral("Database/Charts.mdb")).toStdString(),
                              SQLite::OPEN_READONLY);
        SQLite::Statement rows(file, query.toStdString());
        QStringList found;
        while (rows.executeStep()) {
            QStringList fields;
            for (int field = 0; field < rows.getColumnCount(); ++field)
                fields += QString::fromStdString(rows.getColumn(field).getString());
            found += fields.join(QLatin1Char('|'));
        }
        return found;
    }
};

TEST_F(FileFormatPageTest, ExampleQueriesFindWhatThePageSays) {
    const QDate sunday(2001, 3, 4);
    const QString anna = QStringLiteral("Anna");
    Database().AddUser(QStringLiteral("Mum"), QStringLiteral("m"), QStringLiteral("Teacher"), {});
    Database().AddUser(anna, QStringLiteral("a"), QStringLiteral("Student"), {});
    Database().AddPoints(anna, 7, false);
    SaveChart(QStringLiteral("Chores Anna"),
              {Job(QStringLiteral("Sweep"), QStringLiteral("Mon-Fri")),
               Job(QStringLiteral("Mop"), QStringLiteral("Wed"))},
              anna, true, sunday, sunday.addDays(6));
    SaveChart(QStringLiteral("Printed"), {Job(QStringLiteral("Mop"), QStringLiteral("Wed"))});
    Database().Commit();
    {
        const auto tables = TableStore::OpenDatabase(Path(QStringLiteral("Database/Charts.mdb")));
        Recordset rows = tables->OpenRecordset(QStringLiteral("Chores Anna"));
        rows.MoveNext();
        rows.Edit();
        rows.SetValue(QStringLiteral("Completed"), true);
        rows.Update();
        tables->Commit();
    }
    Database().DuplicateChartHistory(QStringLiteral("Chores Anna"));
    Database().Commit();

    const QStringList queries = Queries();
    ASSERT_EQ(queries.size(), 3);
    EXPECT_EQ(Found(queries[0], sunday), QStringList(QStringLiteral("Anna|7||500")));
    const QStringList done(QStringLiteral("Anna|Tue|Sweep|5"));
    EXPECT_EQ(Found(queries[1], sunday.addDays(7)), done);
    EXPECT_EQ(Found(queries[1], sunday.addDays(13)), done);
    EXPECT_EQ(Found(queries[1], sunday.addDays(6)), QStringList());
    EXPECT_EQ(Found(queries[1], sunday.addDays(14)), QStringList());
    EXPECT_EQ(Found(queries[2], sunday),
              QStringList(QStringLiteral("Chores Anna|Anna|2001-03-04|2001-03-10|1")));
}

} // namespace

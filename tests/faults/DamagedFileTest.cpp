#include "platform/runtime/Actions.h"
#include "platform/tables/TableStore.h"
#include "session/Session.h"
#include "tests/faults/FaultWorld.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QDir>
#include <random>

/// Files in the place of the database that are none, or not this program's.
class DamagedFileTest : public FaultTest {
protected:
    /// The store refuses the file, with a report that the user sees, and leaves it as it is.
    void ExpectRefusal(const QByteArray& bytes, const char* what) {
        WriteBytes(File(), bytes);
        Boxes.Shown.clear();
        RunAction([] { Database().InitDatabse(); });
        ASSERT_EQ(Boxes.Errors().size(), 1) << what;
        EXPECT_TRUE(
            Boxes.Errors().constFirst().startsWith(QLatin1String("Run-time error '3000':\n\n")))
            << what << ": " << Boxes.Errors().constFirst().toStdString();
        // Nothing that runs after the refusal writes to it either.
        RunAction([] { Database().AddPoints(QStringLiteral("Anna"), 5, false); });
        ResetSession();
        EXPECT_TRUE(BytesOf(File()) == bytes) << what;
        EXPECT_EQ(QDir(Folder() + QStringLiteral("/Database"))
                      .entryList(QDir::Files | QDir::Hidden)
                      .size(),
                  1)
            << what;
    }

    /// The bytes of a database with some content.
    QByteArray SomeDatabase() {
        Database().InitDatabse();
        for (int child = 0; child < 40; ++child)
            RunAction([&] {
                Database().AddUser(QStringLiteral("Child %1").arg(child), QStringLiteral("pw"),
                                   QStringLiteral("Student"), QString());
                Database().CreateChart(QStringLiteral("Chart %1").arg(child));
            });
        ResetSession();
        return BytesOf(File());
    }
};

TEST_F(DamagedFileTest, ATruncatedDatabaseIsRefusedAndLeftAsItIs) {
    const QByteArray whole = SomeDatabase();
    ASSERT_GT(whole.size(), 40'000);
    for (const qsizetype length :
         {qsizetype{2}, qsizetype{15}, qsizetype{16}, qsizetype{99}, qsizetype{100},
          qsizetype{1'000}, qsizetype{4'096}, qsizetype{8'192}, whole.size() / 2,
          whole.size() - 4'096, whole.size() - 1})
        ExpectRefusal(whole.left(length), ("cut to " + std::to_string(length) + " bytes").c_str());
}

/// The message of a file that is damaged, with the engine's words.
void ExpectWayBack(const QStringList& told, const QString& words, const QString& file) {
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told.value(0),
              QStringLiteral("Run-time error '3000':\n\n%1\n\nThe file with your accounts and "
                             "Dutygrids is damaged:\n%2\n\nStart \"Sparkit Dutygrid Restore\" to "
                             "get back what it held on an earlier day.")
                  .arg(words, file));
}

TEST_F(DamagedFileTest, TheMessageSaysThatItIsDamagedAndNamesTheWayBack) {
    WriteBytes(File(), "no database, but long enough to be one");
    RunAction([] { Database().InitDatabse(); });
    ExpectWayBack(Boxes.Errors(), QStringLiteral("file is not a database"), File());
}

TEST_F(DamagedFileTest, SoDoesTheMessageOfADamagedDeclaration) {
    QByteArray bytes = SomeDatabase();
    ASSERT_TRUE(bytes.contains("CREATE TABLE"));
    bytes.replace("CREATE TABLE", "CREATE TABXE");
    WriteBytes(File(), bytes);
    RunAction([] { Database().InitDatabse(); });
    ASSERT_EQ(Boxes.Errors().size(), 1);
    const QString words = Boxes.Errors().value(0).section(QStringLiteral("\n\n"), 1, 1);
    EXPECT_TRUE(words.startsWith(QStringLiteral("malformed database schema")))
        << words.toStdString();
    ExpectWayBack(Boxes.Errors(), words, File());
}

TEST_F(DamagedFileTest, SoDoesTheMessageOfDamagedRowsThatAreReadLater) {
    QByteArray bytes = SomeDatabase();
    constexpr int page = 4096;
    const qsizetype row = bytes.indexOf("Child 7");
    ASSERT_GT(row, page);
    bytes.replace(row / page * page, page, QByteArray(page, 'x'));
    WriteBytes(File(), bytes);
    RunAction([] { Database().InitDatabse(); });
    ASSERT_EQ(Boxes.Errors(), QStringList());
    RunAction([] { Database().AddPoints(QStringLiteral("Child 7"), 5, false); });
    ExpectWayBack(Boxes.Errors(), QStringLiteral("database disk image is malformed"), File());
}

TEST_F(DamagedFileTest, RandomBytesAreRefusedAndLeftAsTheyAre) {
    std::mt19937 random(7);
    for (const int size : {2, 100, 512, 4'096, 70'000}) {
        QByteArray bytes;
        for (int i = 0; i < size; ++i)
            bytes += static_cast<char>(random());
        ExpectRefusal(bytes, ("random, " + std::to_string(size) + " bytes").c_str());
    }
    ExpectRefusal(QByteArray(8'192, '\0'), "zeros");
    ExpectRefusal("Chores;Anna;Mon-Fri\r\n", "a text");
}

TEST_F(DamagedFileTest, ADatabaseWithAGoodHeadAndRandomBytesBehindItIsRefusedAndLeftAsItIs) {
    QByteArray bytes = SomeDatabase();
    std::mt19937 random(11);
    for (qsizetype i = 100; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(random());
    ExpectRefusal(bytes, "random bytes behind the head");
}

TEST_F(DamagedFileTest, ADatabaseOfAnotherProgramIsRefusedAndLeftAsItIs) {
    const QString path = Folder() + QStringLiteral("/other.sqlite");
    {
        SQLite::Database other(path.toUtf8().constData(),
                               SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        other.exec("CREATE TABLE bookmarks(id INTEGER PRIMARY KEY, url VARCHAR, title VARCHAR)");
        other.exec("INSERT INTO bookmarks VALUES(1, 'a', 'b')");
    }
    ExpectRefusal(BytesOf(path), "bookmarks");
    {
        SQLite::Database other(path.toUtf8().constData(), SQLite::OPEN_READWRITE);
        other.exec("PRAGMA journal_mode=WAL");
        other.exec("INSERT INTO bookmarks VALUES(2, 'c', 'd')");
    }
    ExpectRefusal(BytesOf(path), "bookmarks with a write-ahead log");
}

TEST_F(DamagedFileTest, ADatabaseOfANewerVersionIsRefusedAndLeftAsItIs) {
    SomeDatabase();
    {
        SQLite::Database newer(File().toUtf8().constData(), SQLite::OPEN_READWRITE);
        newer.exec("PRAGMA user_version=4");
    }
    ExpectRefusal(BytesOf(File()), "newer version");
}

TEST_F(DamagedFileTest, AFolderInThePlaceOfTheFileIsRefused) {
    ASSERT_TRUE(QFile::remove(File()));
    ASSERT_TRUE(QDir().mkpath(File()));
    RunAction([] { Database().InitDatabse(); });
    EXPECT_EQ(Boxes.Errors().size(), 1);
    EXPECT_TRUE(QDir(File()).exists());
}

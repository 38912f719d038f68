#include "platform/runtime/Actions.h"
#include "store/NewDatabase.h"
#include "store/TableNames.h"
#include "tests/store/StoreTest.h"

#include <QDir>
#include <QFile>

namespace {

QByteArray Contents(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

class SchemaTest : public StoreTest {};

TEST_F(SchemaTest, AbsentDatabaseIsMadeEmptyAndTheFirstAccountOperationFails) {
    ResetSession();
    QFile::remove(Path(QStringLiteral("Database/Charts.mdb")));
    Database().InitDatabse();
    EXPECT_TRUE(Contents(Path(QStringLiteral("Database/Charts.mdb")))
                    .contains(";LANGID=0x0409;CP=1252;COUNTRY=0"));
    EXPECT_EQ(TableNames(), QStringList());
    EXPECT_ERROR(3078, Database().RetrevePassword(QStringLiteral("Anna")));
}

TEST_F(SchemaTest, TheDatabaseDeliveredHoldsAnEmptyTableOfAccountsAlone) {
    ResetSession();
    const QString file = Path(QStringLiteral("Database/Charts.mdb"));
    QFile::remove(file);
    MakeSeedDatabase(file);
    EXPECT_EQ(TableNames(true), QStringList(UsersTable));
    EXPECT_EQ(Rows(UsersTable), QStringList());
    Database().InitDatabse();
    Database().AddUser(QStringLiteral("Anna"), QStringLiteral("cat"), QStringLiteral("Student"),
                       QString());
    Database().Commit();
    EXPECT_EQ(Rows(UsersTable), QStringList(QStringLiteral("Anna|cat|0|Student|<null>|500")));
}

TEST_F(SchemaTest, MissingDatabaseFolderIsTheEnginesErrorAndNoFolderIsMade) {
    ResetSession();
    QDir(Path(QStringLiteral("Database"))).removeRecursively();
    EXPECT_ERROR(3000, Database().InitDatabse());
    EXPECT_FALSE(QFile::exists(Path(QStringLiteral("Database"))));
}

TEST_F(SchemaTest, RepeatedInitDatabseKeepsWhatHasBeenWritten) {
    Database().AddUser(QStringLiteral("Anna"), QStringLiteral("cat"), QStringLiteral("Student"),
                       QString());
    Database().InitDatabse();
    EXPECT_EQ(Database().RetrevePassword(QStringLiteral("Anna")), QStringLiteral("cat"));
}

TEST_F(SchemaTest, ASecondInitDatabseOpensTheFileAnew) {
    const QString file = Path(QStringLiteral("Database/Charts.mdb"));
    const QString other = Path(QStringLiteral("Database/Other.mdb"));
    ASSERT_TRUE(QFile::copy(file, other));
    Arrange([] {
        Database().AddUser(QStringLiteral("Anna"), QStringLiteral("cat"), QStringLiteral("Student"),
                           QString());
    });
    ASSERT_TRUE(QFile::rename(file, Path(QStringLiteral("Database/Former.mdb"))));
    ASSERT_TRUE(QFile::rename(other, file));
    EXPECT_EQ(Database().RetrevePassword(QStringLiteral("Anna")), QStringLiteral("cat"));
    Database().InitDatabse();
    EXPECT_EQ(Database().RetrevePassword(QStringLiteral("Anna")), QString());
}

TEST_F(SchemaTest, OperationsBeforeInitDatabseRaiseObjectNotSet) {
    ResetSession();
    EXPECT_ERROR(91, Database().DeleteChart(QStringLiteral("Chores")));
}

TEST_F(SchemaTest, ChartTableHasTheTenFieldsInOrder) {
    const QList<FieldDefinition> fields = ChartTableFields();
    QStringList names;
    QList<int> types;
    for (const FieldDefinition& field : fields) {
        names += field.Name;
        types += static_cast<int>(field.Type);
    }
    EXPECT_EQ(names.join(QLatin1Char(' ')),
              QStringLiteral("Instructions DayOfWeek AdultResponsable Difficuly Points Completed "
                             "FirstDate LastDate UserName AutoCreate"));
    EXPECT_EQ(types, (QList<int>{12, 10, 10, 10, 4, 1, 8, 8, 10, 1}));
}

TEST_F(SchemaTest, AccountsHaveNameAtPositionOneAndStateAtFour) {
    const QList<FieldDefinition> fields = UsersTableFields();
    ASSERT_EQ(fields.size(), 8);
    EXPECT_EQ(fields.at(1).Name, QStringLiteral("Name"));
    EXPECT_EQ(fields.at(4).Name, QStringLiteral("State"));
}

TEST_F(SchemaTest, ChartsWithReservedBeginningsAreStoredAndNeverListed) {
    const QStringList names = {QStringLiteral("Historic chores"), QStringLiteral("MSystem chores"),
                               QStringLiteral("Printing jobs")};
    for (const QString& name : names)
        SaveChart(name, {Job(QStringLiteral("Sweep"), QStringLiteral("Wed"))});
    SaveChart(QStringLiteral("Chores"), {Job(QStringLiteral("Sweep"), QStringLiteral("Wed"))});
    EXPECT_EQ(TableNames(), QStringList{QStringLiteral("Chores")} + names);
    FakeList list;
    Database().PopulateChartList(list, false);
    EXPECT_EQ(list.items, QStringList{QStringLiteral("Chores")});
}

TEST_F(SchemaTest, AChartNamedPrintedIsReplacedByTheNextPrintFromTheEditor) {
    SaveChart(QStringLiteral("Printed"), {Job(QStringLiteral("Mine"), QStringLiteral("Mon"))});
    SaveChart(QStringLiteral("Printed"), {Job(QStringLiteral("Scratch"), QStringLiteral("Tue"))},
              QStringLiteral("Printed"));
    EXPECT_EQ(
        Rows(QStringLiteral("Printed")),
        QStringList(QStringLiteral("Scratch|Tue|Mum|Easy|5|0|2001-03-04|2001-03-10|Printed|0")));
}

TEST_F(SchemaTest, AFileOf32768BytesIsStoredInTwoPiecesOf32770Bytes) {
    QFile file(Path(QStringLiteral("block")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const QByteArray block(32768, 'x');
    file.write(block);
    file.close();
    RunAction([&] {
        Database().AddUser(QStringLiteral("Anna"), QStringLiteral("cat"), QStringLiteral("Student"),
                           file.fileName());
    });
    const auto tables = TableStore::OpenDatabase(Path(QStringLiteral("Database/Charts.mdb")));
    Recordset rows = tables->OpenRecordset(UsersTable);
    ASSERT_EQ(rows.FieldSize(QStringLiteral("Image")), 32770);
    EXPECT_EQ(rows.GetChunk(QStringLiteral("Image"), 0, 32768), block);
    EXPECT_EQ(rows.GetChunk(QStringLiteral("Image"), 32768, 10), QByteArray(2, '\0'));
}

TEST_F(SchemaTest, StoringAPictureLetsEventsRunBehindEachWholePiece) {
    const auto eventRunsWhileStoring = [](qint64 bytes) {
        QFile file(Path(QStringLiteral("bytes")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_TRUE(file.resize(bytes));
        file.close();
        QObject receiver;
        bool hasRun = false;
        QMetaObject::invokeMethod(
            &receiver, [&] { hasRun = true; }, Qt::QueuedConnection);
        Database().AddUser(QStringLiteral("Anna"), QStringLiteral("cat"), QStringLiteral("Student"),
                           file.fileName());
        return hasRun;
    };
    EXPECT_FALSE(eventRunsWhileStoring(32767));
    EXPECT_TRUE(eventRunsWhileStoring(32768));
}

TEST_F(SchemaTest, ASecondInitDatabseWhileAPictureIsStoredLosesNothing) {
    const QString anna = QStringLiteral("Anna");
    const QString ben = QStringLiteral("Ben");
    QFile file(Path(QStringLiteral("large")));
    ASSERT_TRUE(QFile::copy(PictureFile(), file.fileName()));
    ASSERT_TRUE(file.resize(100'000));
    // Another action runs between the pieces: the file is opened anew, and written to as well.
    const auto whileOpenedAnew = [&](const std::function<void()>& action) {
        QObject receiver;
        bool hasRun = false;
        QMetaObject::invokeMethod(
            &receiver,
            [&] {
                RunAction([] {
                    Database().InitDatabse();
                    Database().AddPoints(QStringLiteral("Ben"), 1, false);
                });
                hasRun = true;
            },
            Qt::QueuedConnection);
        RunAction(action);
        EXPECT_TRUE(hasRun);
    };
    Database().AddUser(ben, QStringLiteral("b"), QStringLiteral("Student"), QString());
    whileOpenedAnew([&] {
        Database().AddUser(anna, QStringLiteral("a"), QStringLiteral("Student"), file.fileName());
        EXPECT_EQ(Database().RetrevePassword(anna), QStringLiteral("a")) << "seen at once";
    });
    EXPECT_EQ(Rows(UsersTable), (QStringList{QStringLiteral("Ben|b|1|Student|<null>|500"),
                                             QStringLiteral("Anna|a|0|Student|<null>|500")}));
    FakePicture picture;
    Database().RetrevePicture(anna, picture);
    EXPECT_EQ(picture.picture.size(), QSize(24, 24));

    whileOpenedAnew([&] { Database().ChangePicture(ben, file.fileName()); });
    Database().RetrevePicture(ben, picture);
    EXPECT_EQ(picture.picture.size(), QSize(24, 24));

    whileOpenedAnew([&] { Database().AddToy(ben, QStringLiteral("Bike"), file.fileName(), 70); });
    EXPECT_EQ(Rows(UsersTable), (QStringList{QStringLiteral("Ben|b|3|Student|Bike|70"),
                                             QStringLiteral("Anna|a|0|Student|<null>|500")}));
}

TEST_F(SchemaTest, WhatWasWrittenThroughAFormerConnectionStandsAfterAnErrorToo) {
    const QString anna = QStringLiteral("Anna");
    QFile file(Path(QStringLiteral("large")));
    ASSERT_TRUE(QFile::copy(PictureFile(), file.fileName()));
    ASSERT_TRUE(file.resize(40'000));
    for (int row = 0; row < 2; ++row)
        Database().AddUser(anna, QString::number(row), QStringLiteral("Student"), QString());
    QObject receiver;
    QMetaObject::invokeMethod(
        &receiver,
        [&] {
            RunAction([&] {
                Database().InitDatabse();
                EXPECT_TRUE(file.remove());
            });
        },
        Qt::QueuedConnection);
    Boxes.ExpectError(ErrorNumber::FileNotFound);
    RunAction([&] { Database().AddToy(anna, QStringLiteral("Bike"), file.fileName(), 70); });
    EXPECT_EQ(Rows(UsersTable), (QStringList{QStringLiteral("Anna|0|0|Student|Bike|70"),
                                             QStringLiteral("Anna|1|0|Student|<null>|500")}));
}

TEST_F(SchemaTest, ASmallerPictureKeepsTheTailOfTheLargerInTheScratchFileAndStillLoads) {
    QImage noise(200, 200, QImage::Format_RGB32);
    for (int y = 0; y < 200; ++y)
        for (int x = 0; x < 200; ++x)
            noise.setPixel(x, y, static_cast<QRgb>(x * 7919 + y * 104729) * 2654435761U);
    const QString large = Path(QStringLiteral("large.png"));
    ASSERT_TRUE(noise.save(large));
    Database().AddUser(QStringLiteral("Anna"), QStringLiteral("a"), QStringLiteral("Student"),
                       large);
    Database().AddUser(QStringLiteral("Ben"), QStringLiteral("b"), QStringLiteral("Student"),
                       PictureFile());
    FakePicture target;
    Database().RetrevePicture(QStringLiteral("Anna"), target);
    EXPECT_EQ(target.picture.size(), QSize(200, 200));
    const QStringList scratch = QDir(Path(QStringLiteral("DeleteMe"))).entryList(QDir::Files);
    ASSERT_EQ(scratch.size(), 1) << "one scratch file serves every picture";
    const QString scratchFile = Path(QStringLiteral("DeleteMe/")) + scratch.first();
    const QByteArray first = Contents(scratchFile);
    EXPECT_TRUE(first.startsWith(Contents(large)));

    Database().RetrevePicture(QStringLiteral("Ben"), target);
    EXPECT_EQ(target.picture.size(), QSize(24, 24));
    const QByteArray second = Contents(scratchFile);
    EXPECT_EQ(second.size(), first.size());
    EXPECT_TRUE(second.startsWith(Contents(PictureFile())));
    EXPECT_EQ(second.right(1000), first.right(1000));
}

TEST_F(SchemaTest, ScratchFileStaysInItsFolderWhateverTheAccountIsCalled) {
    const QStringList names = {QStringLiteral("../evil"),     QStringLiteral("a/b\\c"),
                               QStringLiteral("."),           QStringLiteral(".."),
                               QStringLiteral("\"quoted\""),  QStringLiteral("😀 smile"),
                               QString(50, QLatin1Char('x')), QStringLiteral("   ")};
    for (const QString& name : names) {
        Database().DeleteAccount(names.first());
        for (const QString& former : names)
            Database().DeleteAccount(former);
        Database().AddUser(name, QStringLiteral("p"), QStringLiteral("Student"), PictureFile());
        FakePicture target;
        Database().RetrevePicture(name, target);
        EXPECT_EQ(target.picture.size(), QSize(24, 24)) << name.toStdString();
    }
    EXPECT_EQ(QDir(Path(QStringLiteral("DeleteMe"))).entryList(QDir::Files).size(), names.size());
    EXPECT_FALSE(QFile::exists(Path(QStringLiteral("evil"))));
}

TEST_F(SchemaTest, ScratchFileBearsTheFirstAccountsPlainNameWhereThatIsAFileName) {
    const auto scratchFileOf = [](const QString& name) {
        Database().AddUser(name, QStringLiteral("p"), QStringLiteral("Student"), PictureFile());
        FakePicture target;
        Database().RetrevePicture(name, target);
        EXPECT_EQ(target.picture.size(), QSize(24, 24)) << name.toStdString();
        Database().DeleteAccount(name);
        QDir folder(Path(QStringLiteral("DeleteMe")));
        const QStringList files = folder.entryList(QDir::Files | QDir::Hidden);
        folder.removeRecursively();
        return files.join(QLatin1Char('|'));
    };
    for (const QString& name :
         {QStringLiteral("Anna"), QStringLiteral("Mary Ann"), QStringLiteral("O'Neil jr. 100%"),
          QStringLiteral("Zoë 😀"), QStringLiteral(".hidden"), QStringLiteral("Connie"),
          QString(50, QChar(0x20AC))})
        EXPECT_EQ(scratchFileOf(name), name);
    for (const QString& name :
         {QStringLiteral(".."), QStringLiteral("a/b"), QStringLiteral("a\\b"), QStringLiteral("C:"),
          QStringLiteral("?"), QStringLiteral("con"), QStringLiteral("COM1.x"),
          QStringLiteral("ends."), QStringLiteral("ends "), QStringLiteral("two\nlines")})
        EXPECT_TRUE(scratchFileOf(name).startsWith(QLatin1String("picture-")))
            << name.toStdString();
}

TEST_F(SchemaTest, ScratchFileIsNeverWrittenThroughALink) {
    const QString victim = Path(QStringLiteral("victim"));
    QFile file(victim);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("precious");
    file.close();
    ASSERT_TRUE(QDir(Path(QString())).mkdir(QStringLiteral("DeleteMe")));
    ASSERT_TRUE(QFile::link(victim, Path(QStringLiteral("DeleteMe/Anna"))));
    Database().AddUser(QStringLiteral("Anna"), QStringLiteral("a"), QStringLiteral("Student"),
                       PictureFile());
    FakePicture target;
    Database().RetrevePicture(QStringLiteral("Anna"), target);
    EXPECT_EQ(target.picture.size(), QSize(24, 24));
    EXPECT_EQ(Contents(victim), QByteArray("precious"));
    EXPECT_FALSE(QFileInfo(Path(QStringLiteral("DeleteMe/Anna"))).isSymLink());
}

TEST_F(SchemaTest, StoredBytesThatAreNoPictureLeaveTheTargetEmpty) {
    QFile file(Path(QStringLiteral("text.png")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("this is no picture");
    file.close();
    Database().AddUser(QStringLiteral("Anna"), QStringLiteral("a"), QStringLiteral("Student"),
                       file.fileName());
    FakePicture target;
    Database().RetrevePicture(QStringLiteral("Anna"), target);
    EXPECT_TRUE(target.picture.isNull());
}

} // namespace

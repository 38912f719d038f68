#include "platform/printing/PrintoutFolder.h"
#include "platform/runtime/Pictures.h"
#include "platform/runtime/ProgramFolder.h"
#include "platform/runtime/TextFiles.h"
#include "store/JobNameFile.h"
#include "support/Region.h"
#include "support/clsRegistry.h"
#include "tests/common/FileModes.h"
#include "tests/common/OrdinaryUser.h"
#include "tests/common/QuickEnough.h"
#include "tests/store/NoForms.h"
#include "tests/store/StoreTest.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <functional>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

struct NoWindow : WindowShape {
    void SetWindowRgn(const QRegion*) override {}
};

/// A file of the program by its name, and what the program does with it.
struct Place {
    const char* name;
    int error;
    std::function<void()> use;
};

/// What stands in the places of the program's files is not what the program has put there.
class PlacesOfFilesTest : public StoreTest {
protected:
    PlacesOfFilesTest() {
        SetSettingsForms(&forms_);
        Arrange([] {
            Database().AddUser(QStringLiteral("Anna"), QStringLiteral("a"),
                               QStringLiteral("Student"), PictureFile());
        });
    }

    static void WriteBytes(const QString& path, const QByteArray& bytes) {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    static QByteArray BytesOf(const QString& path) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }
    static void SetMode(const QString& path, mode_t mode) {
        ASSERT_EQ(::chmod(Encoded(path).constData(), mode), 0);
    }
    static QByteArray Encoded(const QString& path) { return QFile::encodeName(path); }

    static void WriteJobs(bool isSchool) {
        OutputFile file(JobNameFile(isSchool));
        file.PrintText(QStringLiteral("Feed the cat"));
        file.Close();
    }
    static void ReadJobs(bool isSchool) { InputFile(JobNameFile(isSchool)).InputText(); }
    static QImage ShownPicture() {
        FakePicture target;
        Database().RetrevePicture(QStringLiteral("Anna"), target);
        return target.picture;
    }
    static constexpr const char* Registry = "UserConfig/sparkit-dutygrid/registry.json";
    static QString Key() { return QStringLiteral("Dutygrid"); }
    static void LoadRegion() {
        NoWindow window;
        Region().LoadFromFile(Path(QStringLiteral("shape")), window);
    }

    /// The files that are written by their own names; the error is that of a name that is a link.
    static QList<Place> Written() {
        return {{"Settings/Settings.txt", 75, [] { WriteSettings(); }},
                {"Jobs/HomeJobs.dat", 75, [] { WriteJobs(false); }},
                {"Jobs/SchoolJobs.dat", 75, [] { WriteJobs(true); }},
                {Registry, 11005, [] { clsRegistry().CreateKey(HKEY_CURRENT_USER, Key()); }}};
    }

private:
    NoForms forms_;
};

TEST_F(PlacesOfFilesTest, NothingIsWrittenThroughALink) {
    const QString file = Path(QStringLiteral("elsewhere/file"));
    const QString folder = Path(QStringLiteral("elsewhere/folder"));
    const QString nothing = Path(QStringLiteral("elsewhere/nothing"));
    // Whole for every reader but the settings', which do not read before they write.
    WriteBytes(file, "{}");
    ASSERT_TRUE(QDir().mkdir(folder));
    for (const Place& place : Written())
        for (const QString& target : {file, folder, nothing}) {
            const QString path = Path(QString::fromLatin1(place.name));
            QDir().mkpath(QFileInfo(path).path());
            QFile::remove(path);
            ASSERT_TRUE(QFile::link(target, path));
            EXPECT_ERROR(place.error, place.use()) << place.name << ' ' << target.toStdString();
            EXPECT_EQ(QFileInfo(path).symLinkTarget(), target) << place.name;
            EXPECT_EQ(BytesOf(file), "{}") << place.name;
            EXPECT_TRUE(QDir(folder).isEmpty()) << place.name;
            EXPECT_FALSE(QFileInfo::exists(nothing)) << place.name;
            ASSERT_TRUE(QFile::remove(path));
            EXPECT_NO_THROW(place.use()) << place.name;
            EXPECT_TRUE(QFileInfo(path).isFile()) << place.name;
        }
}

TEST_F(PlacesOfFilesTest, AnotherNameOfAFileKeepsTheFormerContents) {
    ShownPicture();
    QList<Place> places = Written();
    places += {"DeleteMe/Anna", 0, [] { ShownPicture(); }};
    for (const Place& place : places) {
        const QString path = Path(QString::fromLatin1(place.name));
        const QString second = Path(QStringLiteral("second"));
        WriteBytes(path, "{}");
        ASSERT_EQ(::link(Encoded(path).constData(), Encoded(second).constData()), 0);
        EXPECT_NO_THROW(place.use()) << place.name;
        EXPECT_EQ(BytesOf(second), "{}") << place.name;
        EXPECT_NE(BytesOf(path), "{}") << place.name;
        QFile::remove(second);
    }
}

TEST_F(PlacesOfFilesTest, AFolderThatWasMovedAndIsALinkGoesOnWorking) {
    ShownPicture();
    ASSERT_TRUE(QDir().mkdir(Path(QStringLiteral("elsewhere"))));
    PrintoutFolder paper;
    for (const char* name :
         {"Settings", "Jobs", "Database", "DeleteMe", "UserConfig", "Printouts"}) {
        const QString folder = Path(QString::fromLatin1(name));
        const QString moved = Path(QStringLiteral("elsewhere/") + QString::fromLatin1(name));
        QDir().mkpath(folder);
        ASSERT_TRUE(QDir().rename(folder, moved));
        ASSERT_TRUE(QFile::link(moved, folder));
    }
    Restart();
    for (const Place& place : Written()) {
        EXPECT_NO_THROW(place.use()) << place.name;
        const QString moved = QStringLiteral("elsewhere/") + QString::fromLatin1(place.name);
        EXPECT_TRUE(QFileInfo(Path(moved)).isFile()) << place.name;
    }
    EXPECT_EQ(ShownPicture().size(), QSize(24, 24));
    Database().AddPoints(QStringLiteral("Anna"), 10, false);
    EXPECT_NO_THROW(Database().Commit());
    PrinterObject printer(paper);
    printer.Print(QStringLiteral("page"));
    printer.EndDoc();
    EXPECT_EQ(QDir(Path(QStringLiteral("elsewhere/Printouts"))).entryList(QDir::Files).size(), 1);
}

TEST_F(PlacesOfFilesTest, AScratchFileTakesThePlaceOfALink) {
    const QString file = Path(QStringLiteral("elsewhere/file"));
    const QString folder = Path(QStringLiteral("elsewhere/folder"));
    const QString nothing = Path(QStringLiteral("elsewhere/nothing"));
    const QString scratch = Path(QStringLiteral("DeleteMe/Anna"));
    WriteBytes(file, "precious");
    ASSERT_TRUE(QDir().mkdir(folder));
    QDir().mkdir(Path(QStringLiteral("DeleteMe")));
    for (const QString& target : {file, folder, nothing}) {
        QFile::remove(scratch);
        ASSERT_TRUE(QFile::link(target, scratch));
        EXPECT_EQ(ShownPicture().size(), QSize(24, 24)) << target.toStdString();
        EXPECT_FALSE(QFileInfo(scratch).isSymLink()) << target.toStdString();
        EXPECT_EQ(BytesOf(file), "precious");
        EXPECT_TRUE(QDir(folder).isEmpty());
        EXPECT_FALSE(QFileInfo::exists(nothing));
    }
}

TEST_F(PlacesOfFilesTest, NoPictureIsShownWhereItsScratchFileCannotBeWritten) {
    Arrange([] {
        Database().AddUser(QStringLiteral("Ben"), QStringLiteral("b"), QStringLiteral("Student"),
                           PictureFile(QStringLiteral("red.png"), 0xffff0000));
    });
    FakePicture target;
    Database().RetrevePicture(QStringLiteral("Ben"), target);
    EXPECT_EQ(target.picture.pixel(12, 12), 0xffff0000);
    {
        // Ben's picture is what can be read.
        const FileMode top(Path(QString()), 0755);
        const FileMode folder(Path(QStringLiteral("DeleteMe")), 0555);
        const OrdinaryUser user;
        EXPECT_TRUE(ShownPicture().isNull());
    }
    EXPECT_EQ(ShownPicture().pixel(12, 12), 0xff2266aa);
    const QString scratch = Path(QStringLiteral("DeleteMe/Anna"));
    ASSERT_TRUE(QFileInfo(scratch).isFile());
    ASSERT_TRUE(QFile::rename(scratch, Path(QStringLiteral("red"))));
    ASSERT_TRUE(QDir(Path(QString())).rmdir(QStringLiteral("DeleteMe")));
    WriteBytes(Path(QStringLiteral("DeleteMe")), "no folder");
    EXPECT_TRUE(ShownPicture().isNull());
    QFile::remove(Path(QStringLiteral("DeleteMe")));
    ASSERT_TRUE(QDir().mkpath(scratch));
    EXPECT_TRUE(ShownPicture().isNull());
}

TEST_F(PlacesOfFilesTest, ADatabaseOrItsJournalThatIsALinkIsRefused) {
    const QString database = Path(QStringLiteral("Database/Charts.mdb"));
    const QString journal = database + QStringLiteral("-journal");
    const QString moved = Path(QStringLiteral("moved"));
    ASSERT_TRUE(QFile::rename(database, moved));
    for (const QString& target : {moved, Path(QStringLiteral("nothing"))}) {
        ASSERT_TRUE(QFile::link(target, database));
        EXPECT_ERROR(75, Database().InitDatabse());
        ASSERT_TRUE(QFile::remove(database));
    }
    EXPECT_FALSE(QFileInfo::exists(Path(QStringLiteral("nothing"))));
    ASSERT_TRUE(QFile::rename(moved, database));
    ASSERT_TRUE(QFile::link(Path(QStringLiteral("nothing")), journal));
    EXPECT_ERROR(75, Database().InitDatabse());
    EXPECT_FALSE(QFileInfo::exists(Path(QStringLiteral("nothing"))));
    ASSERT_TRUE(QFile::remove(journal));
    EXPECT_NO_THROW(Database().InitDatabse());
}

TEST_F(PlacesOfFilesTest, WhatIsNoFileIsRefusedAtOnce) {
    const QString picture = Path(QStringLiteral("a.png"));
    const QList<Place> read = {
        {"Settings/Settings.txt", 75, [] { ReadSettings(); }},
        {"Jobs/HomeJobs.dat", 75, [] { ReadJobs(false); }},
        {"Jobs/SchoolJobs.dat", 75, [] { ReadJobs(true); }},
        {Registry, 11002,
         [] { clsRegistry().GetValue(HKEY_CURRENT_USER, Key(), QStringLiteral("a")); }},
        {"a.png", 75, [&] { LoadPicture(picture); }},
        {"a.png", 75,
         [&] {
             Database().AddUser(QStringLiteral("Ben"), QStringLiteral("b"),
                                QStringLiteral("Student"), picture);
         }},
        {"shape", 75, [] { LoadRegion(); }},
        {"Database/Charts.mdb", 3000, [] { Database().InitDatabse(); }},
        {"Database/Charts.mdb-journal", 75, [] { Database().InitDatabse(); }}};
    const std::pair<const char*, std::function<bool(const QByteArray&)>> kinds[] = {
        {"pipe", [](const QByteArray& path) { return ::mkfifo(path.constData(), 0600) == 0; }},
        {"socket",
         [](const QByteArray& path) { return ::mknod(path.constData(), S_IFSOCK | 0600, 0) == 0; }},
        {"folder", [](const QByteArray& path) { return ::mkdir(path.constData(), 0700) == 0; }},
    };
    QList<Place> places = read;
    for (const Place& place : Written())
        places += place;
    for (const Place& place : places)
        for (const auto& [kind, make] : kinds) {
            const QString path = Path(QString::fromLatin1(place.name));
            const QString aside = Path(QStringLiteral("aside"));
            QDir().mkpath(QFileInfo(path).path());
            const bool wasThere = QFile::rename(path, aside);
            ASSERT_TRUE(make(Encoded(path))) << place.name << ' ' << kind;
            SCOPED_TRACE(place.name + std::string(" is a ") + kind);
            UntilQuickEnough([use = place.use, error = place.error] {
                QElapsedTimer watch;
                watch.start();
                EXPECT_ERROR(error, use());
                return watch.elapsed() < 2000;
            });
            ASSERT_EQ(::remove(Encoded(path).constData()), 0) << "it was exchanged";
            EXPECT_TRUE(!wasThere || QFile::rename(aside, path));
        }
    // A device without an end, by a link, which reading may follow.
    for (const Place& place : read) {
        const QString path = Path(QString::fromLatin1(place.name));
        if (path.contains(QLatin1String("Charts.mdb")))
            continue;
        QFile::remove(path);
        ASSERT_TRUE(QFile::link(QStringLiteral("/dev/zero"), path));
        EXPECT_ERROR(place.error, place.use()) << place.name;
        QFile::remove(path);
    }
}

TEST_F(PlacesOfFilesTest, AJobListOfAGigabyteIsRefusedWithoutTakingTheMemory) {
    const auto memory = [] { // kilobytes
        rusage usage = {};
        ::getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss;
    };
    for (const char* name : {"Jobs/HomeJobs.dat", "Settings/Settings.txt"}) {
        const QString path = Path(QString::fromLatin1(name));
        WriteBytes(path, "one line");
        ASSERT_TRUE(QFile::resize(path, qint64{1} << 30));
        const long before = memory();
        const auto error = ErrorOf([&] { InputFile file(path); });
        ASSERT_TRUE(HasNumber(error, 75));
        EXPECT_EQ(error->Advice(),
                  QStringLiteral("%1 is larger than 16 MB. Choose a smaller one, or put a safety "
                                 "copy in its place.")
                      .arg(path));
        EXPECT_LT(memory() - before, 50'000);
    }
}

TEST_F(PlacesOfFilesTest, APictureOfMoreThanTwoGigabytesIsRefusedAndNotCut) {
    const QString path = PictureFile(QStringLiteral("large.png"));
    const auto refused = [&] {
        return QStringLiteral("Run-time error '481':\n\nInvalid picture\n\n%1 is larger than 900 "
                              "MB. Choose a smaller one, or put a safety copy in its place.")
            .arg(path);
    };
    for (const qint64 size : {(qint64{1} << 31) + 1000, MostPictureBytes + 1}) {
        ASSERT_TRUE(QFile::resize(path, size));
        const auto atTheChoice = ErrorOf([&] { LoadPicture(path); });
        ASSERT_TRUE(HasNumber(atTheChoice, 481)) << size;
        EXPECT_EQ(atTheChoice->Report(), refused());
        const auto atTheStore = ErrorOf([&] {
            Database().AddUser(QStringLiteral("Ben"), QStringLiteral("b"),
                               QStringLiteral("Student"), path);
        });
        ASSERT_TRUE(HasNumber(atTheStore, 481)) << size;
        EXPECT_EQ(atTheStore->Report(), refused());
        EXPECT_EQ(Rows(QStringLiteral("USERS")).size(), 1);
    }
    ASSERT_TRUE(QFile::resize(path, MostPictureBytes));
    EXPECT_EQ(LoadPicture(path).size(), QSize(24, 24));
}

} // namespace

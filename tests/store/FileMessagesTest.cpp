#include "platform/printing/PrintoutFolder.h"
#include "platform/runtime/Actions.h"
#include "support/clsRegistry.h"
#include "tests/common/FileModes.h"
#include "tests/common/OrdinaryUser.h"
#include "tests/common/ReadOnlyDisk.h"
#include "tests/store/NoForms.h"
#include "tests/store/StoreTest.h"

#include <cstdlib>
#include <pwd.h>
#include <sys/stat.h>

namespace {

/// What the user is told when a file of the program cannot be used, to the letter.
class FileMessagesTest : public StoreTest {
protected:
    FileMessagesTest() { SetSettingsForms(&forms_); }

    static void SetMode(const QString& path, mode_t mode) {
        ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), mode), 0);
    }
    template <class Statement>
    static std::string ReportOf(Statement&& statement) {
        const auto error = ErrorOf(statement);
        return error ? error->Report().toStdString() : "no error";
    }
    /// `text` with the program's folder in the place of %1.
    static std::string Expected(const char* text) {
        QString folder = Path(QString());
        folder.chop(1);
        return QString::fromUtf8(text).arg(folder).toStdString();
    }
    static void UseBackground(const QString& picture) {
        BackgroundPicture = picture;
        WriteSettings();
    }
    static void WriteText(const QString& path, const QByteArray& text) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(text);
    }
    static QString Settings() { return Path(QStringLiteral("Settings/Settings.txt")); }

private:
    NoForms forms_;
};

TEST_F(FileMessagesTest, ABackgroundPictureThatIsGoneSaysSoAndHowToStartWithout) {
    UseBackground(Path(QStringLiteral("gone.png")));
    EXPECT_END_OF_RUN(53, ReadSettings());
    EXPECT_EQ(ReportOf([] { ReadSettings(); }),
              Expected("Run-time error '53':\n\nFile not found\n\nThe background picture cannot be "
                       "shown: There is no file %1/gone.png. If it was moved or renamed, put it "
                       "back where it was.\n\nTo start without it, empty the second line of "
                       "%1/Settings/Settings.txt; the line itself stays."));
}

TEST_F(FileMessagesTest, ABackgroundPictureOfAnotherUserSaysSo) {
    // As it is on every machine.
    UseBackground(QStringLiteral("/root/picture.png"));
    SetMode(Path(QString()), 0755);
    const OrdinaryUser user;
    EXPECT_END_OF_RUN(53, ReadSettings());
    EXPECT_EQ(ReportOf([] { ReadSettings(); }),
              Expected("Run-time error '53':\n\nFile not found\n\nThe background picture cannot be "
                       "shown: You may not open /root. Ask its owner (root) for the right to "
                       "it.\n\nTo start without it, empty the second line of "
                       "%1/Settings/Settings.txt; the line itself stays."));
}

TEST_F(FileMessagesTest, SettingsThatAreMissingOrNoneSaySo) {
    WriteText(Settings(), " 0 \r\n\r\n");
    const char* const malformed =
        "%1/Settings/Settings.txt is not as the program writes it: a number (0 or 1), the path of "
        "the background picture or nothing, the number of a colour, and two more numbers (0 or 1), "
        "one a line. Mend it, or put a safety copy in its place.";
    EXPECT_EQ(ReportOf([] { ReadSettings(); }),
              "Run-time error '62':\n\nInput past end of file\n\n" + Expected(malformed));
    WriteText(Settings(), "yes\r\n\r\n 0 \r\n 0 \r\n 0 \r\n");
    EXPECT_EQ(ReportOf([] { ReadSettings(); }),
              "Run-time error '13':\n\nType mismatch\n\n" + Expected(malformed));
    ASSERT_TRUE(QFile::remove(Settings()));
    EXPECT_EQ(ReportOf([] { ReadSettings(); }),
              Expected("Run-time error '53':\n\nFile not found\n\nThere is no file "
                       "%1/Settings/Settings.txt. If it was moved or renamed, put it back where it "
                       "was."));
}

TEST_F(FileMessagesTest, AFolderThatWasMovedWhileInUseIsNamed) {
    QDir folder(Path(QString()));
    ASSERT_TRUE(folder.rename(QStringLiteral("Settings"), QStringLiteral("Elsewhere")));
    EXPECT_EQ(
        ReportOf([] { WriteSettings(); }),
        Expected("Run-time error '76':\n\nPath not found\n\nThere is no folder %1/Settings. If "
                 "it was moved or renamed, put it back where it was."));
    ASSERT_TRUE(folder.rename(QStringLiteral("Database"), QStringLiteral("Charts")));
    EXPECT_EQ(
        ReportOf([] {
            Database().AddUser(QStringLiteral("Anna"), QStringLiteral("a"),
                               QStringLiteral("Student"), PictureFile());
        }),
        Expected(
            "Run-time error '3000':\n\nattempt to write a readonly database\n\nThere is no folder "
            "%1/Database. If it was moved or renamed, put it back where it was."));
    EXPECT_EQ(ReportOf([] { Database().InitDatabse(); }),
              Expected("Run-time error '3000':\n\nunable to open database file: "
                       "%1/Database/Charts.mdb\n\nThere is no folder %1/Database. If it was moved "
                       "or renamed, put it back where it was."));
}

TEST_F(FileMessagesTest, ADatabaseThatIsNoFileIsNamed) {
    const QString database = Path(QStringLiteral("Database/Charts.mdb"));
    ASSERT_TRUE(QFile::remove(database));
    ASSERT_TRUE(QDir().mkdir(database));
    EXPECT_EQ(ReportOf([] { Database().InitDatabse(); }),
              Expected("Run-time error '3000':\n\nThere is a file '%1/Database/Charts.mdb' "
                       "already.\n\n%1/Database/Charts.mdb is a folder, and a file belongs there. "
                       "Rename the folder, and put the file in its place."));
    ASSERT_TRUE(QDir().rmdir(database));
    ASSERT_EQ(::mkfifo(QFile::encodeName(database).constData(), 0600), 0);
    EXPECT_EQ(ReportOf([] { Database().InitDatabse(); }),
              Expected("Run-time error '3000':\n\nThere is a file '%1/Database/Charts.mdb' "
                       "already.\n\n%1/Database/Charts.mdb is a pipe or a device, and a file "
                       "belongs there. Remove it, and put the file in its place."));
}

TEST_F(FileMessagesTest, AFolderOfAGroupSaysHowToJoinIt) {
    const QString folder = Path(QStringLiteral("Database"));
    SetMode(Path(QString()), 0755);
    SetMode(folder, 02770);
    struct stat shadow = {};
    ASSERT_EQ(::stat("/etc/shadow", &shadow), 0);
    // A group that there is on every machine, in the place of the package's.
    const bool isOthers = ::chown(QFile::encodeName(folder).constData(), 0, shadow.st_gid) == 0 &&
                          ::chmod(QFile::encodeName(folder).constData(), 02770) == 0;
    const OrdinaryUser user;
    const QString me = QString::fromLocal8Bit(::getpwuid(::geteuid())->pw_name);
    EXPECT_EQ(isOthers, me == QLatin1String("nobody")) << "only root gives folders away";
    if (isOthers) {
        const auto error = ErrorOf([] { Database().InitDatabse(); });
        ASSERT_TRUE(HasNumber(error, 3000));
        EXPECT_EQ(
            error->Advice().toStdString(),
            Expected("You may not open %1/Database. It is there for the members of the group "
                     "shadow. To become one, have whoever looks after this computer "
                     "type\n\nsudo adduser nobody shadow\n\nin a terminal; then log out of the "
                     "computer and in again."));
    }
}

TEST_F(FileMessagesTest, ADatabaseThatMayNotBeWrittenIsNamed) {
    const QString picture = PictureFile();
    {
        const FileMode top(Path(QString()), 0755);
        const FileMode folder(Path(QStringLiteral("Database")), 0555);
        const FileMode file(Path(QStringLiteral("Database/Charts.mdb")), 0444);
        const OrdinaryUser user;
        Database().InitDatabse();
        const std::string report = ReportOf([&] {
            Database().AddUser(QStringLiteral("Anna"), QStringLiteral("a"),
                               QStringLiteral("Student"), picture);
        });
        struct stat status = {};
        ASSERT_EQ(::stat(QFile::encodeName(Path(QString())).constData(), &status), 0);
        const bool isMine = status.st_uid == ::geteuid();
        EXPECT_EQ(report,
                  Expected("Run-time error '3000':\n\nattempt to write a readonly database\n\nYou "
                           "may not change %1/Database/Charts.mdb. ") +
                      (isMine ? "It is yours: give yourself the right to it in its properties."
                              : "Ask its owner (root) for the right to it."));
    }
}

TEST_F(FileMessagesTest, TheRegistryIsNamed) {
    const QString file = Path(QStringLiteral("UserConfig/sparkit-dutygrid/registry.json"));
    ASSERT_TRUE(QDir().mkpath(file));
    EXPECT_EQ(ReportOf([] { clsRegistry().CreateKey(HKEY_CURRENT_USER, QStringLiteral("a")); }),
              Expected("Run-time error '11005':\n\nCreateKey\n\n"
                       "%1/UserConfig/sparkit-dutygrid/registry.json is a folder, and a file "
                       "belongs there. Rename the folder, and put the file in its place."));
}

TEST_F(FileMessagesTest, PrintingOnADiskThatCanOnlyBeReadSaysSo) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto print = [] {
        if (!QDir().mkdir(Path(QStringLiteral("Printouts"))) ||
            !MakeReadOnlyDisk(Path(QStringLiteral("Printouts"))))
            return 2;
        PrintoutFolder paper;
        PrinterObject printer(paper);
        const std::string report = ReportOf([&] { printer.Print(QStringLiteral("page")); });
        const std::string expected = Expected(
            "Run-time error '482':\n\nThe printout cannot be written to %1/Printouts\n\n"
            "%1/Printouts cannot be written: its disk can only be read. Take away the write "
            "protection, or copy the program's folder to another disk and start the program "
            "there.\n\nWithout a printer the pages are kept as files there.");
        return report == expected ? 0 : 1;
    };
    EXPECT_EXIT(std::_Exit(print()), testing::ExitedWithCode(0), "");
}

} // namespace

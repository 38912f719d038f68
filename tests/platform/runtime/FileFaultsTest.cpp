#include "platform/runtime/FileFaults.h"

#include "platform/runtime/Pictures.h"
#include "platform/runtime/WholeFiles.h"
#include "tests/common/FullDisk.h"
#include "tests/common/OrdinaryUser.h"
#include "tests/common/ReadOnlyDisk.h"
#include "tests/common/RuntimeTest.h"

#include <cstdlib>
#include <pwd.h>
#include <sys/stat.h>

namespace {

class FileFaultsTest : public RuntimeTest {
protected:
    static void SetMode(const QString& path, mode_t mode) {
        ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), mode), 0);
    }
    static QString Me() { return QString::fromLocal8Bit(::getpwuid(::geteuid())->pw_name); }
};

TEST_F(FileFaultsTest, ReportNamesTheFileAndTheWayOutBelowTheStandardText) {
    WriteFile(Path(QStringLiteral("other")), "a");
    const auto error = ErrorOf([] { ReadWholeFile(Path(QStringLiteral("file")), 10); });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->Text(), QStringLiteral("File not found"));
    const QString report =
        QStringLiteral("Run-time error '53':\n\nFile not found\n\n"
                       "There is no file %1. If it was moved or renamed, put it back where it was.")
            .arg(Path(QStringLiteral("file")));
    EXPECT_EQ(error->Report(), report);
    EXPECT_EQ(QString::fromUtf8(error->what()), report);
}

TEST_F(FileFaultsTest, WhatCannotBeReadIsToldByItsKind) {
    WriteFile(Path(QStringLiteral("file")), "a");
    ASSERT_TRUE(QDir().mkdir(Path(QStringLiteral("folder"))));
    ASSERT_EQ(::mkfifo(QFile::encodeName(Path(QStringLiteral("pipe"))).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(Path(QStringLiteral("nothing")), Path(QStringLiteral("link"))));
    const std::pair<const char*, const char*> cases[] = {
        {"nothing", "There is no file %1. If it was moved or renamed, put it back where it was."},
        {"link", "%1 is a link to a file that is not there. Put the file itself in its place."},
        {"folder", "%1 is a folder, and a file belongs there. Rename the folder, and put the file "
                   "in its place."},
        {"pipe", "%1 is a pipe or a device, and a file belongs there. Remove it, and put the file "
                 "in its place."},
        {"file", "The disk could not read all of %1. Put a safety copy of the file in its place."},
    };
    for (const auto& [name, text] : cases) {
        const QString path = Path(QString::fromLatin1(name));
        EXPECT_EQ(WhyNotRead(path), QString::fromLatin1(text).arg(path));
    }
    EXPECT_EQ(WhyNotRead(Path(QStringLiteral("moved/away/file"))),
              QStringLiteral("There is no folder %1. If it was moved or renamed, put it back where "
                             "it was.")
                  .arg(Path(QStringLiteral("moved/away"))));
}

TEST_F(FileFaultsTest, WhatCannotBeWrittenIsToldByItsKind) {
    WriteFile(Path(QStringLiteral("file")), "a");
    ASSERT_TRUE(QDir().mkdir(Path(QStringLiteral("folder"))));
    ASSERT_TRUE(QFile::link(Path(QStringLiteral("file")), Path(QStringLiteral("link"))));
    const std::pair<const char*, const char*> cases[] = {
        {"link", "%1 is a link, and nothing is written through a link. Put the file itself in its "
                 "place; a folder may be a link."},
        {"folder", "%1 is a folder, and a file belongs there. Rename the folder, and put the file "
                   "in its place."},
        {"file", "The disk could not write all of %1. It may be full: make room, and try again."},
        {"new", "The disk could not write all of %1. It may be full: make room, and try again."},
    };
    for (const auto& [name, text] : cases) {
        const QString path = Path(QString::fromLatin1(name));
        EXPECT_EQ(WhyNotWritten(path), QString::fromLatin1(text).arg(path));
    }
    const FullDisk noRoom(0);
    const auto error = ErrorOf([] { ReplaceFile(Path(QStringLiteral("file")), "b"); });
    ASSERT_TRUE(HasNumber(error, 75));
    EXPECT_EQ(error->Advice(), WhyNotWritten(Path(QStringLiteral("file"))));
}

TEST_F(FileFaultsTest, WhoLacksARightIsToldHowToGetIt) {
    SetMode(Path(QString()), 0777);
    const OrdinaryUser user;
    // As they are on every machine.
    EXPECT_EQ(WhyNotRead(QStringLiteral("/etc/shadow")),
              QStringLiteral("You may not open /etc/shadow. It is there for the members of the "
                             "group shadow. To become one, have whoever looks after this computer "
                             "type\n\nsudo adduser %1 shadow\n\nin a terminal; then log out of the "
                             "computer and in again.")
                  .arg(Me()));
    EXPECT_EQ(WhyNotRead(QStringLiteral("/root/folder/file")),
              QStringLiteral("You may not open /root. Ask its owner (root) for the right to it."));
    EXPECT_EQ(WhyNotWritten(QStringLiteral("/etc/passwd")),
              QStringLiteral(
                  "You may not change /etc/passwd. Ask its owner (root) for the right to it."));
    EXPECT_EQ(WhyNotWritten(QStringLiteral("/etc/a new file")),
              QStringLiteral("You may not change /etc. Ask its owner (root) for the right to it."));
    const QString own = Path(QStringLiteral("own"));
    WriteFile(own, "a");
    SetMode(own, 0000);
    EXPECT_EQ(
        WhyNotRead(own),
        QStringLiteral("You may not open %1. It is yours: give yourself the right to it in its "
                       "properties.")
            .arg(own));
    SetMode(own, 0400);
    EXPECT_EQ(WhyNotWritten(own),
              QStringLiteral("You may not change %1. It is yours: give yourself the right to it in "
                             "its properties.")
                  .arg(own));
}

TEST_F(FileFaultsTest, ADiskThatCanOnlyBeReadIsToldAsSuch) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto look = [] {
        const QString folder = Path(QStringLiteral("disk"));
        const QString file = folder + QStringLiteral("/file");
        if (!QDir().mkdir(folder) || !MakeReadOnlyDisk(folder))
            return 2;
        const auto error = ErrorOf([&] { ReplaceFile(file, "a"); });
        const QString advice =
            QStringLiteral("%1 cannot be written: its disk can only be read. Take away the write "
                           "protection, or copy the program's folder to another disk and start the "
                           "program there.")
                .arg(file);
        return error && error->Number() == 75 && error->Advice() == advice ? 0 : 1;
    };
    EXPECT_EXIT(std::_Exit(look()), testing::ExitedWithCode(0), "");
}

TEST_F(FileFaultsTest, APictureIsToldByItsFile) {
    WriteFile(Path(QStringLiteral("text.png")), "no picture");
    const auto error = ErrorOf([] { LoadPicture(Path(QStringLiteral("text.png"))); });
    ASSERT_TRUE(HasNumber(error, 481));
    EXPECT_EQ(
        error->Report(),
        QStringLiteral("Run-time error '481':\n\nInvalid picture\n\n%1 is no whole picture of "
                       "a known kind. Choose a PNG, JPEG, GIF, BMP or ICO file.")
            .arg(Path(QStringLiteral("text.png"))));
}

} // namespace

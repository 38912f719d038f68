#include "platform/runtime/WholeFiles.h"

#include "tests/common/FileModes.h"
#include "tests/common/FullDisk.h"
#include "tests/common/RuntimeTest.h"

#include <QDateTime>
#include <sys/stat.h>

namespace {

class WholeFilesTest : public RuntimeTest {
protected:
    static QString File() { return Path(QStringLiteral("folder/file.txt")); }
    static QStringList FilesBeside() {
        return QFileInfo(File()).dir().entryList(QDir::Files | QDir::Hidden);
    }
    static const QStringList FileAlone;
};

const QStringList WholeFilesTest::FileAlone{QStringLiteral("file.txt")};

TEST_F(WholeFilesTest, AFileIsReadToItsLastByteAndUpToTheLimit) {
    WriteFile(File(), QByteArray("a\0b\r\n", 5));
    EXPECT_EQ(ReadWholeFile(File(), 5), QByteArray("a\0b\r\n", 5));
    EXPECT_ERROR(75, ReadWholeFile(File(), 4));
    WriteFile(File(), QByteArray());
    EXPECT_EQ(ReadWholeFile(File(), 0), QByteArray());
}

TEST_F(WholeFilesTest, WhatIsNoReadableFileRaisesItsNumber) {
    constexpr qint64 most = 1000;
    EXPECT_ERROR(76, ReadWholeFile(File(), most));
    WriteFile(File(), "a");
    EXPECT_ERROR(53, ReadWholeFile(File() + QLatin1Char('x'), most));
    EXPECT_ERROR(75, ReadWholeFile(QFileInfo(File()).path(), most));
    const QString pipe = Path(QStringLiteral("folder/pipe"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_ERROR(75, ReadWholeFile(pipe, most));
    EXPECT_ERROR(75, ReadWholeFile(QStringLiteral("/dev/zero"), most));
}

TEST_F(WholeFilesTest, AFileThatTheDiskRefusesToReadIsNotTakenForAnEmptyOne) {
    // The first page of this process is nobody's: to read it is an input/output error.
    EXPECT_ERROR(75, ReadWholeFile(QStringLiteral("/proc/self/mem"), 1000));
}

TEST_F(WholeFilesTest, AFileIsMadeAndReplacedAndNothingIsLeftBeside) {
    QDir().mkpath(QFileInfo(File()).path());
    ReplaceFile(File(), "one");
    EXPECT_EQ(ReadFile(File()), QByteArray("one"));
    ReplaceFile(File(), QByteArray());
    EXPECT_EQ(ReadFile(File()), QByteArray());
    EXPECT_EQ(FilesBeside(), FileAlone);
}

TEST_F(WholeFilesTest, ANewFileHasTheRightsThatTheUserGivesNewFiles) {
    QDir().mkpath(QFileInfo(File()).path());
    const Umask notForOthers(0027);
    ReplaceFile(File(), "one");
    struct stat status = {};
    ASSERT_EQ(::stat(QFile::encodeName(File()).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640U);
}

TEST_F(WholeFilesTest, ADiskWithoutRoomLeavesTheFormerFileWhole) {
    WriteFile(File(), "former");
    for (const qint64 room : {0, 1, 9}) {
        const FullDisk disk(room);
        EXPECT_ERROR(75, ReplaceFile(File(), "0123456789")) << room;
        EXPECT_EQ(ReadFile(File()), QByteArray("former")) << room;
        EXPECT_EQ(FilesBeside(), FileAlone) << room;
    }
    const FullDisk justRoom(10);
    ReplaceFile(File(), "0123456789");
    EXPECT_EQ(ReadFile(File()), QByteArray("0123456789"));
}

TEST_F(WholeFilesTest, WhatAKilledWriteHasLeftIsRemovedAndNothingElse) {
    const QString left = File() + QStringLiteral(".0123456789abcdef.new");
    const QString ofNow = File() + QStringLiteral(".fedcba9876543210.new");
    const QString another = File() + QStringLiteral(".new");
    for (const QString& path : {left, ofNow, another})
        WriteFile(path, "half");
    for (const QString& path : {left, another}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(-10),
                                     QFileDevice::FileModificationTime));
    }
    ReplaceFile(File(), "whole");
    EXPECT_FALSE(QFile::exists(left));
    EXPECT_TRUE(QFile::exists(ofNow)) << "another copy of the program may be writing it";
    EXPECT_TRUE(QFile::exists(another));
    EXPECT_EQ(ReadFile(File()), QByteArray("whole"));
}

TEST_F(WholeFilesTest, LinksAndProtectedFilesAreRefused) {
    const QString target = Path(QStringLiteral("target"));
    WriteFile(target, "target");
    QDir().mkpath(QFileInfo(File()).path());
    EXPECT_NO_THROW(RefuseToReplace(File()));
    for (const QString& to : {target, Path(QStringLiteral("not there"))}) {
        ASSERT_TRUE(QFile::link(to, File()));
        EXPECT_ERROR(75, RefuseToReplace(File()));
        EXPECT_ERROR(75, ReplaceFile(File(), "new"));
        EXPECT_EQ(QFileInfo(File()).symLinkTarget(), to);
        ASSERT_TRUE(QFile::remove(File()));
    }
    EXPECT_EQ(ReadFile(target), QByteArray("target"));
    EXPECT_FALSE(QFile::exists(Path(QStringLiteral("not there"))));
    EXPECT_ERROR(76, ReplaceFile(Path(QStringLiteral("no folder/file")), "new"));
    EXPECT_ERROR(75, ReplaceFile(QFileInfo(File()).path(), "new"));
}

TEST_F(WholeFilesTest, AFileGetsAFreeNameAndNoOther) {
    const QString taken = Path(QStringLiteral("folder/taken"));
    const QString link = Path(QStringLiteral("folder/link"));
    const QString free = Path(QStringLiteral("folder/free"));
    WriteFile(File(), "a");
    WriteFile(taken, "b");
    ASSERT_TRUE(QFile::link(Path(QStringLiteral("nothing")), link));
    EXPECT_FALSE(RenameToFreeName(File(), taken));
    EXPECT_FALSE(RenameToFreeName(File(), link));
    EXPECT_FALSE(RenameToFreeName(File(), QFileInfo(File()).path()));
    EXPECT_EQ(ReadFile(File()), "a");
    EXPECT_EQ(ReadFile(taken), "b");
    EXPECT_FALSE(QFile::exists(Path(QStringLiteral("nothing"))));
    EXPECT_TRUE(RenameToFreeName(File(), free));
    EXPECT_EQ(ReadFile(free), "a");
    EXPECT_FALSE(QFile::exists(File()));
}

TEST_F(WholeFilesTest, AScratchFileTakesThePlaceOfAFileOrALink) {
    const QString target = Path(QStringLiteral("target"));
    WriteFile(target, "target");
    WriteFile(File(), "former");
    ReplaceScratchFile(File(), "new");
    EXPECT_EQ(ReadFile(File()), "new");
    ASSERT_TRUE(QFile::remove(File()));
    ASSERT_TRUE(QFile::link(target, File()));
    ReplaceScratchFile(File(), "new");
    EXPECT_FALSE(QFileInfo(File()).isSymLink());
    EXPECT_EQ(ReadFile(File()), "new");
    EXPECT_EQ(ReadFile(target), "target");
    EXPECT_ERROR(75, ReplaceScratchFile(Path(QStringLiteral("folder")), "new"));
    EXPECT_EQ(FilesBeside(), FileAlone);
}

} // namespace

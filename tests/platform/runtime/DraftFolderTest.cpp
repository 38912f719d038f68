#include "platform/runtime/DraftFolder.h"

#include "tests/common/FileBytes.h"
#include "tests/common/RuntimeTest.h"

#include <QDir>
#include <QFileInfo>
#include <functional>
#include <sys/stat.h>

namespace {

/// A folder of copies in which another user may write as well, and one of this user's own, in which
/// that one may do nothing.
class DraftFolderTest : public RuntimeTest {
protected:
    DraftFolderTest() {
        QDir().mkpath(Copies);
        QDir().mkpath(Own);
        WriteBytes(Secret, "secret");
        WriteBytes(Like, "like");
        ::chmod(QFile::encodeName(Secret).constData(), 0600);
        ::chmod(QFile::encodeName(Like).constData(), 0660);
    }

    /// What the other user does: the draft goes elsewhere, and its name to something else.
    void Exchange(const std::function<void(const QString& name)>& put) {
        const QStringList drafts = QDir(Copies).entryList({QStringLiteral("*.new")});
        ASSERT_EQ(drafts.size(), 1);
        const QString name = Copies + QLatin1Char('/') + drafts.constFirst();
        ASSERT_TRUE(QDir().rename(name, Path(QStringLiteral("elsewhere"))));
        put(name);
    }
    void LinkToOwn(const QString& name) { ASSERT_TRUE(QFile::link(Own, name)); }

    void ExpectOwnUntouched() {
        EXPECT_EQ(QDir(Own).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                  QStringList{QStringLiteral("one.txt")});
        EXPECT_EQ(BytesOf(Secret), "secret");
        struct stat status {};
        ASSERT_EQ(::stat(QFile::encodeName(Secret).constData(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777U, 0600U);
    }

    const QString Copies = Path(QStringLiteral("copies"));
    const QString Own = Path(QStringLiteral("own"));
    const QString Secret = Path(QStringLiteral("own/one.txt"));
    const QString Like = Path(QStringLiteral("like.txt"));
};

TEST_F(DraftFolderTest, WhatIsWrittenHasItsNameOnlyWhenItIsWhole) {
    {
        DraftFolder draft(Copies, Like);
        draft.Write(QStringLiteral("one.txt"), "new");
        EXPECT_EQ(QFileInfo(draft.MakeFile(QStringLiteral("two.txt"))).size(), 0);
        EXPECT_ERROR(75, draft.Write(QStringLiteral("one.txt"), "again"));
        EXPECT_FALSE(QFileInfo::exists(Copies + QStringLiteral("/whole")));
        draft.TakeName(QStringLiteral("whole"));
    }
    EXPECT_EQ(QDir(Copies).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList{QStringLiteral("whole")});
    EXPECT_EQ(BytesOf(Copies + QStringLiteral("/whole/one.txt")), "new");
    EXPECT_EQ(BytesOf(Copies + QStringLiteral("/whole/two.txt")), "");
}

TEST_F(DraftFolderTest, ATakenNameIsRefusedAndNothingIsLeft) {
    const QString taken = Copies + QStringLiteral("/whole");
    ASSERT_TRUE(QDir().mkdir(taken));
    EXPECT_ERROR(75, DraftFolder(Copies, Like).TakeName(QStringLiteral("whole")));
    ASSERT_TRUE(QDir().rmdir(taken));
    LinkToOwn(taken);
    EXPECT_ERROR(75, DraftFolder(Copies, Like).TakeName(QStringLiteral("whole")));
    EXPECT_EQ(QDir(Copies).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList{QStringLiteral("whole")});
}

TEST_F(DraftFolderTest, NothingIsWrittenThroughALinkThatTakesTheDraftsPlace) {
    DraftFolder draft(Copies, Like);
    Exchange([this](const QString& name) { LinkToOwn(name); });
    draft.Write(QStringLiteral("two.txt"), "new");
    draft.MakeFile(QStringLiteral("three.txt"));
    ExpectOwnUntouched();
    EXPECT_EQ(BytesOf(Path(QStringLiteral("elsewhere/two.txt"))), "new");
}

TEST_F(DraftFolderTest, NoRightsAreGivenThroughALinkThatTakesTheDraftsPlace) {
    DraftFolder draft(Copies, Like);
    draft.Write(QStringLiteral("one.txt"), "new");
    Exchange([this](const QString& name) { LinkToOwn(name); });
    EXPECT_ERROR(75, draft.TakeName(QStringLiteral("whole")));
    ExpectOwnUntouched();
}

TEST_F(DraftFolderTest, NoRightsAreGivenThroughALinkInPlaceOfAFile) {
    DraftFolder draft(Copies, Like);
    draft.Write(QStringLiteral("one.txt"), "new");
    ASSERT_TRUE(QFile::remove(draft.Path(QStringLiteral("one.txt"))));
    ASSERT_TRUE(QFile::link(Secret, draft.Path(QStringLiteral("one.txt"))));
    EXPECT_ERROR(75, draft.TakeName(QStringLiteral("whole")));
    ExpectOwnUntouched();
}

TEST_F(DraftFolderTest, AFolderThatTakesTheDraftsPlaceIsNotTakenForIt) {
    DraftFolder draft(Copies, Like);
    draft.Write(QStringLiteral("one.txt"), "new");
    Exchange([](const QString& name) { ASSERT_TRUE(QDir().mkdir(name)); });
    EXPECT_ERROR(75, draft.TakeName(QStringLiteral("whole")));
}

TEST_F(DraftFolderTest, ALinkThatTakesTheDraftsPlaceIsRemovedItself) {
    {
        const DraftFolder draft(Copies, Like);
        Exchange([this](const QString& name) { LinkToOwn(name); });
    }
    ExpectOwnUntouched();
    EXPECT_TRUE(QDir(Copies).isEmpty(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot));
}

TEST_F(DraftFolderTest, WithoutAFolderToMakeItInThereIsNone) {
    EXPECT_ERROR(76, DraftFolder(Path(QStringLiteral("no/copies")), Like));
    ASSERT_TRUE(QFile::link(Path(QStringLiteral("nowhere")), Path(QStringLiteral("dangling"))));
    EXPECT_ERROR(75, DraftFolder(Path(QStringLiteral("dangling")), Like));
    EXPECT_ERROR(75, DraftFolder(Like, Like));
}

} // namespace

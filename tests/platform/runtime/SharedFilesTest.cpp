#include "platform/runtime/SharedFiles.h"

#include "tests/common/RuntimeTest.h"

#include <sys/stat.h>

namespace {

/// A file that is shared in a folder of its own, and a picture in another.
class SharedFilesTest : public RuntimeTest {
protected:
    SharedFilesTest() {
        WriteFile(Shared(), "a");
        WriteFile(Picture(), "a");
        SetMode(Path(QString()), 0755);
    }
    static QString Shared() { return Path(QStringLiteral("shared/file")); }
    static QString Picture() { return Path(QStringLiteral("mine/picture")); }
    static void SetMode(const QString& path, mode_t mode) {
        ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), mode), 0);
    }
    static bool IsSeen(mode_t sharedFolder, mode_t shared, mode_t folder, mode_t picture) {
        SetMode(QFileInfo(Shared()).path(), sharedFolder);
        SetMode(Shared(), shared);
        SetMode(QFileInfo(Picture()).path(), folder);
        SetMode(Picture(), picture);
        return MayReadWhoMayChange(Picture(), Shared());
    }
};

TEST_F(SharedFilesTest, APictureMustBeOpenToAllWhoShare) {
    struct Case {
        mode_t sharedFolder;
        mode_t shared;
        mode_t folder;
        mode_t picture;
        bool isSeen;
    };
    const Case cases[] = {
        // The owner's alone, whatever the picture is.
        {0700, 0600, 0700, 0600, true},
        {0755, 0644, 0700, 0600, true},
        {0700, 0666, 0700, 0600, true},
        // Everybody's.
        {0777, 0666, 0755, 0644, true},
        {0777, 0666, 0711, 0604, false}, // not the group's
        {0777, 0666, 0755, 0640, false},
        {0777, 0666, 0750, 0644, false},
        {0777, 0666, 0700, 0644, false},
        // The group's; here the picture's group is the same.
        {0770, 0660, 0750, 0640, true},
        {0770, 0660, 0750, 0600, false},
        {0770, 0660, 0700, 0644, false},
    };
    for (const Case& it : cases)
        EXPECT_EQ(IsSeen(it.sharedFolder, it.shared, it.folder, it.picture), it.isSeen)
            << std::oct << it.sharedFolder << ' ' << it.shared << ' ' << it.folder << ' '
            << it.picture;
}

TEST_F(SharedFilesTest, AFolderOutOfReachAboveCountsAndLinksAreFollowed) {
    EXPECT_TRUE(IsSeen(0777, 0666, 0755, 0644));
    const QString link = Path(QStringLiteral("shared/link"));
    ASSERT_TRUE(QFile::link(Picture(), link));
    EXPECT_TRUE(MayReadWhoMayChange(link, Shared()));
    EXPECT_FALSE(IsSeen(0777, 0666, 0700, 0644));
    EXPECT_FALSE(MayReadWhoMayChange(link, Shared()));
    SetMode(Path(QString()), 0700);
    EXPECT_TRUE(MayReadWhoMayChange(link, Shared())) << "nobody gets at what is shared either";
}

TEST_F(SharedFilesTest, WhatIsNotThereIsSharedByNobody) {
    EXPECT_TRUE(MayReadWhoMayChange(Picture(), Path(QStringLiteral("nothing"))));
}

} // namespace

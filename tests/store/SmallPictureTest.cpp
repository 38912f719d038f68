#include "store/SmallPicture.h"
#include "platform/runtime/SmallPictures.h"
#include "tests/store/StoreTest.h"

#include <QDir>
#include <QFile>
#include <QImage>

namespace {

class SmallPictureTest : public StoreTest {
protected:
    static inline const QString Zoe = QStringLiteral("Zoe");

    /// What stands beside the name of an account with that file as its picture.
    static QImage Shown(const QString& file) {
        Database().AddUser(Zoe, QStringLiteral("z"), QStringLiteral("Student"), file);
        SmallPicture target(32);
        Database().RetrevePicture(Zoe, target);
        Database().DeleteAccount(Zoe);
        return target.Picture();
    }
};

TEST_F(SmallPictureTest, ItIsTheAccountsMadeSmallAndLeavesNoTrace) {
    QImage photo(640, 480, QImage::Format_RGB32);
    photo.fill(Qt::green);
    const QString file = Path(QStringLiteral("photo.png"));
    ASSERT_TRUE(photo.save(file));
    const QImage small = Shown(file);
    EXPECT_EQ(small.height(), 32);
    EXPECT_EQ(small.pixelColor(10, 10), QColor(Qt::green));
    EXPECT_FALSE(QFile::exists(Path(QStringLiteral("DeleteMe"))));
}

TEST_F(SmallPictureTest, ThereIsNoneForNoPictureAHugeOneAndNobody) {
    EXPECT_TRUE(Shown(QString()).isNull());
    QFile huge(Path(QStringLiteral("huge.png")));
    ASSERT_TRUE(QFile::copy(PictureFile(), huge.fileName()));
    ASSERT_TRUE(huge.resize(MostSmallPictureBytes + 1));
    EXPECT_TRUE(Shown(huge.fileName()).isNull());
    QFile text(Path(QStringLiteral("text.png")));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("no picture");
    text.close();
    EXPECT_TRUE(Shown(text.fileName()).isNull());
    SmallPicture target(32);
    EXPECT_NO_THROW(Database().RetrevePicture(Zoe, target));
    EXPECT_TRUE(target.Picture().isNull());
}

} // namespace

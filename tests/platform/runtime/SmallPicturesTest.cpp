#include "platform/runtime/SmallPictures.h"

#include "tests/common/RuntimeTest.h"

#include <QBuffer>

namespace {

class SmallPicturesTest : public RuntimeTest {
protected:
    static QByteArray Picture(const QSize& size, const char* format,
                              QImage::Format pixels = QImage::Format_RGB32) {
        QImage picture(size, pixels);
        picture.fill(qRgb(255, 0, 0));
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        EXPECT_TRUE(picture.save(&buffer, format));
        return buffer.data();
    }

    static QImage Small(QByteArray content, int side) {
        QBuffer buffer(&content);
        buffer.open(QIODevice::ReadOnly);
        return ReadSmallPicture(buffer, side);
    }
};

TEST_F(SmallPicturesTest, ALargePictureIsMadeSmallByItsShorterSide) {
    for (const char* format : {"PNG", "JPG", "BMP"}) {
        const QImage small = Small(Picture(QSize(400, 200), format), 32);
        EXPECT_EQ(small.size(), QSize(64, 32)) << format;
        EXPECT_GT(qRed(small.pixel(5, 5)), 240) << format;
    }
}

TEST_F(SmallPicturesTest, ASmallOneStaysAsItIs) {
    EXPECT_EQ(Small(Picture(QSize(300, 20), "PNG"), 32).size(), QSize(300, 20));
    EXPECT_EQ(Small(Picture(QSize(32, 32), "PNG"), 32).size(), QSize(32, 32));
}

TEST_F(SmallPicturesTest, WhatIsNoPictureOfATakenKindIsNone) {
    EXPECT_TRUE(Small("no picture", 32).isNull());
    EXPECT_TRUE(Small(QByteArray(), 32).isNull());
    EXPECT_TRUE(Small(Picture(QSize(400, 200), "PNG").left(60), 32).isNull());
    EXPECT_TRUE(
        Small("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>", 32).isNull());
}

TEST_F(SmallPicturesTest, AHugePictureIsNotRead) {
    // Some kilobytes that would fill many megabytes; of one bit a pixel, which is soon written.
    EXPECT_FALSE(Small(Picture(QSize(8000, 1000), "PNG", QImage::Format_Mono), 32).isNull());
    EXPECT_TRUE(Small(Picture(QSize(8000, 8001), "PNG", QImage::Format_Mono), 32).isNull());
    const QByteArray picture = Picture(QSize(40, 40), "PNG");
    EXPECT_FALSE(
        Small(picture + QByteArray(MostSmallPictureBytes - picture.size(), '\0'), 32).isNull());
    EXPECT_TRUE(Small(picture + QByteArray(MostSmallPictureBytes, '\0'), 32).isNull());
}

TEST_F(SmallPicturesTest, FewColoursAreMixedAsManyAreWhereAPictureIsMadeSmall) {
    QImage picture(400, 400, QImage::Format_Indexed8);
    picture.setColorTable({qRgb(0, 0, 0), qRgb(200, 200, 200)});
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, static_cast<uint>((x + y) % 2));
    QByteArray content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::WriteOnly);
    ASSERT_TRUE(picture.save(&buffer, "PNG"));
    const QImage small = Small(content, 40);
    for (int x = 0; x < 40; ++x)
        EXPECT_NEAR(qRed(small.pixel(x, 20)), 100, 3) << x;
}

} // namespace

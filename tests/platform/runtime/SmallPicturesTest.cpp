#include "platform/runtime/SmallPictures.h"

#include "tests/common/RuntimeTest.h"

#include <QBuffer>

namespace {

class SmallPicturesTest : public RuntimeTest {
protected:
    static QByteArray Picture(const QSize& size, const char* format) {
        QImage picture(size, QImage::Format_RGB32);
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
    // Some kilobytes that would fill 400 megabytes.
    EXPECT_TRUE(Small(Picture(QSize(10000, 10000), "PNG"), 32).isNull());
    const QByteArray picture = Picture(QSize(40, 40), "PNG");
    EXPECT_FALSE(
        Small(picture + QByteArray(MostSmallPictureBytes - picture.size(), '\0'), 32).isNull());
    EXPECT_TRUE(Small(picture + QByteArray(MostSmallPictureBytes, '\0'), 32).isNull());
}

} // namespace

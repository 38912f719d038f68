#include "platform/runtime/Pictures.h"

#include "tests/common/RuntimeTest.h"

#include <QImage>

namespace {

class PicturesTest : public RuntimeTest {
protected:
    static QString Saved(const QString& name, const char* format) {
        QImage picture(20, 10, QImage::Format_RGB32);
        picture.fill(qRgb(255, 0, 0));
        const QString path = Path(name);
        EXPECT_TRUE(picture.save(path, format));
        return path;
    }
};

TEST_F(PicturesTest, NoNameIsTheEmptyPicture) {
    EXPECT_TRUE(LoadPicture(QString()).isNull());
}

TEST_F(PicturesTest, FormatIsToldByTheContentNotTheName) {
    for (const char* format : {"PNG", "JPG", "BMP"}) {
        const QImage picture = LoadPicture(Saved(QStringLiteral("Anna"), format));
        EXPECT_EQ(picture.size(), QSize(20, 10)) << format;
        EXPECT_GT(qRed(picture.pixel(5, 5)), 240) << format;
    }
    EXPECT_EQ(LoadPicture(Saved(QStringLiteral("wrong.gif"), "PNG")).size(), QSize(20, 10));
}

TEST_F(PicturesTest, GifIsLoaded) {
    // One pixel.
    WriteFile(
        Path(QStringLiteral("dot.gif")),
        QByteArray::fromBase64("R0lGODlhAQABAIAAAP8AAP///yH5BAAAAAAALAAAAAABAAEAAAICRAEAOw=="));
    EXPECT_EQ(LoadPicture(Path(QStringLiteral("dot.gif"))).size(), QSize(1, 1));
}

TEST_F(PicturesTest, BytesBehindThePicturesEndDoNotMatter) {
    for (const char* format : {"PNG", "JPG", "BMP"}) {
        const QString path = Saved(QStringLiteral("padded"), format);
        WriteFile(path, ReadFile(path) + QByteArray(70000, '\0'));
        EXPECT_EQ(LoadPicture(path).size(), QSize(20, 10)) << format;
    }
}

TEST_F(PicturesTest, APhotographStandsUprightWhateverWayTheCameraWasHeld) {
    QImage lying(32, 16, QImage::Format_RGB32);
    lying.fill(Qt::white);
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x)
            lying.setPixel(x, y, qRgb(255, 0, 0));
    const QString path = Path(QStringLiteral("photograph.jpg"));
    ASSERT_TRUE(lying.save(path, "JPG", 100));
    // The camera's word that the upper edge is on the right.
    const QByteArray turned("\xff\xe1\0\x22"
                            "Exif\0\0II*\0\x08\0\0\0\1\0"
                            "\x12\1\3\0\1\0\0\0\6\0\0\0\0\0\0\0",
                            36);
    WriteFile(path, ReadFile(path).insert(2, turned));
    const QImage picture = LoadPicture(path);
    ASSERT_EQ(picture.size(), QSize(16, 32));
    EXPECT_LT(qGreen(picture.pixel(8, 4)), 50);
    EXPECT_GT(qGreen(picture.pixel(8, 28)), 200);
}

TEST_F(PicturesTest, FileThatIsNoPictureRaises481) {
    WriteFile(Path(QStringLiteral("text.png")), "no picture");
    WriteFile(Path(QStringLiteral("empty.png")), "");
    const QString cut = Saved(QStringLiteral("cut.png"), "PNG");
    WriteFile(cut, ReadFile(cut).left(20));
    EXPECT_ERROR(481, LoadPicture(Path(QStringLiteral("text.png"))));
    EXPECT_ERROR(481, LoadPicture(Path(QStringLiteral("empty.png"))));
    EXPECT_ERROR(481, LoadPicture(cut));
}

TEST_F(PicturesTest, ADrawingThatCouldLeadElsewhereIsNoPicture) {
    WriteFile(Path(QStringLiteral("drawing.png")),
              "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>");
    EXPECT_ERROR(481, LoadPicture(Path(QStringLiteral("drawing.png"))));
    EXPECT_ERROR(481, LoadPicture(Saved(QStringLiteral("letters"), "XPM")));
}

TEST_F(PicturesTest, FilesThatCannotBeReadRaiseTheirNumbers) {
    EXPECT_ERROR(53, LoadPicture(Path(QStringLiteral("missing.png"))));
    EXPECT_ERROR(75, LoadPicture(ProgramFolder()));
}

TEST_F(PicturesTest, APaletteIsLeftBehindForItWouldSpotWhatIsScaled) {
    QImage picture(20, 10, QImage::Format_Indexed8);
    picture.setColorTable({qRgb(0, 0, 255), qRgb(255, 255, 0)});
    picture.fill(1);
    const QString path = Path(QStringLiteral("few.png"));
    ASSERT_TRUE(picture.save(path));
    EXPECT_EQ(LoadPicture(path).format(), QImage::Format_RGB32);
    EXPECT_EQ(LoadPicture(path).pixel(5, 5), qRgb(255, 255, 0));
    picture.setColorTable({qRgb(0, 0, 255), qRgba(255, 255, 0, 0)});
    ASSERT_TRUE(picture.save(path));
    EXPECT_EQ(LoadPicture(path).format(), QImage::Format_ARGB32);
    EXPECT_EQ(qAlpha(LoadPicture(path).pixel(5, 5)), 0);
}

} // namespace

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

TEST_F(PicturesTest, FileThatIsNoPictureRaises481) {
    WriteFile(Path(QStringLiteral("text.png")), "no picture");
    WriteFile(Path(QStringLiteral("empty.png")), "");
    const QString cut = Saved(QStringLiteral("cut.png"), "PNG");
    WriteFile(cut, ReadFile(cut).left(20));
    EXPECT_ERROR(481, LoadPicture(Path(QStringLiteral("text.png"))));
    EXPECT_ERROR(481, LoadPicture(Path(QStringLiteral("empty.png"))));
    EXPECT_ERROR(481, LoadPicture(cut));
}

TEST_F(PicturesTest, FilesThatCannotBeReadRaiseTheirNumbers) {
    EXPECT_ERROR(53, LoadPicture(Path(QStringLiteral("missing.png"))));
    EXPECT_ERROR(75, LoadPicture(ProgramFolder()));
}

} // namespace

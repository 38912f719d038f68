#include "look/ProgramIcon.h"
#include "tests/common/Readable.h"

#include <QDir>
#include <QHash>
#include <QImage>
#include <QImageReader>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString Delivered(const QString& tail) {
    return QDir(QStringLiteral(DUTYGRID_ASSETS_DIR)).filePath(tail);
}

const QStringList UserNames = {u"Astronaut"_s,     u"Bear"_s,        u"Bee"_s,
                               u"BoyCap"_s,        u"BoyCurls"_s,    u"BoyFreckles"_s,
                               u"BoyGlasses"_s,    u"BoyTurban"_s,   u"BoyHearingAid"_s,
                               u"Butterfly"_s,     u"Car"_s,         u"Cat"_s,
                               u"Dinosaur"_s,      u"Dog"_s,         u"Dragon"_s,
                               u"Elephant"_s,      u"Firefighter"_s, u"Fish"_s,
                               u"Flower"_s,        u"Fox"_s,         u"Frog"_s,
                               u"GirlBob"_s,       u"GirlCurls"_s,   u"GirlGlasses"_s,
                               u"GirlHeadscarf"_s, u"GirlPlaits"_s,  u"GirlWheelchair"_s,
                               u"Grandma"_s,       u"Grandpa"_s,     u"House"_s,
                               u"Knight"_s,        u"Ladybird"_s,    u"Lion"_s,
                               u"Man"_s,           u"Monkey"_s,      u"Octopus"_s,
                               u"Owl"_s,           u"Panda"_s,       u"Penguin"_s,
                               u"Pirate"_s,        u"Princess"_s,    u"Rabbit"_s,
                               u"Rainbow"_s,       u"Robot"_s,       u"Rocket"_s,
                               u"Star"_s,          u"Sun"_s,         u"Superhero"_s,
                               u"Train"_s,         u"Turtle"_s,      u"Unicorn"_s,
                               u"Wizard"_s,        u"Woman"_s};

const QStringList IncentiveNames = {
    u"BoardGame"_s,  u"Books"_s,     u"Bricks"_s,    u"Cake"_s,   u"Camping"_s,  u"Cinema"_s,
    u"Football"_s,   u"FunFair"_s,   u"Game"_s,      u"Guitar"_s, u"IceCream"_s, u"Kite"_s,
    u"Museum"_s,     u"PaintSet"_s,  u"PiggyBank"_s, u"Pizza"_s,  u"Popcorn"_s,  u"Puppet"_s,
    u"Skateboard"_s, u"Sleepover"_s, u"Swimming"_s,  u"Teddy"_s,  u"Zoo"_s};

const QStringList ToolbarKeys = {u"New"_s,   u"Open"_s, u"OpenKid"_s, u"Review"_s,
                                 u"Print"_s, u"View"_s, u"Options"_s, u"Website"_s,
                                 u"About"_s, u"Help"_s, u"LogOff"_s,  u"Exit"_s};

/// Paths of the pictures that users and adults choose from.
QStringList StockPictures() {
    QStringList paths{Delivered(u"IncentivesPictures/Bike.gif"_s)};
    for (const QString& name : UserNames)
        paths += Delivered(u"UsersPictures/%1.png"_s.arg(name));
    for (const QString& name : IncentiveNames)
        paths += Delivered(u"IncentivesPictures/%1.png"_s.arg(name));
    return paths;
}

/// The picture, or a null one with a test failure; its file must be of the kind its name says.
QImage Read(const QString& path, QSize size) {
    QImageReader reader(path);
    const QImage image = reader.read();
    EXPECT_FALSE(image.isNull()) << path.toStdString() << ": "
                                 << reader.errorString().toStdString();
    EXPECT_EQ(image.size(), size) << path.toStdString();
    QString suffix = QFileInfo(path).suffix();
    if (suffix == u"jpg"_s)
        suffix = u"jpeg"_s;
    EXPECT_EQ(QString::fromLatin1(QImageReader::imageFormat(path)), suffix) << path.toStdString();
    return image;
}

/// Part of the visible pixels, 0 to 1, that are of the commonest colour.
double LargestPartOfOneColour(const QImage& image) {
    QHash<QRgb, int> counts;
    int all = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (const QRgb pixel = image.pixel(x, y); qAlpha(pixel) > 200) {
                ++counts[pixel];
                ++all;
            }
    if (all == 0)
        return 1;
    return static_cast<double>(*std::max_element(counts.cbegin(), counts.cend())) / all;
}

/// Relative luminance as the contrast rules for screens define it, 0 to 1.
double Luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& left, const QColor& right) {
    const double a = Luminance(left) + 0.05;
    const double b = Luminance(right) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

/// Pixels that stand out from the ground at least 3 to 1.
int PixelsThatStandOut(const QImage& image, const QColor& ground) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (const QColor pixel = image.pixelColor(x, y);
                pixel.alpha() > 200 && Contrast(pixel, ground) >= 3)
                ++count;
    return count;
}

TEST(DeliveredArtTest, EveryStockPictureIsARoundOneThatShowsSomething) {
    for (const QString& path : StockPictures()) {
        SCOPED_TRACE(path.toStdString());
        const QImage image = Read(path, QSize(256, 256));
        ASSERT_FALSE(image.isNull());
        for (const QPoint corner : {QPoint(0, 0), QPoint(255, 0), QPoint(0, 255), QPoint(255, 255),
                                    QPoint(30, 30), QPoint(225, 225)})
            EXPECT_EQ(qAlpha(image.pixel(corner)), 0);
        for (const QPoint inside : {QPoint(128, 128), QPoint(45, 45), QPoint(210, 45),
                                    QPoint(2, 128), QPoint(253, 128), QPoint(128, 253)})
            EXPECT_EQ(qAlpha(image.pixel(inside)), 255);
        EXPECT_LT(LargestPartOfOneColour(image), 0.8);
    }
}

TEST(DeliveredArtTest, NoTwoStockPicturesAreAlike) {
    QHash<QByteArray, QString> seen;
    for (const QString& path : StockPictures()) {
        const QImage image = QImage(path).convertToFormat(QImage::Format_ARGB32);
        const QByteArray pixels(reinterpret_cast<const char*>(image.constBits()),
                                image.sizeInBytes());
        EXPECT_FALSE(seen.contains(pixels))
            << path.toStdString() << " and " << seen.value(pixels).toStdString();
        seen.insert(pixels, path);
    }
}

TEST(DeliveredArtTest, TheFoldersHoldNothingButTheStockPictures) {
    QStringList found;
    for (const QString& folder : {u"UsersPictures"_s, u"IncentivesPictures"_s})
        for (const QFileInfo& file : QDir(Delivered(folder)).entryInfoList(QDir::Files))
            found += file.filePath();
    QStringList expected = StockPictures();
    found.sort();
    expected.sort();
    EXPECT_EQ(found, expected);
}

TEST(DeliveredArtTest, StockPicturesMayBeReadByEverybody) {
    for (const QString& path : StockPictures())
        EXPECT_TRUE(QFile::permissions(path).testFlag(QFile::ReadOther)) << path.toStdString();
}

TEST(DeliveredArtTest, CheckMarkOfPrintedChartsIsDarkGreenOnWhite) {
    const QImage image = Read(Delivered(u"Images/CheckWhite.jpg"_s), QSize(200, 200));
    ASSERT_FALSE(image.isNull());
    for (const QPoint corner : {QPoint(0, 0), QPoint(199, 0), QPoint(0, 199), QPoint(199, 199)})
        EXPECT_EQ(image.pixelColor(corner), QColor(Qt::white));
    const QColor mark = image.pixelColor(80, 155);
    EXPECT_GT(mark.green(), mark.red() + 60);
    EXPECT_GT(mark.green(), mark.blue() + 60);
    // Dark enough for a printer without colours.
    EXPECT_GT(PixelsThatStandOut(image, Qt::white), 200 * 200 / 10);
}

TEST(DeliveredArtTest, ToolbarPicturesStandOutOnLightAndDarkGrounds) {
    for (const QString& key : ToolbarKeys)
        for (const int side : {32, 64}) {
            const QString path =
                u":/art/toolbar/%1%2.png"_s.arg(key, side == 64 ? u"@2x"_s : u""_s);
            SCOPED_TRACE(path.toStdString());
            const QImage image = Read(path, QSize(side, side));
            ASSERT_FALSE(image.isNull());
            EXPECT_GT(PixelsThatStandOut(image, QColor(0xfb, 0xf6, 0xec)), side * side / 8);
            EXPECT_GT(PixelsThatStandOut(image, QColor(0x20, 0x24, 0x28)), side * side / 8);
        }
}

TEST(DeliveredArtTest, BoxAndTickAreOfOneSizeAndCannotBeMistaken) {
    for (const int side : {25, 50}) {
        const QString tail = side == 50 ? u"@2x.png"_s : u".png"_s;
        const QImage box = Read(u":/art/Box"_s + tail, QSize(side, side));
        const QImage tick = Read(u":/art/Tick"_s + tail, QSize(side, side));
        ASSERT_FALSE(box.isNull() || tick.isNull());
        const QPoint middle(side / 2, side / 2);
        EXPECT_EQ(box.pixelColor(middle), QColor(Qt::white));
        EXPECT_GT(Contrast(tick.pixelColor(11 * side / 25, 16 * side / 25), Qt::white), 4);
        // The frame lies on whole pixels.
        EXPECT_EQ(qAlpha(box.pixel(side / 2, 2 * side / 25)), 255);
        EXPECT_EQ(qAlpha(box.pixel(side / 2, 2 * side / 25 - 1)), 0);
    }
}

TEST(DeliveredArtTest, LogoIsThereForUsualAndFineScreens) {
    for (const auto& [path, size] : {std::pair(u":/art/Logo.png"_s, QSize(360, 120)),
                                     std::pair(u":/art/Logo@2x.png"_s, QSize(720, 240))}) {
        const QImage image = Read(path, size);
        ASSERT_FALSE(image.isNull());
        EXPECT_GT(PixelsThatStandOut(image, QColor(0xfb, 0xf6, 0xec)),
                  size.width() * size.height() / 8);
        EXPECT_GT(PixelsThatStandOut(image, QColor(0x20, 0x24, 0x28)),
                  size.width() * size.height() / 8);
    }
}

TEST(DeliveredArtTest, ProgramIconIsDrawnForEachSize) {
    for (const int side : {16, 24, 32, 48, 64, 128, 256, 512}) {
        const QImage image = Read(u":/art/Icon%1.png"_s.arg(side), QSize(side, side));
        ASSERT_FALSE(image.isNull());
        EXPECT_LT(qAlpha(image.pixel(0, 0)), 10);
        EXPECT_LT(LargestPartOfOneColour(image), 0.6);
    }
    const QIcon icon = ProgramIcon();
    for (const int side : {16, 24, 32, 48, 64, 128, 256}) {
        EXPECT_TRUE(icon.availableSizes().contains(QSize(side, side))) << side;
        EXPECT_EQ(
            icon.pixmap(QSize(side, side), 1.0).toImage().convertToFormat(QImage::Format_ARGB32),
            QImage(u":/art/Icon%1.png"_s.arg(side)).convertToFormat(QImage::Format_ARGB32))
            << side;
    }
}

} // namespace

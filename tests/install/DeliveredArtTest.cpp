#include "look/ProgramIcon.h"
#include "tests/common/Readable.h"

#include <QDir>
#include <QHash>
#include <QImage>
#include <QImageReader>
#include <algorithm>
#include <cmath>
#include <cstdlib>
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
                               u"Man"_s,           u"ManBeard"_s,    u"ManGlasses"_s,
                               u"Monkey"_s,        u"Octopus"_s,     u"Owl"_s,
                               u"Panda"_s,         u"Penguin"_s,     u"Pirate"_s,
                               u"Princess"_s,      u"Rabbit"_s,      u"Rainbow"_s,
                               u"Robot"_s,         u"Rocket"_s,      u"Star"_s,
                               u"Sun"_s,           u"Superhero"_s,   u"Train"_s,
                               u"Turtle"_s,        u"Unicorn"_s,     u"Wizard"_s,
                               u"Woman"_s,         u"WomanCurls"_s,  u"WomanHeadscarf"_s};

const QStringList IncentiveNames = {
    u"BoardGame"_s,  u"Books"_s,     u"Bricks"_s,    u"Cake"_s,   u"Camping"_s,  u"Cinema"_s,
    u"Football"_s,   u"FunFair"_s,   u"Game"_s,      u"Guitar"_s, u"IceCream"_s, u"Kite"_s,
    u"Museum"_s,     u"PaintSet"_s,  u"PiggyBank"_s, u"Pizza"_s,  u"Popcorn"_s,  u"Puppet"_s,
    u"Skateboard"_s, u"Sleepover"_s, u"Swimming"_s,  u"Teddy"_s,  u"Zoo"_s};

const QStringList ToolbarKeys = {u"New"_s,   u"Open"_s, u"OpenKid"_s, u"Review"_s,
                                 u"Print"_s, u"View"_s, u"Options"_s, u"Website"_s,
                                 u"About"_s, u"Help"_s, u"LogOff"_s,  u"Exit"_s};

const QStringList BackgroundNames = {u"Evening"_s, u"Hills"_s, u"Sea"_s, u"Wood"_s};

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

/// The pixels on the edge of a disc that fills a square of so many, and how much of each, 0 to 1,
/// lies within it.
QHash<QPoint, double> EdgeOfDisc(int side) {
    constexpr int Fineness = 8;
    const double radius = side / 2.0;
    const auto distance = [radius](double x, double y) {
        return std::hypot(x - radius, y - radius);
    };
    QHash<QPoint, double> edge;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            if (std::abs(distance(x + 0.5, y + 0.5) - radius) > 2)
                continue;
            int within = 0;
            for (int part = 0; part < Fineness * Fineness; ++part)
                within += distance(x + (part % Fineness + 0.5) / Fineness,
                                   y + (part / Fineness + 0.5) / Fineness) <= radius
                              ? 1
                              : 0;
            edge.insert(QPoint(x, y), static_cast<double>(within) / (Fineness * Fineness));
        }
    return edge;
}

/// The most by which a part of a channel differs, 0 to 255.
int Difference(QRgb left, QRgb right) {
    return std::max({std::abs(qRed(left) - qRed(right)), std::abs(qGreen(left) - qGreen(right)),
                     std::abs(qBlue(left) - qBlue(right))});
}

/// The least difference of a pixel from those near it that hide what is behind them.
int DifferenceFromTheInside(const QImage& image, QPoint place) {
    constexpr int Near = 3; // pixels
    int least = 255;
    const QRect near = QRect(place - QPoint(Near, Near), place + QPoint(Near, Near)) & image.rect();
    for (int y = near.top(); y <= near.bottom(); ++y)
        for (int x = near.left(); x <= near.right(); ++x)
            if (qAlpha(image.pixel(x, y)) == 255)
                least = std::min(least, Difference(image.pixel(place), image.pixel(x, y)));
    return least;
}

TEST(DeliveredArtTest, EveryStockPictureIsARoundOneThatShowsSomething) {
    for (const QString& path : StockPictures()) {
        SCOPED_TRACE(path.toStdString());
        const int fineness = path.endsWith(u".gif"_s) ? 3 : 1;
        const QImage image = Read(path, QSize(256, 256) * fineness);
        ASSERT_FALSE(image.isNull());
        for (const QPoint corner : {QPoint(0, 0), QPoint(255, 0), QPoint(0, 255), QPoint(255, 255),
                                    QPoint(30, 30), QPoint(225, 225)})
            EXPECT_EQ(qAlpha(image.pixel(corner * fineness)), 0);
        for (const QPoint inside : {QPoint(128, 128), QPoint(45, 45), QPoint(210, 45),
                                    QPoint(2, 128), QPoint(253, 128), QPoint(128, 253)})
            EXPECT_EQ(qAlpha(image.pixel(inside * fineness)), 255);
        EXPECT_LT(LargestPartOfOneColour(image), 0.8);
    }
}

TEST(DeliveredArtTest, NoStockPictureHasARaggedOrPaleEdgeWhereItIsShown) {
    // As in lists, in the grid to choose from, and in the log-in at 100 and 200 percent.
    for (const int side : {32, 72, 170, 340}) {
        const QHash<QPoint, double> edge = EdgeOfDisc(side);
        for (const QString& path : StockPictures()) {
            const QImage shown =
                QImage(path)
                    .scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                    .convertToFormat(QImage::Format_ARGB32);
            int ragged = 0;
            int pale = 0;
            for (auto pixel = edge.cbegin(); pixel != edge.cend(); ++pixel) {
                const int alpha = qAlpha(shown.pixel(pixel.key()));
                ragged += std::abs(alpha / 255.0 - pixel.value()) > 0.35 ? 1 : 0;
                const bool isHalf = alpha > 40 && alpha < 255;
                pale += isHalf && DifferenceFromTheInside(shown, pixel.key()) > 48 ? 1 : 0;
            }
            EXPECT_EQ(ragged, 0) << path.toStdString() << ' ' << side;
            // What is drawn there may end there; the ground of another picture would be all round.
            EXPECT_LT(pale, edge.size() / 20) << path.toStdString() << ' ' << side;
        }
    }
}

TEST(DeliveredArtTest, BackgroundsFillAScreenAndLeaveTextReadable) {
    const QColor ink(0x26, 0x32, 0x38);
    QStringList found;
    for (const QFileInfo& file : QDir(Delivered(u"Backgrounds"_s)).entryInfoList(QDir::Files)) {
        SCOPED_TRACE(file.fileName().toStdString());
        found += file.completeBaseName();
        EXPECT_LT(file.size(), 120'000) << "every start reads it";
        EXPECT_TRUE(file.permission(QFile::ReadOther));
        const QImage image = Read(file.filePath(), QSize(2560, 1440));
        ASSERT_EQ(image.format(), QImage::Format_Indexed8);
        EXPECT_FALSE(image.hasAlphaChannel());
        QList<int> counts(image.colorCount());
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                ++counts[image.pixelIndex(x, y)];
        EXPECT_LT(*std::max_element(counts.cbegin(), counts.cend()), 2560 * 1440 / 2);
        // The eyes of small animals are less than a letter.
        int dark = 0;
        for (int index = 0; index < image.colorCount(); ++index)
            dark += Contrast(QColor(image.color(index)), ink) < 4.5 ? counts[index] : 0;
        EXPECT_LT(dark, 800);
    }
    EXPECT_EQ(found, BackgroundNames);
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

TEST(DeliveredArtTest, ToolbarPicturesAreDrawnForEachScale) {
    for (const QString& key : ToolbarKeys)
        for (const int side : {24, 30, 36, 40, 48, 60, 72, 96}) {
            const QImage image =
                Read(u":/art/toolbar/%1-%2.png"_s.arg(key).arg(side), QSize(side, side));
            ASSERT_FALSE(image.isNull());
            EXPECT_GT(PixelsThatStandOut(image, QColor(0xfb, 0xf6, 0xec)), side * side / 8);
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
        // The edge is the outermost pixel, whole.
        EXPECT_EQ(box.pixelColor(side / 2, 0), QColor(Qt::black));
        EXPECT_EQ(box.pixelColor(side / 2, side / 25), QColor(Qt::white));
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

// Renders the drawings in install/art into the pictures the program and its users see.
//
//   RenderArt pictures ART_FOLDER OUTPUT_FOLDER
//       users', incentive and chart pictures, backgrounds
//
//   RenderArt resources ART_FOLDER OUTPUT_FOLDER SIDE...
//       toolbar, boxes, logo and program icon; SIDE: pixels of a toolbar picture, beside 32 and 64
//
// A drawing of a user or an incentive fills its square; the round cut is made here, so that all
// pictures have the same outline.

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QHash>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>

#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <numbers>
#include <stdexcept>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int PictureSide = 256;
// A GIF's pixels are there or not. Three times as fine, its edge has no steps where it is shown.
constexpr int GifSide = 3 * PictureSide;
constexpr int TransparentIndex = 255;
// Most screens are no larger; in the middle of one that is, there would be a rim around it.
constexpr QSize BackgroundSize(2560, 1440);

[[noreturn]] void Fail(const QString& what) {
    throw std::runtime_error(what.toStdString());
}

QImage Render(const QString& svgPath, QSize size, const QColor& background) {
    QSvgRenderer renderer(svgPath);
    if (!renderer.isValid())
        Fail(u"cannot read the drawing "_s + svgPath);
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(background);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(size)));
    painter.end();
    return image.convertToFormat(QImage::Format_ARGB32);
}

QImage CutRound(const QImage& picture) {
    QImage disc(picture.size(), QImage::Format_ARGB32_Premultiplied);
    disc.fill(Qt::transparent);
    QPainter discPainter(&disc);
    discPainter.setRenderHint(QPainter::Antialiasing);
    discPainter.setPen(Qt::NoPen);
    discPainter.setBrush(Qt::white);
    discPainter.drawEllipse(disc.rect());
    discPainter.end();

    QImage round = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&round);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawImage(0, 0, disc);
    painter.end();
    return round.convertToFormat(QImage::Format_ARGB32);
}

// The drawing with a white rim of the given width in pixels, which sets its dark outlines off a
// dark ground and cannot be seen on a light one.
QImage RenderWithRim(const QString& svgPath, QSize size, double width) {
    constexpr int Fineness = 4; // painted larger, so that the rim's edge comes out smooth
    constexpr int Directions = 32;
    const QImage drawing = Render(svgPath, size * Fineness, Qt::transparent);
    QImage shape = drawing.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QPainter shapePainter(&shape);
    shapePainter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    shapePainter.fillRect(shape.rect(), Qt::white);
    shapePainter.end();

    QImage image(drawing.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    for (int i = 0; i < Directions; ++i) {
        const double angle = 2.0 * std::numbers::pi * i / Directions;
        painter.drawImage(QPointF(std::cos(angle), std::sin(angle)) * width * Fineness, shape);
    }
    painter.drawImage(0, 0, drawing);
    painter.end();
    return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_ARGB32);
}

void MakeFolder(const QString& folder) {
    if (!QDir().mkpath(folder))
        Fail(u"cannot make the folder "_s + folder);
}

void Save(const QImage& image, const QString& path, int quality = -1) {
    QImageWriter writer(path);
    writer.setQuality(quality);
    if (!writer.write(image))
        Fail(u"cannot write "_s + path + u": "_s + writer.errorString());
}

// The 255 commonest colours of the picture; the drawings are flat, so these carry it well.
std::vector<QRgb> MakePalette(const QImage& image) {
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (const QRgb pixel = image.pixel(x, y); qAlpha(pixel) >= 128)
                ++counts[pixel | 0xff000000U];
    std::vector<QRgb> colours(counts.keyBegin(), counts.keyEnd());
    std::sort(colours.begin(), colours.end(), [&counts](QRgb left, QRgb right) {
        const int leftCount = counts.value(left);
        const int rightCount = counts.value(right);
        return leftCount != rightCount ? leftCount > rightCount : left < right;
    });
    if (colours.size() > TransparentIndex)
        colours.resize(TransparentIndex);
    return colours;
}

GifByteType NearestIndex(const std::vector<QRgb>& palette, QRgb pixel) {
    std::size_t best = 0;
    int bestDistance = std::numeric_limits<int>::max();
    for (std::size_t i = 0; i < palette.size(); ++i) {
        const int red = qRed(palette[i]) - qRed(pixel);
        const int green = qGreen(palette[i]) - qGreen(pixel);
        const int blue = qBlue(palette[i]) - qBlue(pixel);
        const int distance = 3 * red * red + 4 * green * green + 2 * blue * blue;
        if (distance < bestDistance) {
            bestDistance = distance;
            best = i;
        }
    }
    return static_cast<GifByteType>(best);
}

/// The picture in the commonest of its colours; where nothing is to be seen, TransparentIndex.
QImage InFewColours(const QImage& image) {
    const std::vector<QRgb> palette = MakePalette(image);
    QImage few(image.size(), QImage::Format_Indexed8);
    few.setColorTable(QList<QRgb>(palette.begin(), palette.end()));
    QHash<QRgb, GifByteType> known;
    for (int y = 0; y < image.height(); ++y) {
        uchar* line = few.scanLine(y);
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (qAlpha(pixel) < 128) {
                line[x] = TransparentIndex;
                continue;
            }
            const QRgb solid = pixel | 0xff000000U;
            auto found = known.find(solid);
            if (found == known.end())
                found = known.insert(solid, NearestIndex(palette, solid));
            line[x] = *found;
        }
    }
    return few;
}

void Check(int result, const QString& path) {
    if (result != GIF_OK)
        Fail(u"cannot write "_s + path);
}

void SaveGif(const QImage& image, const QString& path) {
    QImage few = InFewColours(image);
    std::array<GifColorType, 256> colours{};
    for (int i = 0; i < few.colorCount(); ++i)
        colours[static_cast<std::size_t>(i)] = {static_cast<GifByteType>(qRed(few.color(i))),
                                                static_cast<GifByteType>(qGreen(few.color(i))),
                                                static_cast<GifByteType>(qBlue(few.color(i)))};

    int error = 0;
    GifFileType* gif = EGifOpenFileName(path.toLocal8Bit().constData(), false, &error);
    if (gif == nullptr)
        Fail(u"cannot write "_s + path);
    EGifSetGifVersion(gif, true);
    ColorMapObject* map = GifMakeMapObject(256, colours.data());
    Check(EGifPutScreenDesc(gif, few.width(), few.height(), 8, 0, map), path);
    GraphicsControlBlock control{};
    control.TransparentColor = TransparentIndex;
    std::array<GifByteType, 4> extension{};
    EGifGCBToExtension(&control, extension.data());
    Check(EGifPutExtension(gif, GRAPHICS_EXT_FUNC_CODE, 4, extension.data()), path);
    Check(EGifPutImageDesc(gif, 0, 0, few.width(), few.height(), false, nullptr), path);
    for (int y = 0; y < few.height(); ++y)
        Check(EGifPutLine(gif, few.scanLine(y), few.width()), path);
    GifFreeMapObject(map);
    Check(EGifCloseFile(gif, &error), path);
    // The library makes its files for the owner's eyes only.
    if (!QFile::setPermissions(path,
                               QFile::permissions(path) | QFile::ReadGroup | QFile::ReadOther))
        Fail(u"cannot open to all "_s + path);
}

QFileInfoList Drawings(const QString& folder) {
    return QDir(folder).entryInfoList({u"*.svg"_s}, QDir::Files, QDir::Name);
}

void RenderPictureFolder(const QString& from, const QString& to, const QStringList& gifNames) {
    MakeFolder(to);
    for (const QFileInfo& drawing : Drawings(from)) {
        const bool asGif = gifNames.contains(drawing.completeBaseName());
        const int side = asGif ? GifSide : PictureSide;
        const QImage image = CutRound(Render(drawing.filePath(), QSize(side, side), Qt::white));
        const QString base = to + u'/' + drawing.completeBaseName();
        if (asGif)
            SaveGif(image, base + u".gif"_s);
        else
            Save(image, base + u".png"_s);
    }
}

void RenderBackgrounds(const QString& from, const QString& to) {
    MakeFolder(to);
    for (const QFileInfo& drawing : Drawings(from))
        Save(InFewColours(Render(drawing.filePath(), BackgroundSize, Qt::white)),
             to + u'/' + drawing.completeBaseName() + u".png"_s);
}

void RenderPictures(const QString& art, const QString& output) {
    RenderPictureFolder(art + u"/users"_s, output + u"/UsersPictures"_s, {});
    RenderPictureFolder(art + u"/incentives"_s, output + u"/IncentivesPictures"_s, {u"Bike"_s});
    RenderBackgrounds(art + u"/backgrounds"_s, output + u"/Backgrounds"_s);
    MakeFolder(output + u"/Images"_s);
    const QImage check = Render(art + u"/CheckWhite.svg"_s, QSize(200, 200), Qt::white);
    Save(check.convertToFormat(QImage::Format_RGB32), output + u"/Images/CheckWhite.jpg"_s, 95);
}

void RenderForScreens(const QString& svgPath, const QString& base, QSize size) {
    Save(Render(svgPath, size, Qt::transparent), base + u".png"_s);
    Save(Render(svgPath, size * 2, Qt::transparent), base + u"@2x.png"_s);
}

void RenderForScreensWithRim(const QString& svgPath, const QString& base, QSize size) {
    Save(RenderWithRim(svgPath, size, 1.0), base + u".png"_s);
    Save(RenderWithRim(svgPath, size * 2, 2.0), base + u"@2x.png"_s);
}

void RenderResources(const QString& art, const QString& output, const QStringList& toolbarSides) {
    MakeFolder(output + u"/toolbar"_s);
    for (const QFileInfo& drawing : Drawings(art + u"/toolbar"_s)) {
        const QString base = output + u"/toolbar/"_s + drawing.completeBaseName();
        RenderForScreensWithRim(drawing.filePath(), base, QSize(32, 32));
        // What those two are at other scales; scaled, their lines would blur.
        for (const QString& pixels : toolbarSides) {
            const int side = pixels.toInt();
            Save(RenderWithRim(drawing.filePath(), QSize(side, side), side / 32.0),
                 base + u'-' + pixels + u".png"_s);
        }
    }
    RenderForScreens(art + u"/Box.svg"_s, output + u"/Box"_s, QSize(25, 25));
    RenderForScreens(art + u"/Tick.svg"_s, output + u"/Tick"_s, QSize(25, 25));
    RenderForScreensWithRim(art + u"/Logo.svg"_s, output + u"/Logo"_s, QSize(360, 120));
    for (const int side : {16, 24, 32, 48, 64, 128, 256, 512}) {
        // The grid of days would blur in a small icon.
        const QString icon = art + (side < 48 ? u"/IconSmall.svg"_s : u"/Icon.svg"_s);
        Save(Render(icon, QSize(side, side), Qt::transparent),
             output + u"/Icon"_s + QString::number(side) + u".png"_s);
    }
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    QTextStream errors(stderr);
    try {
        if (arguments.size() == 4 && arguments[1] == u"pictures"_s) {
            RenderPictures(arguments[2], arguments[3]);
            return EXIT_SUCCESS;
        }
        if (arguments.size() > 4 && arguments[1] == u"resources"_s) {
            RenderResources(arguments[2], arguments[3], arguments.mid(4));
            return EXIT_SUCCESS;
        }
        errors << u"usage: RenderArt pictures ART_FOLDER OUTPUT_FOLDER\n"_s
               << u"       RenderArt resources ART_FOLDER OUTPUT_FOLDER SIDE...\n"_s;
    } catch (const std::exception& problem) {
        errors << u"RenderArt: "_s << QString::fromLocal8Bit(problem.what()) << u'\n';
    }
    return EXIT_FAILURE;
}

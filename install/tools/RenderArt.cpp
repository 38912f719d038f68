// Renders the drawings in install/art into the pictures the program and its users see.
//
//   RenderArt pictures  ART_FOLDER OUTPUT_FOLDER   users', incentive and chart pictures
//   RenderArt resources ART_FOLDER OUTPUT_FOLDER   toolbar, boxes, logo and program icon
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
constexpr int TransparentIndex = 255;

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

void Check(int result, const QString& path) {
    if (result != GIF_OK)
        Fail(u"cannot write "_s + path);
}

void SaveGif(const QImage& image, const QString& path) {
    const std::vector<QRgb> palette = MakePalette(image);
    std::array<GifColorType, 256> colours{};
    for (std::size_t i = 0; i < palette.size(); ++i)
        colours[i] = {static_cast<GifByteType>(qRed(palette[i])),
                      static_cast<GifByteType>(qGreen(palette[i])),
                      static_cast<GifByteType>(qBlue(palette[i]))};

    int error = 0;
    GifFileType* gif = EGifOpenFileName(path.toLocal8Bit().constData(), false, &error);
    if (gif == nullptr)
        Fail(u"cannot write "_s + path);
    EGifSetGifVersion(gif, true);
    ColorMapObject* map = GifMakeMapObject(256, colours.data());
    Check(EGifPutScreenDesc(gif, image.width(), image.height(), 8, 0, map), path);
    GraphicsControlBlock control{};
    control.TransparentColor = TransparentIndex;
    std::array<GifByteType, 4> extension{};
    EGifGCBToExtension(&control, extension.data());
    Check(EGifPutExtension(gif, GRAPHICS_EXT_FUNC_CODE, 4, extension.data()), path);
    Check(EGifPutImageDesc(gif, 0, 0, image.width(), image.height(), false, nullptr), path);

    QHash<QRgb, GifByteType> known;
    std::vector<GifPixelType> line(static_cast<std::size_t>(image.width()));
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            GifPixelType& index = line[static_cast<std::size_t>(x)];
            if (qAlpha(pixel) < 128) {
                index = TransparentIndex;
                continue;
            }
            const QRgb solid = pixel | 0xff000000U;
            auto found = known.find(solid);
            if (found == known.end())
                found = known.insert(solid, NearestIndex(palette, solid));
            index = *found;
        }
        Check(EGifPutLine(gif, line.data(), image.width()), path);
    }
    GifFreeMapObject(map);
    Check(EGifCloseFile(gif, &error), path);
    // The library makes its files for the owner's eyes only.
    if (!QFile::setPermissions(path,
                               QFile::permissions(path) | QFile::ReadGroup | QFile::ReadOther))
        Fail(u"cannot open to all "_s + path);
}

void RenderPictureFolder(const QString& from, const QString& to, const QStringList& gifNames) {
    MakeFolder(to);
    const QFileInfoList drawings = QDir(from).entryInfoList({u"*.svg"_s}, QDir::Files, QDir::Name);
    for (const QFileInfo& drawing : drawings) {
        const QImage image =
            CutRound(Render(drawing.filePath(), QSize(PictureSide, PictureSide), Qt::white));
        const QString base = to + u'/' + drawing.completeBaseName();
        if (gifNames.contains(drawing.completeBaseName()))
            SaveGif(image, base + u".gif"_s);
        else
            Save(image, base + u".png"_s);
    }
}

void RenderPictures(const QString& art, const QString& output) {
    RenderPictureFolder(art + u"/users"_s, output + u"/UsersPictures"_s, {});
    RenderPictureFolder(art + u"/incentives"_s, output + u"/IncentivesPictures"_s, {u"Bike"_s});
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

void RenderResources(const QString& art, const QString& output) {
    MakeFolder(output + u"/toolbar"_s);
    const QFileInfoList drawings =
        QDir(art + u"/toolbar"_s).entryInfoList({u"*.svg"_s}, QDir::Files, QDir::Name);
    for (const QFileInfo& drawing : drawings)
        RenderForScreensWithRim(drawing.filePath(),
                                output + u"/toolbar/"_s + drawing.completeBaseName(),
                                QSize(32, 32));
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
        if (arguments.size() == 4 && arguments[1] == u"resources"_s) {
            RenderResources(arguments[2], arguments[3]);
            return EXIT_SUCCESS;
        }
        errors << u"usage: RenderArt pictures|resources ART_FOLDER OUTPUT_FOLDER\n"_s;
    } catch (const std::exception& problem) {
        errors << u"RenderArt: "_s << QString::fromLocal8Bit(problem.what()) << u'\n';
    }
    return EXIT_FAILURE;
}

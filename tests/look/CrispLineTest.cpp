#include "look/CrispLine.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

namespace {

/// How many pixels of the screen in a row are painted, for each line that is seen on a column.
QList<int> Widths(const QImage& seen, bool across) {
    QList<int> widths;
    bool wasLine = false;
    const int length = across ? seen.height() : seen.width();
    for (int at = 0; at < length; ++at) {
        const QRgb pixel = across ? seen.pixel(7, at) : seen.pixel(at, 7);
        EXPECT_TRUE(pixel == QColor(Qt::black).rgb() || pixel == QColor(Qt::white).rgb())
            << "blurred";
        const bool isLine = pixel == QColor(Qt::black).rgb();
        if (isLine && !wasLine)
            widths += 0;
        if (isLine)
            ++widths.last();
        wasLine = isLine;
    }
    return widths;
}

TEST(CrispLineTest, LinesAreEquallyWideAtEveryScale) {
    for (const auto& [scale, width] : {std::pair(1.0, 1), std::pair(1.25, 1), std::pair(1.5, 1),
                                       std::pair(1.75, 1), std::pair(2.0, 2), std::pair(3.0, 3)}) {
        for (const bool across : {true, false}) {
            QImage image(QSize(120, 120) * scale, QImage::Format_RGB32);
            image.fill(Qt::white);
            image.setDevicePixelRatio(scale);
            QPainter painter(&image);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.translate(0, 1);
            for (const int at : {2, 35, 69, 102})
                FillCrispLine(painter, across ? QRectF(0, at, 120, 1) : QRectF(at, -1, 1, 120),
                              Qt::black);
            painter.end();
            EXPECT_EQ(Widths(image, across), QList<int>(4, width)) << scale << across;
        }
    }
}

TEST(CrispLineTest, ALineIsAsLongAsItIs) {
    QImage image(100, 20, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    FillCrispLine(painter, QRectF(10, 5, 70, 1), Qt::black);
    painter.end();
    for (const auto& [x, isLine] :
         {std::pair(9, false), std::pair(10, true), std::pair(79, true), std::pair(80, false)})
        EXPECT_EQ(image.pixelColor(x, 5) == QColor(Qt::black), isLine) << x;
}

} // namespace

#include "shell/ToolbarIcon.h"

#include "tests/shell/ShellTest.h"

#include <QDir>
#include <QFileInfo>
#include <QScreen>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

class ToolbarIconTest : public ShellTest {};

QImage AsPixels(const QImage& image) {
    QImage pixels = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    pixels.setDevicePixelRatio(1);
    return pixels;
}

TEST_F(ToolbarIconTest, EveryButtonHasItsPictureOf32) {
    const auto& toolbar = Find<QToolBar>(MainWindow(), u"KidToolbar"_s);
    ASSERT_EQ(toolbar.actions().size(), 12);
    EXPECT_EQ(toolbar.iconSize(), QSize(32, 32)) << "on a screen of 1366 x 768 too";
    for (const QAction* button : toolbar.actions()) {
        const QString key = button->data().toString();
        EXPECT_EQ(AsPixels(button->icon().pixmap(QSize(32, 32), 1.0).toImage()),
                  AsPixels(QImage(u":/art/toolbar/%1.png"_s.arg(key))))
            << key.toStdString();
    }
}

TEST_F(ToolbarIconTest, APictureIsShownAsItWasDrawnForTheScale) {
    const QIcon icon = ToolbarIcon(u"New"_s);
    for (const int side : {24, 32, 48})
        for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
            const int pixels = qRound(side * scale);
            const QPixmap shown = icon.pixmap(QSize(side, side), scale);
            const QString tail = pixels == 32   ? QString()
                                 : pixels == 64 ? u"@2x"_s
                                                : u"-%1"_s.arg(pixels);
            EXPECT_EQ(AsPixels(shown.toImage()),
                      AsPixels(QImage(u":/art/toolbar/New%1.png"_s.arg(tail))))
                << side << " at " << scale;
        }
}

TEST_F(ToolbarIconTest, EverySizeThatIsDrawnIsShownAndNoneIsMissing) {
    const QIcon icon = ToolbarIcon(u"New"_s);
    const QFileInfoList drawn = QDir(u":/art/toolbar"_s).entryInfoList({u"New*.png"_s});
    EXPECT_EQ(drawn.size(), 10);
    for (const QFileInfo& file : drawn) {
        const QImage picture(file.filePath());
        EXPECT_EQ(AsPixels(icon.pixmap(picture.size(), 1.0).toImage()), AsPixels(picture))
            << file.fileName().toStdString();
    }
    constexpr int largest = 96;
    for (int side = 1; side <= largest; ++side)
        EXPECT_EQ(icon.pixmap(QSize(side, side), 1.0).size(), QSize(side, side));
}

TEST_F(ToolbarIconTest, OtherSizesAreMadeFromTheNextLargerOne) {
    const QIcon icon = ToolbarIcon(u"Help"_s);
    EXPECT_EQ(AsPixels(icon.pixmap(QSize(34, 34), 1.0).toImage()),
              AsPixels(QImage(u":/art/toolbar/Help-36.png"_s))
                  .scaled(34, 34, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    EXPECT_EQ(icon.pixmap(QSize(200, 200), 1.0).size(), QSize(200, 200));
}

} // namespace

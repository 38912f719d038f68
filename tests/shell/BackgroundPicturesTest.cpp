#include "platform/runtime/Pictures.h"
#include "shell/BackgroundArea.h"
#include "shell/BackgroundOptions.h"
#include "tests/shell/ShellTest.h"

#include <QDir>
#include <QMdiArea>
#include <QTest>
#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

/// The delivered pictures for the background of the main window.
class BackgroundPicturesTest : public ShellTest {
protected:
    static QImage Seen() {
        return Find<QMdiArea>(MainWindow(), u"Area"_s).viewport()->grab().toImage();
    }
    static int Difference(const QColor& one, const QColor& other) {
        return std::max({std::abs(one.red() - other.red()), std::abs(one.green() - other.green()),
                         std::abs(one.blue() - other.blue())});
    }
    /// Where a place of a picture is seen: it fills the area from its middle.
    static QPoint PlaceOf(const QPoint& inPicture, const QSize& area) {
        const QSize drawn(1920, 1080);
        const double scale =
            std::max(double(area.width()) / drawn.width(), double(area.height()) / drawn.height());
        const QPointF fromMiddle = inPicture - QPointF(drawn.width(), drawn.height()) / 2;
        return (fromMiddle * scale + QPointF(area.width(), area.height()) / 2).toPoint();
    }
    /// Colours of little things, at their lowest, by picture.
    struct Thing {
        QPoint Place;
        QColor Color;
    };
    inline static const QHash<QString, QList<Thing>> LittleThings = {
        {u"Wood"_s,
         {{{420, 929}, QColor(0xfff6e4)},    // the foot of a mushroom
          {{500, 944}, QColor(0xfff6e4)},    // and of the small one
          {{1340, 946}, QColor(0xbf9d7c)},   // the hedgehog's belly
          {{1510, 938}, QColor(0x4a3a34)}}}, // and its nose
        {u"Sea"_s,
         {{{310, 972}, QColor(0xf7d3c9)},     // the shell
          {{1562, 982}, QColor(0xf4b183)}}}}; // an arm of the starfish
};

TEST_F(BackgroundPicturesTest, EachIsChosenAndFillsTheMainWindow) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    MainWindow().SetBackColor(255);
    const QFileInfoList files = QDir(Path(u"Backgrounds"_s)).entryInfoList(QDir::Files);
    ASSERT_EQ(files.size(), 4);
    for (const QFileInfo& file : files) {
        DesktopCalls.FileAnswers.append(file.filePath());
        auto& form = Default<BackgroundOptions>();
        form.Show();
        Settle();
        Click(Find(form, u"BrowseButton"_s));
        Click(Find(form, u"Ok"_s));
        EXPECT_EQ(MainWindow().Picture().size(), QSize(2560, 1440));
        LookAt(MainWindow(), u"Main-"_s + file.completeBaseName());
        const QImage seen = Seen();
        for (const QPoint corner : {seen.rect().topLeft(), seen.rect().topRight(),
                                    seen.rect().bottomLeft(), seen.rect().bottomRight()})
            EXPECT_GT(seen.pixelColor(corner).green(), 100) << "not the red behind it";
        for (const Thing& thing : LittleThings.value(file.completeBaseName())) {
            const QPoint place = PlaceOf(thing.Place, seen.size());
            ASSERT_TRUE(seen.rect().contains(place + QPoint(0, 4))) << thing.Place.x();
            EXPECT_LT(Difference(seen.pixelColor(place), thing.Color), 24)
                << file.fileName().toStdString() << " " << thing.Place.x();
        }
    }
}

TEST_F(BackgroundPicturesTest, EachFillsALargeScreenToo) {
    const QFileInfoList files = QDir(Path(u"Backgrounds"_s)).entryInfoList(QDir::Files);
    ASSERT_EQ(files.size(), 4);
    BackgroundArea area;
    area.resize(2560, 1440);
    area.SetBackColor(255);
    for (const QFileInfo& file : files) {
        area.SetPicture(LoadPicture(file.filePath()));
        const QImage seen = area.grab().toImage();
        for (const QPoint corner : {seen.rect().topLeft(), seen.rect().topRight(),
                                    seen.rect().bottomLeft(), seen.rect().bottomRight()})
            EXPECT_GT(seen.pixelColor(corner).green(), 100) << file.fileName().toStdString();
    }
}

TEST_F(BackgroundPicturesTest, ThePictureThatIsShownAlreadyIsNotPaintedAgain) {
    class Painted : public QObject {
    public:
        int Times = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            Times += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
    };
    StartSession(u"Mum"_s, u"Teacher"_s);
    const QImage picture = LoadPicture(PictureFile());
    MainWindow().SetPicture(picture);
    Settle();
    Painted painted;
    Find<QMdiArea>(MainWindow(), u"Area"_s).viewport()->installEventFilter(&painted);
    MainWindow().SetPicture(picture);
    Settle();
    EXPECT_EQ(painted.Times, 0);
    MainWindow().SetPicture(LoadPicture(PictureFile(u"other.png"_s, 0xffaa2266)));
    Settle();
    EXPECT_EQ(painted.Times, 1);
    const QImage seen = Seen();
    EXPECT_EQ(seen.pixelColor(seen.rect().center()).rgb(), 0xffaa2266);
}

} // namespace

#include "platform/runtime/Pictures.h"
#include "shell/BackgroundArea.h"
#include "shell/BackgroundOptions.h"
#include "tests/shell/ShellTest.h"

#include <QDir>
#include <QMdiArea>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// The delivered pictures for the background of the main window.
class BackgroundPicturesTest : public ShellTest {
protected:
    static QImage Seen() {
        return Find<QMdiArea>(MainWindow(), u"Area"_s).viewport()->grab().toImage();
    }
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

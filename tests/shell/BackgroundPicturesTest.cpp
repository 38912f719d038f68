#include "platform/runtime/Pictures.h"
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
        EXPECT_EQ(MainWindow().Picture().size(), QSize(1920, 1080));
        LookAt(MainWindow(), u"Main-"_s + file.completeBaseName());
        const QImage seen = Seen();
        for (const QPoint corner : {seen.rect().topLeft(), seen.rect().topRight(),
                                    seen.rect().bottomLeft(), seen.rect().bottomRight()})
            EXPECT_GT(seen.pixelColor(corner).green(), 100) << "not the red behind it";
    }
}

} // namespace

#include "authoring/Newfrm.h"
#include "shell/BackgroundArea.h"
#include "tests/shell/ShellTest.h"

#include <QImage>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

/// What the main window shows while nothing is open in it.
class WelcomePageTest : public ShellTest {
protected:
    static BackgroundArea& Area() { return Find<BackgroundArea>(MainWindow(), u"Area"_s); }
    static QImage Picture() { return Area().viewport()->grab().toImage(); }
    /// True if the area is of its background's colour all over.
    static bool IsPlain() {
        const QImage picture = Picture();
        QImage plain(picture.size(), picture.format());
        plain.setDevicePixelRatio(picture.devicePixelRatio());
        plain.fill(picture.pixelColor(0, 0));
        return picture == plain;
    }
};

TEST_F(WelcomePageTest, AnEmptyMainWindowGreetsItsUser) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    EXPECT_TRUE(Area().ShowsWelcome());
    EXPECT_FALSE(IsPlain());
    const QImage forMum = Picture();
    CurrentUser = u"Anna"_s;
    CurrentState = u"Student"_s;
    MainWindow().Hide();
    ShowLogIn().Hide();
    MainWindow().Show();
    Settle();
    EXPECT_NE(Picture(), forMum);
}

TEST_F(WelcomePageTest, TheGreetingGoesWhileAFormIsOpen) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    const QImage greeting = Picture();
    auto& form = Default<Newfrm>();
    form.Show();
    Settle();
    EXPECT_FALSE(Area().ShowsWelcome());
    form.Hide();
    Settle();
    EXPECT_TRUE(Area().ShowsWelcome());
    EXPECT_EQ(Picture(), greeting);
}

TEST_F(WelcomePageTest, AColourOfSomebodysOwnHasTheWindowToItself) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    MainWindow().SetBackColor(0xff0000);
    EXPECT_FALSE(Area().ShowsWelcome());
    EXPECT_TRUE(IsPlain());
    EXPECT_EQ(Picture().pixelColor(5, 5), QColor(0, 0, 255));
}

TEST_F(WelcomePageTest, APictureHasTheWindowToItself) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    QImage picture(40, 40, QImage::Format_RGB32);
    picture.fill(Qt::red);
    MainWindow().SetPicture(picture);
    EXPECT_FALSE(Area().ShowsWelcome());
    MainWindow().SetPicture(QImage());
    EXPECT_TRUE(Area().ShowsWelcome());
}

TEST_F(WelcomePageTest, ItIsLeftOutWhereThereIsNoRoomForIt) {
    const WelcomePage page{u"Hi Mum"_s, u"?"_s, {{QIcon(), u"New"_s, u"Jobs"_s, u"F2"_s}}};
    QImage area(300, 60, QImage::Format_RGB32);
    area.fill(Qt::blue);
    const QImage before = area;
    QPainter painter(&area);
    const QWidget anyWidget;
    page.Paint(painter, area.rect(), anyWidget);
    painter.end();
    EXPECT_EQ(area, before);
}

} // namespace

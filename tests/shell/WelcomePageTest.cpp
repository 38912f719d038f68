#include "shell/WelcomePage.h"
#include "authoring/Newfrm.h"
#include "look/LookColors.h"
#include "session/Settings.h"
#include "shell/BackgroundArea.h"
#include "shell/WelcomeStep.h"
#include "tests/shell/ShellTest.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QHelpEvent>
#include <QImage>
#include <QLabel>
#include <QMdiSubWindow>
#include <QSet>
#include <QTest>
#include <QToolBar>
#include <QToolTip>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// What the main window shows while nothing is open in it.
class WelcomePageTest : public ShellTest {
protected:
    static BackgroundArea& Area() { return Find<BackgroundArea>(MainWindow(), u"Area"_s); }
    static QImage Picture() {
        const QWidget& shown = *Area().viewport();
        const QPoint corner = shown.mapTo(&MainWindow(), QPoint());
        return MainWindow().grab(QRect(corner, shown.size())).toImage();
    }
    /// True if the area is of its background's colour all over.
    static bool IsPlain() {
        const QImage picture = Picture();
        QImage plain(picture.size(), picture.format());
        plain.setDevicePixelRatio(picture.devicePixelRatio());
        plain.fill(picture.pixelColor(0, 0));
        return picture == plain;
    }

    static QList<WelcomeStep*> Steps() {
        QList<WelcomeStep*> shown;
        for (auto* step : MainWindow().findChildren<WelcomeStep*>())
            if (step->isVisible())
                shown += step;
        return shown;
    }
    static QStringList StepNames() {
        QStringList names;
        for (const WelcomeStep* step : Steps())
            names += step->text();
        return names;
    }
    static QStringList Texts() {
        QStringList texts;
        const auto* page = MainWindow().findChild<WelcomePage*>();
        if (page == nullptr)
            return texts;
        for (const QLabel* label : page->findChildren<QLabel*>())
            if (label->isVisible() && !label->text().isEmpty())
                texts += label->text();
        return texts;
    }

    static bool HasLogo() {
        for (const QLabel* label : MainWindow().findChild<WelcomePage*>()->findChildren<QLabel*>())
            if (label->isVisible() && label->text().isEmpty())
                return true;
        return false;
    }
    /// The pixels of a colour in what is seen of a button.
    static int PixelsOf(QWidget& button, const QColor& color, int fromX) {
        const QImage seen = button.grab().toImage();
        int count = 0;
        for (int y = 4; y < seen.height() - 4; ++y)
            for (int x = fromX; x < seen.width() - 4; ++x)
                count += seen.pixelColor(x, y) == color ? 1 : 0;
        return count;
    }

    static void LogInAnother(const QString& user, const QString& state) {
        MainWindow().Hide();
        ShowLogIn().Hide();
        CurrentUser = user;
        CurrentState = state;
        MainWindow().Show();
        InFront(MainWindow());
        Settle();
    }

    /// The object name of the form in front.
    static QString Front() {
        const QMdiSubWindow* front = Area().activeSubWindow();
        return front == nullptr || front->isHidden() ? QString() : front->widget()->objectName();
    }
};

struct Entry {
    QString name;
    QString form;
    QString key;
};
const QList<Entry> OfAdult = {{u"New"_s, u"Newfrm"_s, u"F2"_s},
                              {u"Open"_s, u"Openfrm"_s, u"F3"_s},
                              {u"Review"_s, u"WeekChartRepresentation"_s, u"F5"_s},
                              {u"Accounts"_s, u"DisplayAccount"_s, u"F8"_s}};
const QList<Entry> OfChild = {{u"Open"_s, u"OpenFillfrm"_s, u"F4"_s},
                              {u"Account"_s, u"DisplayAccount"_s, u"F8"_s}};

QStringList NamesOf(const QList<Entry>& entries) {
    QStringList names;
    for (const Entry& entry : entries)
        names += entry.name;
    return names;
}

TEST_F(WelcomePageTest, AnEmptyMainWindowGreetsItsUser) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    EXPECT_TRUE(Area().ShowsWelcome());
    EXPECT_EQ(Texts(), (QStringList{u"Hi Mum"_s, u"What would you like to do?"_s}));
    EXPECT_FALSE(IsPlain());
}

TEST_F(WelcomePageTest, TheButtonsAreThoseOfTheAccount) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    EXPECT_EQ(StepNames(), NamesOf(OfAdult));
    LogInAnother(u"Anna"_s, u"Student"_s);
    for (const WelcomeStep* step : Steps())
        EXPECT_GE(step->width(), step->sizeHint().width()) << step->text().toStdString();
    EXPECT_EQ(StepNames(), NamesOf(OfChild));
    EXPECT_EQ(Texts().value(0), u"Hi Anna"_s);
    LogInAnother(u"Dad"_s, u"Teacher"_s);
    EXPECT_EQ(StepNames(), NamesOf(OfAdult));
    EXPECT_EQ(Texts().value(0), u"Hi Dad"_s);
}

TEST_F(WelcomePageTest, EachButtonOpensWhatTheToolbarButtonOfItsNameOpens) {
    MakeAccount(u"Mum"_s, u"m"_s, u"Teacher"_s);
    MakeAccount(u"Anna"_s, u"a"_s, u"Student"_s);
    for (const auto& [user, state, entries] : {std::tuple(u"Mum"_s, u"Teacher"_s, OfAdult),
                                               std::tuple(u"Anna"_s, u"Student"_s, OfChild)}) {
        StartSession(user, state);
        LogInAnother(user, state);
        for (int index = 0; index < entries.size(); ++index) {
            SCOPED_TRACE((user + u' ' + entries.at(index).name).toStdString());
            ASSERT_EQ(Steps().size(), entries.size());
            Click(*EntryOf(Steps(), index));
            EXPECT_EQ(Front(), entries.at(index).form);
            EXPECT_EQ(Steps().size(), 0);
            DefaultForm(entries.at(index).form).Unload();
            Settle();
            EXPECT_EQ(Front(), QString());
        }
    }
}

TEST_F(WelcomePageTest, SpaceAndEnterPressAButton) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        EntryOf(Steps(), 1)->setFocus();
        Press(*EntryOf(Steps(), 1), key);
        Settle();
        EXPECT_EQ(Front(), u"Openfrm"_s);
        DefaultForm(u"Openfrm"_s).Unload();
        Settle();
    }
}

TEST_F(WelcomePageTest, AButtonTooNarrowForItsHintTellsIt) {
    QAction command;
    WelcomeStep step({&command, u"New"_s, u"Write a <b>chart</b> for a child"_s, {}, {}}, nullptr);
    const auto tip = [&step] {
        QToolTip::hideText();
        QHelpEvent ask(QEvent::ToolTip, QPoint(5, 5), step.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&step, &ask);
        return ShownTip(QToolTip::text());
    };
    step.resize(step.sizeHint());
    step.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&step, Patience));
    EXPECT_EQ(tip(), QString());
    step.resize(step.width() / 2, step.height());
    EXPECT_EQ(tip(), u"Write a <b>chart</b> for a child"_s);
    QToolTip::hideText();
}

TEST_F(WelcomePageTest, ACommandTakenFromTheAccountDoesNothing) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    WelcomeStep& open = *EntryOf(Steps(), 1);
    MainWindow().ToolbarButton(QLatin1String("Open")).setVisible(false);
    Click(open);
    EXPECT_EQ(Front(), QString());
}

TEST_F(WelcomePageTest, TabGoesFromTheToolbarThroughTheButtonsAndRound) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    auto& toolbar = Find<QToolBar>(MainWindow(), u"KidToolbar"_s);
    QWidget* exit = toolbar.widgetForAction(&MainWindow().ToolbarButton(QLatin1String("Exit")));
    exit->setFocus();
    QStringList names;
    for (int step = 0; step < 5; ++step) {
        KeyToFocus(Qt::Key_Tab);
        const auto* button = qobject_cast<WelcomeStep*>(QApplication::focusWidget());
        names += button == nullptr ? u"-"_s : button->text();
    }
    EXPECT_EQ(names, NamesOf(OfAdult) + QStringList{u"-"_s});
    EXPECT_EQ(QApplication::focusWidget(),
              toolbar.widgetForAction(&MainWindow().ToolbarButton(QLatin1String("New"))));
}

TEST_F(WelcomePageTest, F6GoesFromTheToolbarToTheButtonsAndBack) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    auto& toolbar = Find<QToolBar>(MainWindow(), u"KidToolbar"_s);
    EntryOf(Steps(), 2)->setFocus();
    LookAt(MainWindow(), u"Welcome-keyboard"_s);
    KeyToWindow(MainWindow(), Qt::Key_F6);
    EXPECT_TRUE(toolbar.isAncestorOf(QApplication::focusWidget()));
    KeyToWindow(MainWindow(), Qt::Key_F6);
    EXPECT_EQ(QApplication::focusWidget(), EntryOf(Steps(), 0));
}

TEST_F(WelcomePageTest, TheButtonsHaveNamesAndRoles) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    ASSERT_EQ(Steps().size(), OfAdult.size());
    for (int index = 0; index < OfAdult.size(); ++index) {
        QAccessibleInterface* access =
            QAccessible::queryAccessibleInterface(EntryOf(Steps(), index));
        ASSERT_NE(access, nullptr);
        EXPECT_EQ(access->role(), QAccessible::Button);
        EXPECT_EQ(access->text(QAccessible::Name), OfAdult.at(index).name);
        EXPECT_TRUE(access->text(QAccessible::Description).endsWith(OfAdult.at(index).key));
    }
}

TEST_F(WelcomePageTest, ANameIsShownAsItIs) {
    StartSession(u"<b>Mum</b> & Co"_s, u"Teacher"_s);
    EXPECT_EQ(Texts().value(0), u"Hi <b>Mum</b> & Co"_s);
    for (const QLabel* label : Area().findChildren<QLabel*>())
        EXPECT_TRUE(label->text().isEmpty() || label->textFormat() == Qt::PlainText);
}

TEST_F(WelcomePageTest, TheGreetingGoesWhileAFormIsOpen) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    const QList<WelcomeStep*> steps = Steps();
    auto& form = Default<Newfrm>();
    form.Show();
    Settle();
    EXPECT_FALSE(Area().ShowsWelcome());
    EXPECT_EQ(Steps().size(), 0);
    form.Hide();
    Settle();
    EXPECT_TRUE(Area().ShowsWelcome());
    EXPECT_EQ(Steps(), steps);
}

TEST_F(WelcomePageTest, TheButtonsStandOnAColourOfSomebodysOwnWithoutTheLogo) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    ASSERT_TRUE(HasLogo());
    MainWindow().SetBackColor(0xff0000);
    EXPECT_EQ(StepNames(), NamesOf(OfAdult));
    EXPECT_FALSE(HasLogo());
    EXPECT_EQ(Picture().pixelColor(5, 5), QColor(0, 0, 255));
    Click(*EntryOf(Steps(), 0));
    EXPECT_EQ(Front(), u"Newfrm"_s);
}

TEST_F(WelcomePageTest, APictureOfSomebodysOwnIsSeenWholeAndTheToolbarIsTheWay) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    QImage picture(40, 40, QImage::Format_RGB32);
    picture.fill(Qt::red);
    MainWindow().SetPicture(picture);
    EXPECT_FALSE(Area().ShowsWelcome());
    EXPECT_EQ(Steps().size(), 0);
    const QImage seen = Picture();
    EXPECT_EQ(seen.pixelColor(seen.rect().center()), QColor(Qt::red));
    auto& toolbar = Find<QToolBar>(MainWindow(), u"KidToolbar"_s);
    KeyToWindow(MainWindow(), Qt::Key_F6);
    EXPECT_TRUE(toolbar.isAncestorOf(QApplication::focusWidget()));
    KeyToWindow(MainWindow(), Qt::Key_F6);
    EXPECT_TRUE(toolbar.isAncestorOf(QApplication::focusWidget())) << "there is nowhere else";
    MainWindow().SetPicture(QImage());
    EXPECT_EQ(StepNames(), NamesOf(OfAdult));
}

TEST_F(WelcomePageTest, TheGroundOfFormerSettingsIsThatOfToday) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    const QColor ground(0xc9, 0xdf, 0xdb);
    EXPECT_EQ(Picture().pixelColor(5, 5), ground);
    constexpr qint32 former = 15267066;
    PutSettings(false, former);
    ReadSettings();
    EXPECT_EQ(Picture().pixelColor(5, 5), ground);
    EXPECT_TRUE(HasLogo());
    EXPECT_EQ(MainWindow().BackColor(), former) << "as it is stored";
    const QByteArray before = SettingsBytes();
    WriteSettings();
    EXPECT_EQ(SettingsBytes(), before);
    MainWindow().SetBackColor(former - 1);
    EXPECT_EQ(Picture().pixelColor(5, 5), QColor(0xf9, 0xf4, 0xe8));
    EXPECT_FALSE(HasLogo());
}

TEST_F(WelcomePageTest, ForAChildTheButtonsAreLargeAndNameNoKeys) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    ASSERT_EQ(Steps().size(), OfAdult.size());
    for (const WelcomeStep* step : Steps())
        EXPECT_EQ(step->NameFont().pointSizeF(), step->font().pointSizeF() * 1.15);
    const int adults = EntryOf(Steps(), 0)->height();
    constexpr int keys = 200; // where icon and name end, in pixels
    EXPECT_GT(PixelsOf(*EntryOf(Steps(), 0), LookColors::Band, keys), 100);
    LogInAnother(u"Anna"_s, u"Student"_s);
    ASSERT_EQ(Steps().size(), OfChild.size());
    for (WelcomeStep* step : Steps()) {
        EXPECT_EQ(step->NameFont().pointSizeF(), 15);
        EXPECT_EQ(step->height(), 48 + 2 * 10);
        EXPECT_GT(step->height(), adults);
        EXPECT_EQ(PixelsOf(*step, LookColors::Band, keys), 0);
        EXPECT_FALSE(step->accessibleDescription().contains(u"F4"_s));
        EXPECT_FALSE(step->accessibleDescription().contains(u"F8"_s));
        // The picture fills its square, not a part of it.
        const QImage seen = step->grab().toImage();
        const qreal scale = seen.devicePixelRatio();
        int left = 10'000;
        int right = 0;
        for (int y = 0; y < seen.height(); ++y)
            for (int x = qRound(8 * scale); x < qRound(60 * scale); ++x)
                if (seen.pixelColor(x, y).lightness() < 100) {
                    left = std::min(left, x);
                    right = std::max(right, x);
                }
        EXPECT_GT((right - left) / scale, 34) << step->text().toStdString();
    }
    LookAt(MainWindow(), u"Welcome-child"_s);
}

TEST_F(WelcomePageTest, AButtonEndsInAnArrowHeadAndIsOfHoneyUnderTheMouse) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    WelcomeStep& step = *EntryOf(Steps(), 1);
    const int end = step.width() - 20;
    QCursor::setPos(QPoint(0, 0));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !step.underMouse(); }, Patience));
    EXPECT_GE(PixelsOf(step, LookColors::Muted, end), 4);
    EXPECT_EQ(PixelsOf(step, LookColors::Honey, 0), 0);
    MouseTo(step);
    EXPECT_GE(PixelsOf(step, LookColors::Teal, end), 4);
    EXPECT_GT(PixelsOf(step, LookColors::Honey, 0), 1000);
    LookAt(MainWindow(), u"Welcome-mouse"_s);
}

TEST_F(WelcomePageTest, ItIsLeftOutWhereThereIsNoRoomForIt) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    SizeMainWindow({800, 300});
    EXPECT_TRUE(IsPlain());
    SizeMainWindow({800, 600});
    EXPECT_EQ(StepNames(), NamesOf(OfAdult));
    for (const WelcomeStep* step : Steps())
        EXPECT_EQ(step->visibleRegion().boundingRect(), step->rect());
}

TEST_F(WelcomePageTest, TheLogoGivesWayToTheButtons) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    const auto& page = Find<WelcomePage>(MainWindow(), QString());
    QSet<bool> shown;
    for (const int height : {700, 620, 540, 460}) {
        SCOPED_TRACE(height);
        SizeMainWindow({800, height});
        EXPECT_EQ(StepNames(), NamesOf(OfAdult));
        for (const WelcomeStep* step : Steps())
            EXPECT_EQ(step->height(), step->sizeHint().height());
        const QRect area(Area().mapTo(&MainWindow(), QPoint()), Area().size());
        EXPECT_TRUE(area.contains(page.geometry()));
        const auto labels = page.findChildren<QLabel*>();
        shown += std::any_of(labels.begin(), labels.end(), [](const QLabel* label) {
            return label->isVisible() && !label->pixmap().isNull();
        });
    }
    EXPECT_EQ(shown, QSet<bool>({true, false}));
}

} // namespace

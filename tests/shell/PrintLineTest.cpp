#include "shell/PrintLine.h"
#include "authoring/Newfrm.h"
#include "platform/printing/PrintNews.h"
#include "tests/shell/ShellTest.h"
#include "widgets/FittingLabel.h"

#include <QAccessible>
#include <QApplication>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// What the main window tells of a print.
class PrintLineTest : public ShellTest {
protected:
    PrintLineTest() { StartSession(u"Mum"_s, u"Teacher"_s); }

    static PrintLine& Line() { return Find<PrintLine>(MainWindow(), u"PrintLine"_s); }
    static QString Text() { return Find<QLabel>(Line(), u"PrintText"_s).text(); }
    static QPushButton& Open() { return Find<QPushButton>(Line(), u"OpenPrintout"_s); }

    static void Hear(const PrintNews& news) {
        TellPrintNews(news);
        Settle();
    }
    static PrintNews Kept() {
        return {.File = Path(u"Printouts/Zo\u00eb - Chores - 2026-03-08.pdf"_s)};
    }
};

TEST_F(PrintLineTest, IsNotThereBeforeAnythingIsPrinted) {
    EXPECT_FALSE(Line().isVisible());
}

TEST_F(PrintLineTest, TellsThePrinterThatHasThePages) {
    Hear({.Printer = u"Brother HL"_s});
    EXPECT_TRUE(Line().isVisible());
    EXPECT_EQ(Text(), u"Printed on Brother HL"_s);
    EXPECT_FALSE(Open().isVisible());
    Hear({.Printer = u"Brother HL"_s, .IsWaiting = true});
    EXPECT_EQ(Text(), u"Brother HL has stopped, and the pages wait there"_s);
    EXPECT_FALSE(Open().isVisible());
}

TEST_F(PrintLineTest, TellsWhereAFileLiesAndOpensIt) {
    Hear(Kept());
    EXPECT_EQ(Text(), u"Kept in Printouts: Zo\u00eb - Chores - 2026-03-08.pdf"_s);
    EXPECT_EQ(Open().text(), u"Open"_s);
    Click(Open());
    EXPECT_EQ(DesktopCalls.Opened, QStringList(u"open %1 0"_s.arg(Kept().File)));
    EXPECT_TRUE(Line().isVisible()) << "it can be opened again";
}

TEST_F(PrintLineTest, StandsBesideTheMenusAndMovesNothing) {
    const QRect area = Find(MainWindow(), u"Area"_s).geometry();
    const QRect menus = MainWindow().menuBar()->geometry();
    Hear(Kept());
    EXPECT_EQ(Find(MainWindow(), u"Area"_s).geometry(), area);
    EXPECT_EQ(MainWindow().menuBar()->geometry(), menus);
    EXPECT_TRUE(menus.contains(Line().geometry()));
    const auto menusEnd = [] {
        const QMenuBar& bar = *MainWindow().menuBar();
        return bar.actionGeometry(bar.actions().last()).right();
    };
    EXPECT_GT(Line().geometry().left(), menusEnd());
    EXPECT_TRUE(Find<FittingLabel>(Line(), u"PrintText"_s).TextFits());
    EXPECT_GE(Open().width(), Open().sizeHint().width());
    EXPECT_GE(Open().height(), Open().fontMetrics().height());
    // Also where there is little room, and where it comes to be.
    for (const int width : {700, 1000}) {
        SizeMainWindow({width, 500});
        EXPECT_GT(Line().geometry().left(), menusEnd()) << width;
        EXPECT_LE(Line().geometry().right(), MainWindow().menuBar()->geometry().right()) << width;
        EXPECT_GE(Line().geometry().right(), MainWindow().menuBar()->geometry().right() - 12);
        EXPECT_GE(Open().width(), Open().sizeHint().width()) << width;
    }
}

TEST_F(PrintLineTest, StaysUntilTheNextActionWhicheverItIs) {
    const auto isGoneAfter = [](const std::function<void()>& action) {
        Hear(Kept());
        EXPECT_TRUE(Line().isVisible());
        action();
        Settle();
        return !Line().isVisible();
    };
    EXPECT_TRUE(isGoneAfter([] { Click(Find(MainWindow(), u"Area"_s)); }));
    EXPECT_TRUE(isGoneAfter([] { Press(MainWindow(), Qt::Key_F2); })) << "a menu's key";
    auto& name = Find(Default<Newfrm>(), u"NameOfNewChart"_s);
    EXPECT_TRUE(isGoneAfter([&name] { TypeOn(name, u"x"_s); }));
    EXPECT_FALSE(isGoneAfter([&name] { Press(name, Qt::Key_Tab); }))
        << "the keyboard is only on its way";
    EXPECT_FALSE(isGoneAfter([] { QTest::mouseClick(&Line(), Qt::LeftButton); }));
}

TEST_F(PrintLineTest, TheKeyboardComesToItsButtonAndOn) {
    Push(QLatin1String("New"));
    Hear(Kept());
    const auto press = [](Qt::Key key) {
        KeyToFocus(key);
        Settle();
    };
    press(Qt::Key_F6);
    press(Qt::Key_F6);
    EXPECT_EQ(QApplication::focusWidget(), &Open());
    press(Qt::Key_Space);
    EXPECT_EQ(DesktopCalls.Opened.size(), 1);
    press(Qt::Key_Return);
    EXPECT_EQ(DesktopCalls.Opened.size(), 2);
    EXPECT_TRUE(Line().isVisible());
    press(Qt::Key_F6);
    EXPECT_TRUE(Default<Newfrm>().isAncestorOf(QApplication::focusWidget()));
    EXPECT_TRUE(Line().isVisible());
}

TEST_F(PrintLineTest, ToScreenReadersItIsNewsByItsText) {
    for (const PrintNews& news : {Kept(), PrintNews{.Printer = u"Brother HL"_s}}) {
        Hear(news);
        const QAccessibleInterface* line = QAccessible::queryAccessibleInterface(&Line());
        EXPECT_EQ(line->role(), QAccessible::Notification);
        EXPECT_EQ(line->text(QAccessible::Name), Text());
    }
}

TEST_F(PrintLineTest, TheButtonSaysWhatItOpens) {
    Hear(Kept());
    const QAccessibleInterface* button = QAccessible::queryAccessibleInterface(&Open());
    EXPECT_EQ(button->text(QAccessible::Name), u"Open the printed page"_s);
}

} // namespace

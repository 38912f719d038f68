#include "help/HelpWindow.h"
#include "platform/desktop/SystemPrompts.h"
#include "platform/forms/DefaultForms.h"
#include "shell/NewUser.h"
#include "tests/common/ActiveWindow.h"
#include "tests/common/NextBox.h"
#include "tests/common/RealInput.h"
#include "tests/filling/FillingTest.h"

#include <QApplication>
#include <QFile>
#include <QTest>
#include <QToolBar>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using S = QStringList;

/// On a display without a window manager nobody hands the focus round.
class BareDisplayTest : public FillingTest {
protected:
    BareDisplayTest() {
        MakeChart(u"Chores Anna"_s, {{u"Cook"_s, u"Wed"_s}, {u"Sweep"_s, u"Thu"_s}});
        viewer_ = &OpenChart(u"Chores Anna"_s);
    }

    ChartViewer& Viewer() { return *viewer_; }
    QWidget& Main() { return *viewer_->window(); }

    static void ShowBox() {
        SystemPrompts prompts;
        const NextBox next([](QWidget& box) { box.close(); });
        Prompt prompt;
        prompt.Text = u"A message"_s;
        prompts.Show(prompt);
        Settle();
    }

    static void ShowHelpForAMoment() {
        QFile book(Path(u"Help.html"_s));
        EXPECT_TRUE(book.open(QIODevice::WriteOnly));
        book.write("<html><body><h1>Apples</h1><p>Red.</p></body></html>");
        book.close();
        HelpWindow help;
        help.Open(book.fileName());
        help.activateWindow();
        EXPECT_TRUE(BecomesActive(help));
        help.close();
        Settle();
    }

    void ExpectKeysAtWork() {
        hand_.Key(u"F6"_s);
        const auto& toolbar = Find<QToolBar>(Main(), u"KidToolbar"_s);
        EXPECT_TRUE(QTest::qWaitFor(
            [&toolbar] { return toolbar.isAncestorOf(QApplication::focusWidget()); }, Patience));
        hand_.Key(u"F1"_s);
        EXPECT_EQ(DesktopCalls.Helped.size(), 1);
    }

    RealInput hand_;

private:
    ChartViewer* viewer_ = nullptr;
};

TEST_F(BareDisplayTest, KeysWorkAfterABoxHasClosed) {
    ShowBox();
    ExpectKeysAtWork();
    EXPECT_EQ(Jobs(Viewer()), S{u"Cook"_s});
}

TEST_F(BareDisplayTest, KeysWorkAfterTheHelpHasClosed) {
    ShowHelpForAMoment();
    ExpectKeysAtWork();
    EXPECT_EQ(Jobs(Viewer()), S{u"Cook"_s});
}

TEST_F(BareDisplayTest, AfterABoxAReturnToTheViewerTurnsThePage) {
    Form& other = DefaultForm(u"frmAboutDutygrid"_s);
    other.Show();
    Settle();
    ShowBox();
    other.Unload();
    Settle();
    EXPECT_EQ(Jobs(Viewer()), S{u"Sweep"_s});
    EXPECT_EQ(DesktopCalls.Sounds, S{PageSound()});
}

TEST_F(BareDisplayTest, AfterTheHelpAReturnToTheViewerTurnsThePage) {
    Form& other = DefaultForm(u"frmAboutDutygrid"_s);
    other.Show();
    Settle();
    ShowHelpForAMoment();
    other.Unload();
    Settle();
    EXPECT_EQ(Jobs(Viewer()), S{u"Sweep"_s});
    EXPECT_EQ(DesktopCalls.Sounds, S{PageSound()});
}

TEST_F(BareDisplayTest, KeysWorkAfterAFormOverTheMainWindowHasGone) {
    auto& over = Default<NewUser>();
    over.Show();
    EXPECT_TRUE(BecomesActive(over));
    Settle();
    over.Hide();
    EXPECT_TRUE(BecomesActive(Main()));
    hand_.Key(u"F1"_s);
    EXPECT_EQ(DesktopCalls.Helped.size(), 1);
}

TEST_F(BareDisplayTest, APressBringsAFormToTheFront) {
    auto& over = Default<NewUser>();
    over.move(1000, 500);
    over.Show();
    EXPECT_TRUE(BecomesActive(over));
    hand_.Click(Viewer().Instructions[0], RealInput::Short);
    EXPECT_TRUE(BecomesActive(Main()));
    Settle();
    EXPECT_EQ(Jobs(Viewer()), S{u"Sweep"_s});
    EXPECT_EQ(DesktopCalls.Sounds, S{PageSound()});
}

} // namespace

#include "tests/common/ActiveWindow.h"
#include "tests/common/RealInput.h"
#include "tests/common/SlowEyes.h"
#include "tests/filling/FillingTest.h"

#include "platform/forms/DefaultForms.h"
#include "shell/NewUser.h"

#include <QStyleHints>
#include <QTest>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using S = QStringList;

/// Presses on the viewer while another form is in front: they turn the page, and then go to what
/// it shows, but nobody has seen that yet.
class ViewerPressTest : public FillingTest, public testing::WithParamInterface<RealPress> {
protected:
    ViewerPressTest() {
        MakeChart(Chart, {{u"Cook"_s, u"Wed"_s},
                          {u"Sweep"_s, u"Wed"_s},
                          {u"Feed the cat"_s, u"Thu"_s},
                          {u"Wash up"_s, u"Thu"_s},
                          {u"Dust"_s, u"Fri"_s}});
        viewer_ = &OpenChart(Chart);
        Click(Button(*viewer_, u"NextDay"_s));
        Click(viewer_->ClearImg[1]);
        Click(Button(*viewer_, u"PreviousDay"_s));
        SetPoints(20);
        DesktopCalls.Sounds.clear();
        EXPECT_EQ(Jobs(*viewer_), (S{u"Cook"_s, u"Sweep"_s}));
    }

    ChartViewer& Viewer() { return *viewer_; }

    /// Another form in front that leaves the viewer's list in sight.
    enum class Other { Within, TopLevel };
    static void PutInFront(Other other) {
        if (other == Other::Within) {
            Form& about = DefaultForm(u"frmAboutDutygrid"_s);
            about.Show();
            about.Move(0, 15 * 400);
        } else {
            auto& over = Default<NewUser>();
            over.move(1000, 500);
            over.Show();
            EXPECT_TRUE(BecomesActive(over));
        }
        Settle();
    }

    void Press(const QWidget& widget) {
        hand_.Click(widget, GetParam());
        Settle();
    }

    void ExpectThursdayAsItWas() {
        EXPECT_EQ(Jobs(Viewer()), (S{u"Feed the cat"_s, u"Wash up"_s}));
        EXPECT_FALSE(Viewer().CheckVisible(0));
        EXPECT_TRUE(Viewer().CheckVisible(1));
        EXPECT_EQ(PointsIn(), u"20"_s);
        EXPECT_EQ(DesktopCalls.Sounds, S{PageSound()});
    }

    const QString Chart = u"Chores Anna"_s;
    RealInput hand_;

private:
    ChartViewer* viewer_ = nullptr;
};

TEST_P(ViewerPressTest, OnAJobTurnsThePageAndSelectsTheRowOfThePageNowShown) {
    for (const Other other : {Other::Within, Other::TopLevel}) {
        PutInFront(other);
        const S before = Jobs(Viewer());
        Press(Viewer().Instructions[0]);
        EXPECT_EQ(before, other == Other::Within ? (S{u"Cook"_s, u"Sweep"_s})
                                                 : (S{u"Feed the cat"_s, u"Wash up"_s}));
        EXPECT_EQ(Jobs(Viewer()),
                  other == Other::Within ? (S{u"Feed the cat"_s, u"Wash up"_s}) : S{u"Dust"_s});
        EXPECT_TRUE(Viewer().Instructions[0].IsSelected());
        EXPECT_TRUE(Find<QLabel>(Viewer(), u"Namelbl"_s).isVisible());
    }
}

TEST_P(ViewerPressTest, OnABoxTurnsThePageAndTicksNothing) {
    PutInFront(Other::Within);
    Press(Viewer().ClearImg[0]);
    ExpectThursdayAsItWas();
    EXPECT_EQ(Ticked(Chart), S{u"Wash up|Thu"_s});
}

TEST_P(ViewerPressTest, WhereTheNextPageHasATickUnticksNothing) {
    PutInFront(Other::Within);
    Press(Viewer().ClearImg[1]);
    ExpectThursdayAsItWas();
}

TEST_P(ViewerPressTest, FromATopLevelFormOnABoxTicksNothingEither) {
    const SlowEyes eyes;
    PutInFront(Other::TopLevel);
    Press(Viewer().ClearImg[0]);
    ExpectThursdayAsItWas();
}

TEST_P(ViewerPressTest, TheNextPressOnTheBoxTicksIt) {
    PutInFront(Other::Within);
    Press(Viewer().ClearImg[0]);
    ExpectThursdayAsItWas();
    QTest::qWait(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    Press(Viewer().ClearImg[0]);
    EXPECT_TRUE(Viewer().CheckVisible(0));
    EXPECT_EQ(PointsIn(), u"25"_s);
}

TEST_P(ViewerPressTest, OnNextTurnsOneMorePage) {
    PutInFront(Other::Within);
    Press(Button(Viewer(), u"NextDay"_s));
    EXPECT_EQ(Jobs(Viewer()), S{u"Dust"_s});
    EXPECT_EQ(DesktopCalls.Sounds, (S{PageSound(), PageSound()}));
}

INSTANTIATE_TEST_SUITE_P(RealInput, ViewerPressTest,
                         testing::Values(RealInput::Short, RealInput::Long,
                                         RealInput::ShortWhileBusy, RealInput::LongWhileBusy));

class ViewerDoublePressTest : public ViewerPressTest {};

TEST_P(ViewerDoublePressTest, OnABoxTurnsThePageAndTicksNothing) {
    PutInFront(Other::Within);
    Press(Viewer().ClearImg[0]);
    ExpectThursdayAsItWas();
}

class ViewerFocusFirstTest : public ViewerPressTest {};

TEST_P(ViewerFocusFirstTest, APressRightAfterThePageHasTurnedTicksNothing) {
    const SlowEyes eyes;
    PutInFront(Other::Within);
    Viewer().SetFocus();
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return DesktopCalls.Sounds == S{PageSound()}; }, Patience));
    const QWidget& box = Viewer().ClearImg[0];
    const QWidget& window = *box.window();
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                      box.mapTo(&window, box.rect().center()));
    Settle();
    ExpectThursdayAsItWas();
    EXPECT_EQ(Ticked(Chart), S{u"Wash up|Thu"_s});
}

INSTANTIATE_TEST_SUITE_P(RealInput, ViewerFocusFirstTest, testing::Values(RealInput::Short));

INSTANTIATE_TEST_SUITE_P(RealInput, ViewerDoublePressTest, testing::Values(RealInput::Double));

} // namespace

#include "tests/common/RealInput.h"
#include "tests/filling/FillingTest.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

/// Ten jobs of five points each on one day, of which seven can be seen; the display's own keyboard.
class ViewerKeyboardTest : public FillingTest {
protected:
    ViewerKeyboardTest() {
        MakeChart(u"Chores Anna"_s, JobsOn(u"Wed"_s, 10));
        viewer_ = &OpenChart(u"Chores Anna"_s);
    }

    ChartViewer& Viewer() { return *viewer_; }
    void ScrollTo(int value) {
        Scroll(Viewer()).setValue(value);
        Settle();
    }
    void Key(const char* name) {
        hand_.Key(QString::fromLatin1(name));
        Settle();
    }
    void ExpectTicked(int row, bool ticked) {
        EXPECT_EQ(Viewer().CheckVisible(row), ticked);
        EXPECT_EQ(PointsIn(), ticked ? u"5"_s : u"0"_s);
    }

    RealInput hand_;

private:
    ChartViewer* viewer_ = nullptr;
};

TEST_F(ViewerKeyboardTest, AKeyAtAMarkAboveTheListBringsItIntoViewAndTheNextTicksIt) {
    for (const char* key : {"space", "Return"}) {
        Viewer().ClearImg[0].setFocus();
        ScrollTo(2);
        EXPECT_TRUE(Viewer().ClearImg[0].hasFocus());
        Key(key);
        ExpectTicked(0, false);
        EXPECT_EQ(Scroll(Viewer()).value(), 0);
        Key(key);
        ExpectTicked(0, true);
        // Back to where it was, for the other key.
        Key(key);
        ExpectTicked(0, false);
    }
}

TEST_F(ViewerKeyboardTest, AKeyAtAMarkBelowTheListBringsItIntoViewAndTheNextTicksIt) {
    for (const char* key : {"space", "Return"}) {
        ScrollTo(3);
        Viewer().ClearImg[9].setFocus();
        ScrollTo(0);
        Key(key);
        ExpectTicked(9, false);
        EXPECT_EQ(Scroll(Viewer()).value(), 3);
        Key(key);
        ExpectTicked(9, true);
        Key(key);
        ExpectTicked(9, false);
    }
}

TEST_F(ViewerKeyboardTest, AMarkScrolledAwayIsNotUntickedUnseenEither) {
    Viewer().ClearImg[0].setFocus();
    Key("space");
    ExpectTicked(0, true);
    ScrollTo(1);
    Key("space");
    ExpectTicked(0, true);
    EXPECT_EQ(Scroll(Viewer()).value(), 0);
}

TEST_F(ViewerKeyboardTest, TheWheelScrollsOnWithTheKeyboardInTheFirstRow) {
    QScrollBar& bar = Scroll(Viewer());
    for (QWidget* control : {static_cast<QWidget*>(&Viewer().Instructions[0]),
                             static_cast<QWidget*>(&Viewer().ClearImg[0])}) {
        ScrollTo(0);
        control->setFocus();
        hand_.WheelDown(Viewer().Instructions[5]);
        Settle();
        EXPECT_EQ(bar.value(), 3);
        for (int row = 0; row < 10; ++row) {
            EXPECT_EQ(Viewer().Instructions.Top(row), 1250 + 425 * (row - 3));
            EXPECT_EQ(Viewer().Instructions.Visible(row), row >= 3);
            EXPECT_EQ(Viewer().ClearImg.Top(row), 1250 + 425 * (row - 3));
        }
        EXPECT_TRUE(Viewer().ClearImg[0].hasFocus());
    }
}

TEST_F(ViewerKeyboardTest, TabFollowsIntoRowsOutOfSight) {
    ScrollTo(0);
    Viewer().ClearImg[6].setFocus();
    Key("Tab");
    EXPECT_TRUE(Viewer().Instructions[7].hasFocus());
    EXPECT_EQ(Scroll(Viewer()).value(), 1);
}

} // namespace

#include "tests/common/RealInput.h"
#include "tests/common/Repaint.h"
#include "tests/filling/FillingTest.h"

#include <functional>
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

TEST_F(ViewerKeyboardTest, ArrowKeysGoUpAndDownInTheirColumnAsFarAsThereAreRows) {
    const auto text = [this](int row) -> QWidget& { return Viewer().Instructions[row]; };
    const auto mark = [this](int row) -> QWidget& {
        return row == 1 ? Viewer().CheckImg[row] : Viewer().ClearImg[row];
    };
    Click(Viewer().ClearImg[1]);
    for (const auto& control : {std::function<QWidget&(int)>(text), {mark}}) {
        ScrollTo(0);
        control(0).setFocus();
        for (int row = 0; row < 9; ++row) {
            EXPECT_TRUE(control(row).hasFocus()) << row;
            EXPECT_EQ(Scroll(Viewer()).value(), std::max(0, row - 6));
            Press(control(row), Qt::Key_Down);
        }
        EXPECT_TRUE(control(9).hasFocus());
        Press(control(9), Qt::Key_Down);
        for (int row = 9; row > 0; --row) {
            EXPECT_TRUE(control(row).hasFocus()) << row;
            EXPECT_EQ(Scroll(Viewer()).value(), std::min(3, row));
            Press(control(row), Qt::Key_Up);
        }
        EXPECT_TRUE(control(0).hasFocus());
        Press(control(0), Qt::Key_Up);
        EXPECT_TRUE(control(0).hasFocus());
    }
    ExpectTicked(1, true);
}

TEST_F(ViewerKeyboardTest, ARingShowsWhereTheKeyboardIs) {
    for (QWidget* control : {static_cast<QWidget*>(&Viewer().Instructions[2]),
                             static_cast<QWidget*>(&Viewer().ClearImg[2])}) {
        const auto edge = [control] {
            return control->grab().toImage().pixelColor(1, control->height() / 2);
        };
        const QColor ring = control->palette().color(QPalette::Highlight);
        Viewer().Instructions[0].setFocus();
        EXPECT_NE(edge(), ring);
        EXPECT_TRUE(IsRepainted(*control, [&] { control->setFocus(); }));
        EXPECT_EQ(edge(), ring);
        EXPECT_TRUE(IsRepainted(*control, [&] { Viewer().Instructions[0].setFocus(); }));
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

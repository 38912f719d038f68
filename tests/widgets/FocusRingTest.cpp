#include "widgets/FocusRing.h"
#include "tests/common/ActiveWindow.h"
#include "tests/common/FormTest.h"

#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>

namespace {

/// A scroll bar with a ring, and something else to go to that lies over it.
class FocusRingTest : public FormTest {
protected:
    FocusRingTest() {
        bar.setGeometry(40, 10, 16, 150);
        other.setGeometry(30, 0, 100, 100);
        other.setFocusPolicy(Qt::StrongFocus);
        bar.setFocusPolicy(Qt::StrongFocus);
        window.resize(200, 200);
        window.show();
        EXPECT_TRUE(BecomesActive(window));
        other.setFocus();
    }

    QWidget window;
    QScrollBar bar{&window};
    FocusRing ring{&bar};
    QWidget other{&window};
};

TEST_F(FocusRingTest, ItStandsRoundWhatHasTheKeyboardInFrontOfAllElse) {
    EXPECT_TRUE(ring.isHidden());
    bar.setFocus();
    EXPECT_TRUE(ring.isVisible());
    EXPECT_EQ(ring.geometry(), QRect(38, 10, 20, 150));
    EXPECT_EQ(window.children().last(), &ring);
    EXPECT_EQ(ring.grab().toImage().pixelColor(0, 40), window.palette().color(QPalette::Highlight));
    EXPECT_EQ(window.childAt(38, 40), &other) << "the mouse goes through it";
    other.setFocus();
    EXPECT_TRUE(ring.isHidden());
}

TEST_F(FocusRingTest, ItGoesWithItsControl) {
    bar.setFocus();
    bar.setGeometry(60, 20, 16, 90);
    EXPECT_EQ(ring.geometry(), QRect(58, 20, 20, 90));
    bar.hide();
    EXPECT_TRUE(ring.isHidden());
}

} // namespace

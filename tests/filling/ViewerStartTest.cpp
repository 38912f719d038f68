#include "tests/filling/FillingTest.h"

#include <QApplication>
#include <QTest>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

/// What a child finds when a page has been turned: rows that stay within the list, and the keyboard
/// where the work is.
class ViewerStartTest : public FillingTest {
protected:
    static ChartViewer& Open(FillingTest& test, const QList<Job>& jobs) {
        MakeChart(u"Chores Anna"_s, jobs);
        return static_cast<ViewerStartTest&>(test).OpenChart(u"Chores Anna"_s);
    }
    static void Next(ChartViewer& viewer) { Click(Button(viewer, u"NextDay"_s)); }
    /// What is painted above the rows.
    static QImage Heads(ChartViewer& viewer) {
        auto& list = Find<QWidget>(viewer, u"CleanUpList"_s);
        return list.grab(QRect(0, 0, list.width(), 1200 / 15)).toImage();
    }
    static void ComeBack(ChartViewer& viewer) {
        ShowList();
        viewer.SetFocus();
        Settle();
    }
};

TEST_F(ViewerStartTest, NoRowOfAScrolledPageIsDrawnOverTheDateAndTheHeads) {
    ChartViewer& viewer = Open(*this, JobsOn(u"Wed"_s, 12) + JobsOn(u"Thu"_s, 12));
    Next(viewer);
    const QImage thursday = Heads(viewer);
    Next(viewer);
    Scroll(viewer).setValue(5);
    Next(viewer);
    ASSERT_EQ(viewer.Instructions.Top(4), 1250 - 425);
    ASSERT_TRUE(viewer.Instructions.Visible(4));
    EXPECT_EQ(Heads(viewer), thursday);
    auto& list = Find<QWidget>(viewer, u"CleanUpList"_s);
    LookAt(list, u"scrolled-page"_s);
    // Nor does one take what is pressed there.
    for (int y = 1; y < 1200 / 15; ++y)
        QTest::mouseClick(viewer.window()->windowHandle(), Qt::LeftButton, {},
                          list.mapTo(viewer.window(), QPoint(840 / 15 + 20, y)));
    EXPECT_EQ(viewer.height(), 8700 / 15) << "no row was chosen";
}

TEST_F(ViewerStartTest, TheKeyboardBeginsAtTheFirstOpenMark) {
    ChartViewer& viewer = Open(*this, JobsOn(u"Wed"_s, 3));
    EXPECT_EQ(QApplication::focusWidget(), &viewer.ClearImg[0]);
    Press(viewer.ClearImg[0], Qt::Key_Space);
    EXPECT_EQ(QApplication::focusWidget(), &viewer.CheckImg[0]);
    ComeBack(viewer);
    EXPECT_EQ(QApplication::focusWidget(), &viewer.ClearImg[1]);
    Press(viewer.ClearImg[1], Qt::Key_Space);
    Press(viewer.ClearImg[2], Qt::Key_Space);
    ComeBack(viewer);
    EXPECT_EQ(QApplication::focusWidget(), &Button(viewer, u"NextDay"_s)) << "all is done";
}

TEST_F(ViewerStartTest, AButtonForDaysKeepsTheKeyboard) {
    ChartViewer& viewer = Open(*this, JobsOn(u"Wed"_s, 2) + JobsOn(u"Thu"_s, 2));
    QPushButton& next = Button(viewer, u"NextDay"_s);
    next.setFocus();
    Press(next, Qt::Key_Space);
    EXPECT_EQ(Jobs(viewer).value(0), u"Thu job 1"_s);
    EXPECT_TRUE(next.hasFocus());
}

TEST_F(ViewerStartTest, OfAScrolledPageTheFirstOpenMarkInViewAndNothingMoves) {
    ChartViewer& viewer = Open(*this, JobsOn(u"Wed"_s, 10));
    Scroll(viewer).setValue(2);
    ComeBack(viewer);
    EXPECT_EQ(QApplication::focusWidget(), &viewer.ClearImg[2]);
    EXPECT_EQ(viewer.Instructions.Top(0), 1250 - 2 * 425);
}

TEST_F(ViewerStartTest, WhereNoRowIsInViewAKeyBringsTheFirstOpenOneThereAndTheNextTicksIt) {
    ChartViewer& viewer = Open(*this, JobsOn(u"Wed"_s, 12) + JobsOn(u"Thu"_s, 3));
    Scroll(viewer).setValue(10);
    ComeBack(viewer);
    ASSERT_EQ(viewer.Instructions.Top(2), 1250 - 8 * 425);
    EXPECT_EQ(QApplication::focusWidget(), &viewer.ClearImg[0]);
    Press(viewer.ClearImg[0], Qt::Key_Space);
    EXPECT_FALSE(viewer.CheckVisible(0));
    EXPECT_EQ(viewer.Instructions.Top(0), 1250);
    Press(viewer.ClearImg[0], Qt::Key_Space);
    EXPECT_TRUE(viewer.CheckVisible(0));
}

TEST_F(ViewerStartTest, EnterHeldSinceBeforeTheFormCameTicksNothing) {
    ChartViewer& viewer = Open(*this, JobsOn(u"Wed"_s, 1));
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, u"\r"_s, true);
    QApplication::sendEvent(&viewer.ClearImg[0], &held);
    EXPECT_FALSE(viewer.CheckVisible(0));
    Press(viewer.ClearImg[0], Qt::Key_Return);
    EXPECT_TRUE(viewer.CheckVisible(0));
}

} // namespace

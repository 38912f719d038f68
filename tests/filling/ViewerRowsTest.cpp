#include "tests/filling/FillingTest.h"

#include <QHelpEvent>
#include <QTest>
#include <QTextDocumentFragment>
#include <QToolTip>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace {

using S = QStringList;

/// The rows of the viewer: making, placing, scrolling, colouring, and the mouse on them.
class ViewerRowsTest : public FillingTest {
protected:
    /// A chart with so many jobs on Wednesday and on Thursday, opened on Wednesday.
    ChartViewer& OpenWith(int onWednesday, int onThursday) {
        MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), onWednesday) +
                                                     JobsOn(QStringLiteral("Thu"), onThursday));
        return OpenChart(QStringLiteral("Chores Anna"));
    }
    /// A top, in pixels, that leaves a little of the form below the main window's edge where it
    /// finds room there at all.
    static int LowPlace(const ChartViewer& viewer) {
        const QWidget& frame = viewer.Frame();
        return std::max(1, frame.parentWidget()->height() - frame.height() + 20);
    }
    static void Next(ChartViewer& viewer) { Click(Button(viewer, QStringLiteral("NextDay"))); }
    static bool RowShown(const ChartViewer& viewer, int row) {
        return viewer.Instructions.Visible(row);
    }
    template <class Control>
    static void ExpectPlace(const ControlArray<Control>& controls, int left, int width) {
        for (int row = 0; row < controls.Count(); ++row) {
            EXPECT_EQ(controls.Left(row), left);
            EXPECT_EQ(controls.Width(row), width);
            EXPECT_EQ(controls.Height(row), 375);
            EXPECT_EQ(controls.Top(row), 1250 + row * 425);
            EXPECT_EQ(controls[row].geometry(),
                      QRect(left / 15, (1250 + row * 425) / 15, width / 15, 25));
        }
    }
    /// Everything a person sees of the form.
    static QImage Picture(QWidget& widget) { return widget.grab().toImage(); }
};

TEST_F(ViewerRowsTest, RowsStandWhereTheDesignSays) {
    const ChartViewer& viewer = OpenWith(9, 1);
    ASSERT_EQ(viewer.Instructions.Count(), 9);
    ExpectPlace(viewer.Number, 120, 375);
    ExpectPlace(viewer.Instructions, 840, 3855);
    ExpectPlace(viewer.Difficulty, 5160, 1815);
    ExpectPlace(viewer.Points, 7680, 1215);
    ExpectPlace(viewer.RectCheck, 9480, 375);
    ExpectPlace(viewer.ClearImg, 9480, 375);
    ExpectPlace(viewer.CheckImg, 9480, 375);
    EXPECT_EQ(Find<QWidget>(viewer, QStringLiteral("CleanUpList")).height(), 4200 / 15);
    EXPECT_EQ(viewer.height(), 8700 / 15);
}

TEST_F(ViewerRowsTest, RowsBelowTheListsLowerEdgeAreClipped) {
    const ChartViewer& viewer = OpenWith(9, 1);
    const auto seen = [&](int row) { return !viewer.Instructions[row].visibleRegion().isEmpty(); };
    EXPECT_TRUE(seen(6));
    EXPECT_EQ(viewer.Instructions[6].visibleRegion().boundingRect().height(), 25);
    EXPECT_FALSE(seen(7));
    EXPECT_FALSE(seen(8));
}

TEST_F(ViewerRowsTest, CreateNewTaskAddsAnEmptyUntickedRow) {
    ChartViewer& viewer = OpenWith(1, 1);
    viewer.CreateNewTask(1);
    ASSERT_EQ(viewer.Instructions.Count(), 2);
    for (const int count :
         {viewer.Difficulty.Count(), viewer.Points.Count(), viewer.AdultResponsable.Count(),
          viewer.CheckImg.Count(), viewer.ClearImg.Count(), viewer.RectCheck.Count(),
          viewer.Number.Count()})
        EXPECT_EQ(count, 2);
    EXPECT_EQ(viewer.Instructions[1].text(), QString());
    EXPECT_EQ(viewer.Difficulty[1].text(), QString());
    EXPECT_EQ(viewer.Points[1].text(), QString());
    EXPECT_EQ(viewer.Number[1].text(), QStringLiteral("2:"));
    EXPECT_FALSE(viewer.AdultResponsable.Visible(1));
    EXPECT_FALSE(viewer.CheckImg.Visible(1));
    EXPECT_TRUE(viewer.ClearImg.Visible(1));
    EXPECT_TRUE(viewer.RectCheck.Visible(1));
    EXPECT_TRUE(viewer.Number.Visible(1));
    EXPECT_EQ(Scroll(viewer).maximum(), 1);
}

TEST_F(ViewerRowsTest, RemoveRowsLeavesTheFirstRowAndTheScrollRange) {
    ChartViewer& viewer = OpenWith(5, 1);
    viewer.RemoveRows();
    EXPECT_EQ(Jobs(viewer), S{QStringLiteral("Wed job 1")});
    for (const int count :
         {viewer.Difficulty.Count(), viewer.Points.Count(), viewer.AdultResponsable.Count(),
          viewer.CheckImg.Count(), viewer.ClearImg.Count(), viewer.RectCheck.Count(),
          viewer.Number.Count()})
        EXPECT_EQ(count, 1);
    EXPECT_EQ(Scroll(viewer).maximum(), 4);
}

TEST_F(ViewerRowsTest, OneScrollStepIsOneRowAndRowsAboveTheTopLineAreHidden) {
    ChartViewer& viewer = OpenWith(9, 1);
    Scroll(viewer).setValue(2);
    for (int row = 0; row < 9; ++row) {
        const int top = 425 * row + 1250 - 2 * 425;
        EXPECT_EQ(viewer.Instructions.Top(row), top);
        EXPECT_EQ(viewer.Difficulty.Top(row), top);
        EXPECT_EQ(viewer.Points.Top(row), top);
        EXPECT_EQ(viewer.Number.Top(row), top);
        EXPECT_EQ(viewer.CheckImg.Top(row), top);
        EXPECT_EQ(viewer.ClearImg.Top(row), top);
        EXPECT_EQ(viewer.RectCheck.Top(row), top);
        const bool shown = row >= 2;
        EXPECT_EQ(viewer.Instructions.Visible(row), shown) << row;
        EXPECT_EQ(viewer.Difficulty.Visible(row), shown) << row;
        EXPECT_EQ(viewer.Points.Visible(row), shown) << row;
        EXPECT_EQ(viewer.Number.Visible(row), shown) << row;
        EXPECT_EQ(viewer.RectCheck.Visible(row), shown) << row;
    }
    Scroll(viewer).setValue(0);
    for (int row = 0; row < 9; ++row)
        EXPECT_TRUE(RowShown(viewer, row));
}

TEST_F(ViewerRowsTest, MarksScrolledAwayKeepTheirStateAndAreStored) {
    ChartViewer& viewer = OpenWith(9, 1);
    Click(viewer.ClearImg[0]);
    Scroll(viewer).setValue(3);
    EXPECT_TRUE(viewer.CheckImg.Visible(0));
    EXPECT_FALSE(viewer.ClearImg.Visible(0));
    EXPECT_TRUE(viewer.ClearImg.Visible(1));
    Next(viewer);
    EXPECT_EQ(Ticked(QStringLiteral("Chores Anna")), S{QStringLiteral("Wed job 1|Wed")});
}

TEST_F(ViewerRowsTest, MarksScrolledAboveTheListAreNeitherSeenNorClicked) {
    ChartViewer& viewer = OpenWith(12, 1);
    auto& list = Find<QWidget>(viewer, QStringLiteral("CleanUpList"));
    const QRect header(0, 0, list.width(), 1200 / 15);
    const QImage before = Picture(list).copy(header);
    for (const int value : {1, 2, 3, 4}) {
        Scroll(viewer).setValue(value);
        EXPECT_EQ(Picture(list).copy(header), before) << "scrolled by " << value;
        for (int y = 1; y < header.bottom(); ++y)
            QTest::mouseClick(viewer.window()->windowHandle(), Qt::LeftButton, {},
                              list.mapTo(viewer.window(), QPoint(9480 / 15 + 12, y)));
    }
    for (int row = 0; row < 12; ++row)
        EXPECT_FALSE(viewer.CheckVisible(row)) << row;
    EXPECT_EQ(PointsIn(), QStringLiteral("0"));
}

TEST_F(ViewerRowsTest, PagingAfterAScrollKeepsTheFirstRowsPlaceUntilTheNextScroll) {
    ChartViewer& viewer = OpenWith(10, 10);
    Scroll(viewer).setValue(3);
    const int scrolledTop = 1250 - 3 * 425;
    Next(viewer);
    EXPECT_EQ(Jobs(viewer).value(0), QStringLiteral("Thu job 1"));
    EXPECT_EQ(viewer.Instructions.Top(0), scrolledTop);
    EXPECT_FALSE(RowShown(viewer, 0));
    // The new rows follow the first one, and are shown wherever that is.
    for (int row = 1; row < 10; ++row) {
        EXPECT_EQ(viewer.Instructions.Top(row), scrolledTop + row * 425);
        EXPECT_EQ(viewer.ClearImg.Top(row), scrolledTop + row * 425);
        EXPECT_TRUE(RowShown(viewer, row));
    }
    EXPECT_EQ(Scroll(viewer).maximum(), 9);
    EXPECT_EQ(Scroll(viewer).value(), 3);
    Scroll(viewer).setValue(2);
    for (int row = 0; row < 10; ++row) {
        EXPECT_EQ(viewer.Instructions.Top(row), 1250 + (row - 2) * 425);
        EXPECT_EQ(RowShown(viewer, row), row >= 2);
    }
}

TEST_F(ViewerRowsTest, ADayOfOneRowLeavesTheScrollBarAsItWas) {
    ChartViewer& viewer = OpenWith(10, 1);
    Scroll(viewer).setValue(4);
    Next(viewer);
    EXPECT_EQ(Jobs(viewer).size(), 1);
    EXPECT_EQ(Scroll(viewer).maximum(), 9);
    EXPECT_EQ(Scroll(viewer).value(), 4);
    EXPECT_FALSE(RowShown(viewer, 0));
    Scroll(viewer).setValue(0);
    EXPECT_EQ(viewer.Instructions.Top(0), 1250);
    EXPECT_TRUE(RowShown(viewer, 0));
}

TEST_F(ViewerRowsTest, TheScrollRangeGrowsWithTheLargestDayAndShrinksOnlyToADayOfSeveralRows) {
    MakeChart(QStringLiteral("Chores Anna"),
              JobsOn(QStringLiteral("Wed"), 2) + JobsOn(QStringLiteral("Thu"), 8) +
                  JobsOn(QStringLiteral("Fri"), 1) + JobsOn(QStringLiteral("Sat"), 3));
    ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    EXPECT_EQ(Scroll(viewer).maximum(), 1);
    Next(viewer);
    EXPECT_EQ(Scroll(viewer).maximum(), 7);
    Next(viewer);
    EXPECT_EQ(Scroll(viewer).maximum(), 7);
    Next(viewer);
    EXPECT_EQ(Scroll(viewer).maximum(), 2);
}

TEST_F(ViewerRowsTest, ASmallerDayMovesNoRowByItself) {
    ChartViewer& viewer = OpenWith(12, 3);
    Scroll(viewer).setValue(10);
    Next(viewer);
    EXPECT_EQ(viewer.Instructions.Top(0), 1250 - 10 * 425);
    EXPECT_EQ(viewer.Instructions.Top(2), 1250 - 8 * 425);
    EXPECT_EQ(Scroll(viewer).maximum(), 2);
    // The way back to the larger day finds the bar where the user left it.
    Next(viewer);
    EXPECT_EQ(Scroll(viewer).maximum(), 11);
    EXPECT_EQ(Scroll(viewer).value(), 10);
    EXPECT_EQ(viewer.Instructions.Top(0), 1250 - 10 * 425);
}

TEST_F(ViewerRowsTest, TheWheelOverTheListScrollsTheRows) {
    ChartViewer& viewer = OpenWith(12, 1);
    // What no control under the mouse takes reaches the form.
    const QPointF place = viewer.Instructions[2].mapTo(&viewer, QPointF(9, 9));
    QWheelEvent wheel(place, viewer.mapToGlobal(place), {}, QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&viewer, &wheel);
    EXPECT_GT(Scroll(viewer).value(), 0);
    EXPECT_EQ(viewer.Instructions.Top(0), 1250 - Scroll(viewer).value() * 425);
}

TEST_F(ViewerRowsTest, APressOnARowsTextTurnsItBlueAndShowsItsAdult) {
    MakeChart(QStringLiteral("Chores Anna"), {{QStringLiteral("Cook"), QStringLiteral("Wed")},
                                              {QStringLiteral("Sweep"), QStringLiteral("Wed"),
                                               QStringLiteral("5"), QStringLiteral("Grandpa")}});
    ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    const auto blue = [&](int row) {
        const QColor color = viewer.Instructions[row].ForeColor();
        EXPECT_EQ(viewer.Difficulty[row].ForeColor(), color);
        EXPECT_EQ(viewer.Points[row].ForeColor(), color);
        EXPECT_EQ(viewer.Number[row].ForeColor(), color);
        EXPECT_EQ(viewer.RectCheck[row].BorderColor(), color);
        return color == QColor(0, 0, 255);
    };
    for (const char* control : {"Label1", "Namelbl", "Image1"})
        EXPECT_TRUE(Find<QWidget>(viewer, QString::fromLatin1(control)).isHidden());
    Click(viewer.Instructions[0]);
    EXPECT_TRUE(blue(0));
    EXPECT_FALSE(blue(1));
    for (const char* control : {"Label1", "Namelbl", "Image1"})
        EXPECT_TRUE(Find<QWidget>(viewer, QString::fromLatin1(control)).isVisible());
    EXPECT_EQ(TextAt(viewer, QStringLiteral("Label1")), QStringLiteral("Person Responsible:"));
    EXPECT_EQ(TextAt(viewer, QStringLiteral("Namelbl")), QStringLiteral("Mum"));
    EXPECT_FALSE(Find<QLabel>(viewer, QStringLiteral("Image1")).pixmap(Qt::ReturnByValue).isNull());
    EXPECT_EQ(viewer.height(), 9800 / 15);
    Click(viewer.Points[1]);
    EXPECT_FALSE(blue(0));
    EXPECT_TRUE(blue(1));
    // An adult without an account has no picture.
    EXPECT_EQ(TextAt(viewer, QStringLiteral("Namelbl")), QStringLiteral("Grandpa"));
    EXPECT_TRUE(Find<QLabel>(viewer, QStringLiteral("Image1")).pixmap(Qt::ReturnByValue).isNull());
    Click(viewer.Difficulty[0]);
    EXPECT_TRUE(blue(0));
    EXPECT_FALSE(blue(1));
}

TEST_F(ViewerRowsTest, BlueIsWhatTheRowIsPaintedIn) {
    ChartViewer& viewer = OpenWith(2, 1);
    const auto painted = [&](QWidget& control, const QColor& color) {
        const QImage picture = Picture(control);
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (picture.pixelColor(x, y) == color)
                    return true;
        return false;
    };
    Click(viewer.Instructions[1]);
    EXPECT_TRUE(painted(viewer.Instructions[1], Qt::blue));
    EXPECT_FALSE(painted(viewer.Instructions[0], Qt::blue));
    EXPECT_TRUE(painted(viewer.Instructions[0], Qt::black));
}

TEST_F(ViewerRowsTest, ClicksOnTheNumberAndOnTheBoxSelectNoRow) {
    ChartViewer& viewer = OpenWith(2, 1);
    Click(viewer.Number[0]);
    Click(viewer.ClearImg[1]);
    EXPECT_EQ(viewer.Instructions[0].ForeColor(), QColor(Qt::black));
    EXPECT_EQ(viewer.Instructions[1].ForeColor(), QColor(Qt::black));
    EXPECT_TRUE(Find<QWidget>(viewer, QStringLiteral("Namelbl")).isHidden());
    EXPECT_EQ(viewer.height(), 8700 / 15);
}

TEST_F(ViewerRowsTest, TheOutlineLetsTheMouseThroughToTheMark) {
    ChartViewer& viewer = OpenWith(2, 1);
    auto& list = Find<QWidget>(viewer, QStringLiteral("CleanUpList"));
    EXPECT_EQ(list.childAt(viewer.RectCheck[1].geometry().center()), &viewer.ClearImg[1]);
    Click(viewer.ClearImg[1]);
    EXPECT_EQ(list.childAt(viewer.RectCheck[1].geometry().center()), &viewer.CheckImg[1]);
}

TEST_F(ViewerRowsTest, DraggingARowTheListOrTheFormMovesTheForm) {
    ChartViewer& viewer = OpenWith(2, 1);
    viewer.Move(1500, 600);
    auto& list = Find<QWidget>(viewer, QStringLiteral("CleanUpList"));
    for (QWidget* handle :
         {static_cast<QWidget*>(&viewer.Instructions[0]),
          static_cast<QWidget*>(&viewer.Difficulty[1]), static_cast<QWidget*>(&viewer.Points[0]),
          &list, static_cast<QWidget*>(&viewer)}) {
        const int left = viewer.Left();
        const int top = viewer.Top();
        QTest::mousePress(handle, Qt::LeftButton, {}, QPoint(10, 8));
        EXPECT_EQ(viewer.MouseX, 150);
        EXPECT_EQ(viewer.MouseY, 120);
        QMouseEvent move(QEvent::MouseMove, QPointF(14, 5), handle->mapToGlobal(QPointF(14, 5)),
                         Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(handle, &move);
        EXPECT_EQ(viewer.Left(), left + 60) << handle->objectName().toStdString();
        EXPECT_EQ(viewer.Top(), top - 45) << handle->objectName().toStdString();
        QTest::mouseRelease(handle, Qt::LeftButton, {}, QPoint(10, 8));
        viewer.Move(left, top);
    }
}

TEST_F(ViewerRowsTest, AFormMadeHigherByARowMovesIntoTheMainWindowWhenTheButtonIsUp) {
    ChartViewer& viewer = OpenWith(2, 1);
    const QWidget& room = *viewer.Frame().parentWidget();
    const int low = LowPlace(viewer);
    viewer.Move(600, low * 15);
    QWidget& row = viewer.Instructions[0];
    QTest::mousePress(&row, Qt::LeftButton, {}, QPoint(10, 8));
    EXPECT_EQ(viewer.height(), 9800 / 15);
    EXPECT_EQ(viewer.Top(), low * 15) << "nothing moves away under the mouse";
    QTest::mouseRelease(&row, Qt::LeftButton, {}, QPoint(10, 8));
    EXPECT_EQ(viewer.Frame().pos(),
              QPoint(40, std::max(0, room.height() - viewer.Frame().height())));
    // Only where it grows: a form that has been dragged out stays there.
    viewer.Move(600, low * 15);
    Click(viewer.Instructions[1]);
    EXPECT_EQ(viewer.Top(), low * 15);
}

TEST_F(ViewerRowsTest, AFormMadeHigherByAKeyMovesIntoTheMainWindow) {
    ChartViewer& viewer = OpenWith(2, 1);
    const QWidget& room = *viewer.Frame().parentWidget();
    viewer.Move(600, LowPlace(viewer) * 15);
    Press(viewer.Instructions[0], Qt::Key_Space);
    EXPECT_EQ(viewer.Frame().y(), std::max(0, room.height() - viewer.Frame().height()));
}

TEST_F(ViewerRowsTest, TheFormComesWholeBesideAMaximisedOne) {
    ChartViewer& alone = OpenWith(2, 1);
    const QRect place = alone.Frame().geometry();
    const QSize inside = alone.size();
    EXPECT_EQ(inside.height(), 8700 / 15);
    EXPECT_EQ(place.top(), 0);
    EXPECT_GT(place.height() - inside.height(), 15) << "a title bar";
    Click(Button(alone, QStringLiteral("Ok")));

    Form& neighbour = DefaultForm(QStringLiteral("frmAboutDutygrid"));
    neighbour.Show();
    neighbour.Frame().showMaximized();
    Settle();
    ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    EXPECT_EQ(viewer.Frame().geometry(), place);
    EXPECT_EQ(viewer.size(), inside);
    EXPECT_FALSE(viewer.Frame().isMaximized());
    EXPECT_TRUE(neighbour.Frame().isMaximized());
}

TEST_F(ViewerRowsTest, ADragNeedsTheLeftButtonAlone) {
    ChartViewer& viewer = OpenWith(2, 1);
    QWidget& row = viewer.Instructions[0];
    QTest::mousePress(&row, Qt::RightButton, {}, QPoint(10, 8));
    EXPECT_EQ(viewer.MouseX, 150);
    const int left = viewer.Left();
    for (const Qt::MouseButtons held :
         {Qt::MouseButtons(Qt::NoButton), Qt::MouseButtons(Qt::RightButton),
          Qt::MouseButtons(Qt::LeftButton | Qt::RightButton)}) {
        QMouseEvent move(QEvent::MouseMove, QPointF(30, 8), row.mapToGlobal(QPointF(30, 8)),
                         Qt::NoButton, held, {});
        QApplication::sendEvent(&row, &move);
        EXPECT_EQ(viewer.Left(), left);
    }
}

TEST_F(ViewerRowsTest, AMaximisedViewerStaysMaximised) {
    ChartViewer& viewer = OpenWith(2, 1);
    viewer.Frame().showMaximized();
    Settle();
    const QRect whole = viewer.Frame().geometry();
    QWidget& row = viewer.Instructions[0];
    QTest::mousePress(&row, Qt::LeftButton, {}, QPoint(10, 8));
    QMouseEvent move(QEvent::MouseMove, QPointF(40, 30), row.mapToGlobal(QPointF(40, 30)),
                     Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(&row, &move);
    QTest::mouseRelease(&row, Qt::LeftButton, {}, QPoint(10, 8));
    Settle();
    EXPECT_EQ(viewer.Frame().geometry(), whole);
    EXPECT_TRUE(Find<QWidget>(viewer, QStringLiteral("Namelbl")).isVisible());
    Next(viewer);
    EXPECT_EQ(viewer.Frame().geometry(), whole);
    EXPECT_EQ(Jobs(viewer), S{QStringLiteral("Thu job 1")});
    LookAt(viewer.Frame(), QStringLiteral("ChartViewer-maximised"));
}

TEST_F(ViewerRowsTest, APressOnTheNumberOrAHeadingIsNotStoredAndStartsNoDrag) {
    ChartViewer& viewer = OpenWith(2, 1);
    // A place left from an earlier press.
    QTest::mouseClick(&viewer.Instructions[0], Qt::LeftButton, {}, QPoint(10, 8));
    viewer.Move(1500, 600);
    for (QWidget* label : {static_cast<QWidget*>(&viewer.Number[1]),
                           &Find<QWidget>(viewer, QStringLiteral("DayLbl")),
                           &Find<QWidget>(viewer, QStringLiteral("Label4"))}) {
        QTest::mousePress(label, Qt::LeftButton, {}, QPoint(5, 6));
        EXPECT_EQ(viewer.MouseX, 150);
        EXPECT_EQ(viewer.MouseY, 120);
        QMouseEvent move(QEvent::MouseMove, QPointF(9, 9), label->mapToGlobal(QPointF(9, 9)),
                         Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(label, &move);
        EXPECT_EQ(viewer.Left(), 1500) << label->objectName().toStdString();
        EXPECT_EQ(viewer.Top(), 600) << label->objectName().toStdString();
        QTest::mouseRelease(label, Qt::LeftButton, {}, QPoint(5, 6));
    }
}

TEST_F(ViewerRowsTest, APressAtTheVeryEdgeStartsNoDrag) {
    ChartViewer& viewer = OpenWith(2, 1);
    QWidget& row = viewer.Instructions[0];
    const int left = viewer.Left();
    const int top = viewer.Top();
    for (const QPoint edge : {QPoint(0, 8), QPoint(10, 0)}) {
        QTest::mousePress(&row, Qt::LeftButton, {}, edge);
        QMouseEvent move(QEvent::MouseMove, QPointF(30, 12), row.mapToGlobal(QPointF(30, 12)),
                         Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&row, &move);
        QTest::mouseRelease(&row, Qt::LeftButton, {}, edge);
        EXPECT_EQ(viewer.Left(), left);
        EXPECT_EQ(viewer.Top(), top);
    }
    // Such a press selects the row all the same.
    EXPECT_EQ(viewer.Instructions[0].ForeColor(), QColor(Qt::blue));
}

TEST_F(ViewerRowsTest, ALongJobIsCutWithAnEllipsisAndToldInWholeByItsTip) {
    const QString longJob = QStringLiteral("Put <b>all</b> the toys of the whole week back into "
                                           "their boxes & close every lid");
    MakeChart(QStringLiteral("Chores Anna"),
              {{longJob, QStringLiteral("Wed")}, {QStringLiteral("Cook"), QStringLiteral("Wed")}});
    ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    EXPECT_EQ(viewer.Instructions[0].text(), longJob);
    EXPECT_FALSE(viewer.Instructions[0].TextFits());
    EXPECT_TRUE(viewer.Instructions[1].TextFits());
    const auto tipOf = [](QWidget& row) {
        QHelpEvent ask(QEvent::ToolTip, QPoint(5, 5), row.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&row, &ask);
        return QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText();
    };
    EXPECT_EQ(tipOf(viewer.Instructions[0]), longJob);
    QToolTip::hideText();
    ASSERT_TRUE(QTest::qWaitFor([] { return QToolTip::text().isEmpty(); }, Patience));
    EXPECT_EQ(tipOf(viewer.Instructions[1]), QString());
}

} // namespace

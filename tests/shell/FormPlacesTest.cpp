#include "accounts/AddIncentives.h"
#include "authoring/DisplayAllPeople.h"
#include "platform/forms/MainWindowArea.h"
#include "platform/forms/Twips.h"
#include "reports/DateRangefrm.h"
#include "reports/Reportfrm.h"
#include "tests/shell/ShellTest.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Where forms come in the main window, and in what size.
class FormPlacesTest : public ShellTest {
protected:
    void SetUp() override {
        MakeAccount(u"Mum"_s, u"m"_s, u"Teacher"_s);
        MakeAccount(u"Anna"_s, u"a"_s, u"Student"_s);
        StartSession(u"Mum"_s, u"Teacher"_s);
    }

    static QMdiArea& Area() { return *MainWindowArea(); }
    static QRect Room() { return Area().viewport()->rect(); }

    static Form& Prepared(const QString& name) {
        if (name == ChartEditor::FormName) {
            auto* editor = new ChartEditor;
            editor->IsNewChart = true;
            return *editor;
        }
        Form& form = DefaultForm(name);
        if (auto* people = dynamic_cast<DisplayAllPeople*>(&form))
            people->ChartName = u"Chores Anna"_s;
        if (auto* incentives = dynamic_cast<AddIncentives*>(&form))
            incentives->AccountName = u"Anna"_s;
        return form;
    }

    /// What is inside the frame, as it was drawn or as its layout wants it.
    static QSize DesignedSize(const QWidget& form) {
        const bool isDrawn = form.testAttribute(Qt::WA_Resized) || form.layout() == nullptr;
        return isDrawn ? form.size() : form.sizeHint();
    }

    static Form& Open(const QString& name) { return Open(Prepared(name)); }

    static Form& Open(Form& form) {
        form.Show();
        Settle();
        return form;
    }

    static void Close(Form& form) {
        if (auto* editor = dynamic_cast<ChartEditor*>(&form))
            editor->Abandon();
        else
            form.Unload();
        Settle();
    }

    /// The frame's edges and title bar.
    static QSize Edges(const Form& form) { return form.Frame().size() - form.Widget().size(); }

    static void ExpectMovable(const Form& form) {
        QWidget& frame = form.Frame();
        const QPoint before = frame.pos();
        const QPoint title(frame.width() / 2, 10);
        const QPoint by(-20, 12);
        const auto moveTo = [&frame](const QPoint& place, Qt::MouseButtons held) {
            QMouseEvent move(QEvent::MouseMove, QPointF(place), frame.mapToGlobal(place),
                             Qt::NoButton, held, {});
            QApplication::sendEvent(&frame, &move);
        };
        moveTo(title, Qt::NoButton);
        QTest::mousePress(&frame, Qt::LeftButton, {}, title);
        moveTo(title + by, Qt::LeftButton);
        QTest::mouseRelease(&frame, Qt::LeftButton, {}, title);
        EXPECT_EQ(frame.pos(), before + by);
    }

    /// The control stands inside its form and the form's frame inside the main window.
    static bool IsInSight(const Form& form, const QString& name) {
        const QWidget& control = Find(form.Widget(), name);
        const QRect place(control.mapTo(Area().viewport(), QPoint()), control.size());
        const QRect inside(form.Widget().mapTo(Area().viewport(), QPoint()), form.Widget().size());
        return control.isVisible() && inside.contains(place) && Room().contains(place);
    }
};

const QStringList InMainWindow = {u"Newfrm"_s,
                                  u"Openfrm"_s,
                                  u"DeleteChartForm"_s,
                                  u"ResetDate"_s,
                                  u"DisplayAllPeople"_s,
                                  u"ChartEditor"_s,
                                  u"OpenFillfrm"_s,
                                  u"DisplayAccount"_s,
                                  u"AddIncentives"_s,
                                  u"Reportfrm"_s,
                                  u"DateRangefrm"_s,
                                  u"WeekChartRepresentation"_s,
                                  u"BackgroundOptions"_s,
                                  u"OtherOptions"_s,
                                  u"frmAboutDutygrid"_s};

TEST_F(FormPlacesTest, EveryFormComesWholeBesideAMaximisedOrMinimisedOne) {
    for (const QString& name : InMainWindow) {
        SCOPED_TRACE(name.toStdString());
        Form& alone = Prepared(name);
        const QSize inside = DesignedSize(alone.Widget());
        Open(alone);
        EXPECT_EQ(alone.Widget().size(), inside);
        const QSize edges = Edges(alone);
        const QRect place = alone.Frame().geometry();
        EXPECT_GT(edges.height(), 15) << "a title bar";
        EXPECT_TRUE(Room().contains(place));
        Close(alone);
        for (const bool maximised : {true, false}) {
            Form& neighbour = Open(name == u"Newfrm"_s ? u"Openfrm"_s : u"Newfrm"_s);
            if (maximised)
                neighbour.Frame().showMaximized();
            else
                neighbour.Frame().showMinimized();
            Settle();
            Form& form = Open(name);
            EXPECT_FALSE(form.Frame().isMaximized());
            EXPECT_FALSE(form.Frame().isMinimized());
            EXPECT_EQ(form.Widget().size(), inside);
            EXPECT_EQ(Edges(form), edges);
            EXPECT_EQ(form.Frame().geometry(), place);
            EXPECT_EQ(Area().activeSubWindow(), &form.Frame());
            EXPECT_EQ(form.Frame().visibleRegion().boundingRect(), form.Frame().rect());
            EXPECT_EQ(neighbour.Frame().isMaximized(), maximised);
            EXPECT_EQ(neighbour.Frame().isMinimized(), !maximised);
            ExpectMovable(form);
            // The same when it is shown again.
            form.Hide();
            Settle();
            Open(form);
            EXPECT_FALSE(form.Frame().isMaximized());
            EXPECT_EQ(form.Widget().size(), inside);
            EXPECT_EQ(Edges(form), edges);
            Close(form);
            EXPECT_EQ(neighbour.Frame().isMaximized(), maximised);
            Close(neighbour);
        }
    }
}

TEST_F(FormPlacesTest, TheDateFormCanBeUsedBesideTheMaximisedReportForm) {
    Form& report = Open(u"Reportfrm"_s);
    report.Frame().showMaximized();
    Settle();
    auto& dates = dynamic_cast<DateRangefrm&>(Open(u"DateRangefrm"_s));
    EXPECT_EQ(dates.size(), QSize(460, 186));
    EXPECT_TRUE(IsInSight(dates, u"cmdExit"_s));
    Click(Find(dates, u"Command1"_s));
    EXPECT_EQ(dates.height(), 6500 / 15);
    EXPECT_TRUE(Room().contains(dates.Frame().geometry()));
    for (const QString& control : {u"Calendar1"_s, u"Ok"_s, u"cmdExit"_s})
        EXPECT_TRUE(IsInSight(dates, control)) << control.toStdString();
    ExpectMovable(dates);
    Click(Find(dates, u"Ok"_s));
    EXPECT_EQ(dates.size(), QSize(460, 186));
    Click(Find(dates, u"cmdExit"_s));
    EXPECT_FALSE(IsShown(u"DateRangefrm"_s));
    EXPECT_TRUE(report.Frame().isMaximized());
}

TEST_F(FormPlacesTest, ADateFormThatGrowsStaysInsideASmallMainWindow) {
    SizeMainWindow({1024, 570});
    Form& dates = Open(u"DateRangefrm"_s);
    const QRect small = dates.Frame().geometry();
    ASSERT_TRUE(Room().contains(small));
    Click(Find(dates.Widget(), u"Command1"_s));
    const QRect grown = dates.Frame().geometry();
    EXPECT_TRUE(Room().contains(grown));
    EXPECT_EQ(grown.height(), small.height() + 6500 / 15 - 186);
    EXPECT_EQ(grown.bottom(), Room().bottom()) << "moved no further than it has to";
    EXPECT_EQ(grown.left(), small.left());
}

TEST_F(FormPlacesTest, AFormThatGrowsWhereThereIsRoomStaysWhereItIs) {
    Form& dates = Open(u"DateRangefrm"_s);
    dates.Move(600, 300);
    Click(Find(dates.Widget(), u"Command1"_s));
    EXPECT_EQ(dates.Frame().pos(), QPoint(40, 20));
}

TEST_F(FormPlacesTest, AFormTooHighForTheMainWindowBeginsAtItsUpperEdge) {
    Form& form = Open(u"Newfrm"_s);
    form.SetHeight(TwipsOf(Room().height() + 100));
    form.KeepInMainWindow();
    EXPECT_EQ(form.Frame().y(), 0);
}

TEST_F(FormPlacesTest, WhatIsMovedBeyondTheEdgesIsReachedByTheAreasBars) {
    const Form& form = Open(u"OtherOptions"_s);
    EXPECT_FALSE(Area().horizontalScrollBar()->isVisible());
    EXPECT_FALSE(Area().verticalScrollBar()->isVisible());
    form.Frame().move(Room().width() - 100, Room().height() - 100);
    Settle();
    EXPECT_TRUE(Area().horizontalScrollBar()->isVisible());
    EXPECT_TRUE(Area().verticalScrollBar()->isVisible());
}

TEST_F(FormPlacesTest, WhatGetsTheKeyboardIsBroughtIntoView) {
    const Form& form = Open(u"OtherOptions"_s);
    const auto focused = [&](const QString& name) {
        auto& control = Find(form.Widget(), name);
        control.setFocus(Qt::TabFocusReason);
        Settle();
        return QRect(control.mapTo(Area().viewport(), QPoint()), control.size());
    };
    constexpr int Margin = 8;
    Find(form.Widget(), u"Option1"_s).setFocus();
    form.Frame().move(Room().width() - 100, Room().height() - 60);
    Settle();
    const QRect last = focused(u"Cancel"_s);
    EXPECT_EQ(last.bottomRight(), QPoint(Room().width() - Margin, Room().height() - Margin));
    form.Frame().move(-form.Frame().width(), -form.Frame().height() + 60);
    Settle();
    const QRect first = focused(u"Option1"_s);
    EXPECT_EQ(first.left(), Margin);
    EXPECT_TRUE(Room().contains(first));
}

TEST_F(FormPlacesTest, AFormIsOpenedInsideASmallMainWindow) {
    SizeMainWindow({1024, 570});
    for (const QString& name : InMainWindow) {
        SCOPED_TRACE(name.toStdString());
        Form& form = Open(name);
        EXPECT_TRUE(Room().contains(form.Frame().geometry()));
        Close(form);
    }
}

} // namespace

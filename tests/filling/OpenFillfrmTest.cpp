#include "tests/filling/FillingTest.h"

#include "platform/forms/DefaultForms.h"
#include "platform/forms/MainWindowArea.h"
#include "platform/runtime/Dates.h"

#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>
#include <gtest/gtest.h>

namespace {

using S = QStringList;

class OpenFillfrmTest : public FillingTest {
protected:
    static S Entries() {
        auto& list = List();
        S entries;
        for (int row = 0; row < list.count(); ++row)
            entries += list.item(row)->text();
        return entries;
    }
    static OpenFillfrm& TheForm() {
        return dynamic_cast<OpenFillfrm&>(DefaultForm(OpenFillfrm::FormName));
    }
    static QListWidget& List() { return Find<QListWidget>(TheForm(), QStringLiteral("ChartList")); }
    static bool IsOpen() { return ExistingForm(OpenFillfrm::FormName) != nullptr; }
    /// Goes to another form of the program and comes back.
    static void LeaveAndReturn(Form& form) {
        DefaultForm(QStringLiteral("frmAboutDutygrid")).Show();
        Settle();
        form.SetFocus();
        Settle();
    }
    static constexpr int Wednesday = 3;
};

TEST_F(OpenFillfrmTest, ShowsItsCaptions) {
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 1));
    OpenFillfrm& form = ShowList();
    EXPECT_EQ(form.Caption(), QStringLiteral("Available Sparkit Dutygrids"));
    EXPECT_EQ(TextAt(form, QStringLiteral("Label1")),
              QStringLiteral("Available Dutygrids for this week"));
    EXPECT_EQ(Button(form, QStringLiteral("Ok")).text(), QStringLiteral("Ok"));
    EXPECT_EQ(Button(form, QStringLiteral("Cancel")).text(), QStringLiteral("Cancel"));
    EXPECT_TRUE(Find<QWidget>(form, QStringLiteral("Shape1")).isVisible());
    EXPECT_EQ(Find<QLabel>(form, QStringLiteral("Label1")).buddy(), &List());
}

TEST_F(OpenFillfrmTest, ListsTheAccountsOwnChartsOfTheWeekThatHoldsToday) {
    const QList<Job> jobs = JobsOn(QStringLiteral("Wed"), 1);
    MakeChart(QStringLiteral("Chores Anna"), jobs);
    MakeChart(QStringLiteral("Chores Ben"), jobs, QStringLiteral("Ben"));
    MakeChart(QStringLiteral("Old Anna"), jobs, QStringLiteral("Anna"), QDate(2001, 2, 18),
              QDate(2001, 2, 24));
    MakeChart(QStringLiteral("Next Anna"), jobs, QStringLiteral("Anna"), QDate(2001, 3, 11),
              QDate(2001, 3, 17));
    MakeChart(QStringLiteral("Garden Anna"), jobs);
    OpenFillfrm& form = ShowList();
    EXPECT_EQ(Entries(), (S{QStringLiteral("Chores Anna"), QStringLiteral("Garden Anna")}));
    EXPECT_TRUE(Button(form, QStringLiteral("Ok")).isVisible());
}

TEST_F(OpenFillfrmTest, AChartOfTheWeekJustPastIsRolledOnAndListed) {
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 1),
              QStringLiteral("Anna"), QDate(2001, 2, 25), QDate(2001, 3, 3));
    ShowList();
    EXPECT_EQ(Entries(), S{QStringLiteral("Chores Anna")});
    EXPECT_TRUE(Rows(QStringLiteral("Chores Anna"))
                    .value(0)
                    .contains(QStringLiteral("2001-03-04|2001-03-10")));
}

TEST_F(OpenFillfrmTest, WithoutAChartTheListIsEmptyAndOnlyCancelRemains) {
    MakeChart(QStringLiteral("Chores Ben"), JobsOn(QStringLiteral("Wed"), 1),
              QStringLiteral("Ben"));
    OpenFillfrm& form = ShowList();
    EXPECT_EQ(Entries(), S{});
    EXPECT_FALSE(Button(form, QStringLiteral("Ok")).isVisible());
    EXPECT_TRUE(Button(form, QStringLiteral("Cancel")).isVisible());
    Click(Button(form, QStringLiteral("Cancel")));
    EXPECT_FALSE(IsOpen());
}

TEST_F(OpenFillfrmTest, OkComesBackWhenAChartHasBeenMadeMeanwhile) {
    OpenFillfrm& form = ShowList();
    EXPECT_FALSE(Button(form, QStringLiteral("Ok")).isVisible());
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 1));
    LeaveAndReturn(form);
    EXPECT_TRUE(Button(form, QStringLiteral("Ok")).isVisible());
}

TEST_F(OpenFillfrmTest, OkWithoutASelectionAsksForOneAndTheFormStays) {
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 1));
    OpenFillfrm& form = ShowList();
    Boxes.Expect(QStringLiteral("Please select a Dutygrid to open"));
    Click(Button(form, QStringLiteral("Ok")));
    ASSERT_EQ(Boxes.Shown().size(), 1);
    EXPECT_EQ(Boxes.Shown().value(0).Icon, PromptIcon::Exclamation);
    EXPECT_EQ(Boxes.Shown().value(0).Title, QStringLiteral("Sparkit Dutygrid"));
    EXPECT_TRUE(IsOpen());
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(ChartFormIndex, 0);
}

TEST_F(OpenFillfrmTest, OfSeveralSelectedChartsTheLastCounts) {
    for (const char* name : {"A Anna", "B Anna", "C Anna"})
        MakeChart(QString::fromLatin1(name), JobsOn(QStringLiteral("Wed"), 1));
    OpenFillfrm& form = ShowList();
    EXPECT_EQ(form.SelectedChart(), QString());
    List().setSelectionMode(QAbstractItemView::MultiSelection);
    ClickRow(List(), 1);
    ClickRow(List(), 0);
    EXPECT_EQ(form.SelectedChart(), QStringLiteral("B Anna"));
}

TEST_F(OpenFillfrmTest, AReturnToTheFormAddsItsEntriesOnceMoreAndEitherOpensTheChart) {
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 1));
    OpenFillfrm& form = ShowList();
    LeaveAndReturn(form);
    EXPECT_EQ(Entries(), (S{QStringLiteral("Chores Anna"), QStringLiteral("Chores Anna")}));
    ClickRow(List(), 1);
    Click(Button(form, QStringLiteral("Ok")));
    ASSERT_NE(ViewerAt(0), nullptr);
    EXPECT_EQ(ViewerAt(0)->ChartName, QStringLiteral("Chores Anna"));
}

TEST_F(OpenFillfrmTest, ADoubleClickOpensTheChart) {
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 2));
    ShowList();
    DoubleClickRow(List(), 0);
    EXPECT_FALSE(IsOpen());
    ASSERT_NE(ViewerAt(0), nullptr);
    EXPECT_EQ(Jobs(*ViewerAt(0)), (S{QStringLiteral("Wed job 1"), QStringLiteral("Wed job 2")}));
}

TEST_F(OpenFillfrmTest, ADoubleClickOnTheEmptyPartIsOk) {
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 1));
    ShowList();
    for (const bool isSelected : {false, true}) {
        if (isSelected)
            ClickRow(List(), 0);
        Boxes.Expect(QStringLiteral("Please select a Dutygrid to open"));
        // Its first click takes the selection away.
        DoubleClickEmptyPart(List());
        Boxes.VerifyAllShown();
        EXPECT_TRUE(IsOpen());
    }
    EXPECT_EQ(ChartFormIndex, 0);
}

TEST_F(OpenFillfrmTest, ADoubleClickByAnotherButtonOpensNothing) {
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 1));
    ShowList();
    ClickRow(List(), 0);
    const QPoint row = List().visualItemRect(List().item(0)).center();
    QTest::mouseDClick(List().viewport(), Qt::RightButton, {}, row);
    Settle();
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(ChartFormIndex, 0);
}

TEST_F(OpenFillfrmTest, EnterInTheListIsOk) {
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 1));
    ShowList();
    Boxes.Expect(QStringLiteral("Please select a Dutygrid to open"));
    Press(List(), Qt::Key_Enter);
    Settle();
    EXPECT_TRUE(IsOpen());

    ClickRow(List(), 0);
    Press(List(), Qt::Key_Return);
    Settle();
    EXPECT_FALSE(IsOpen());
    ASSERT_NE(ViewerAt(0), nullptr);
    EXPECT_EQ(ViewerAt(0)->ChartName, QStringLiteral("Chores Anna"));
}

TEST_F(OpenFillfrmTest, DayBeforeTodayCountsFromSunday) {
    // 4 March 2001 was a Sunday.
    const QList<int> expected = {7, 1, 2, 3, 4, 5, 6};
    for (int day = 0; day < 7; ++day) {
        SetToday(QDate(2001, 3, 4 + day));
        EXPECT_EQ(OpenFillfrm::DayBeforeToday(), expected.at(day)) << "4 March and " << day;
    }
}

TEST_F(OpenFillfrmTest, OnASundayTheFirstPageWrapsFromSaturdayToSunday) {
    SetToday(QDate(2001, 3, 4));
    MakeChart(QStringLiteral("Chores Anna"), {{QStringLiteral("Rest"), QStringLiteral("Sun")},
                                              {QStringLiteral("Work"), QStringLiteral("Mon")}});
    const ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    EXPECT_EQ(viewer.DayNumber, 1);
    EXPECT_EQ(Jobs(viewer), S{QStringLiteral("Rest")});
}

TEST_F(OpenFillfrmTest, TheFirstChartOfTheRunIsOpenedWithoutAQuestion) {
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 1));
    const ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    EXPECT_TRUE(Boxes.Shown().isEmpty());
    EXPECT_EQ(viewer.Tag, QStringLiteral("USED"));
    EXPECT_EQ(viewer.ChartName, QStringLiteral("Chores Anna"));
    EXPECT_EQ(viewer.FormIndex, 0);
    EXPECT_EQ(ChartFormIndex, 1);
    EXPECT_TRUE(viewer.isVisible());
    EXPECT_FALSE(IsOpen());
}

TEST_F(OpenFillfrmTest, SundaysRowsAreReadBeforeTheViewerFirstComesToTheFront) {
    MakeChart(QStringLiteral("Chores Anna"), {{QStringLiteral("Sing"), QStringLiteral("Sun")},
                                              {QStringLiteral("Dance"), QStringLiteral("Sun")},
                                              {QStringLiteral("Cook"), QStringLiteral("Wed")}});
    OpenFillfrm& form = ShowList();
    ClickRow(List(), 0);
    Button(form, QStringLiteral("Ok")).click();
    // The handler has ended; no event has been delivered since.
    ChartViewer* viewer = ViewerAt(0);
    ASSERT_NE(viewer, nullptr);
    EXPECT_EQ(viewer->Caption(), QStringLiteral("Filling Chores Anna chart"));
    EXPECT_EQ(viewer->DayNumber, Wednesday);
    EXPECT_EQ(Jobs(*viewer), (S{QStringLiteral("Sing"), QStringLiteral("Dance")}));
    EXPECT_EQ(TextAt(*viewer, QStringLiteral("DayLbl")), QStringLiteral("Sunday 3/4/2001"));
    Settle();
    EXPECT_EQ(Jobs(*viewer), S{QStringLiteral("Cook")});
    EXPECT_EQ(viewer->DayNumber, Wednesday + 1);
    EXPECT_EQ(viewer->Caption(), QStringLiteral("Anna's Chores Dutygrid"));
}

TEST_F(OpenFillfrmTest, SundaysTicksOutlastTheOpening) {
    MakeChart(QStringLiteral("Chores Anna"), {{QStringLiteral("Sing"), QStringLiteral("Sun")},
                                              {QStringLiteral("Dance"), QStringLiteral("Sun")},
                                              {QStringLiteral("Cook"), QStringLiteral("Wed")}});
    ChartViewer& first = OpenChart(QStringLiteral("Chores Anna"));
    Click(Button(first, QStringLiteral("NextDay")));
    Click(first.ClearImg[1]);
    Click(Button(first, QStringLiteral("Ok")));
    OpenChart(QStringLiteral("Chores Anna"));
    EXPECT_EQ(Ticked(QStringLiteral("Chores Anna")), S{QStringLiteral("Dance|Sun")});
}

TEST_F(OpenFillfrmTest, AChartWithoutASundayKeepsTheDesignedRowUntilTheFirstPage) {
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 2));
    OpenFillfrm& form = ShowList();
    ClickRow(List(), 0);
    Button(form, QStringLiteral("Ok")).click();
    ChartViewer* viewer = ViewerAt(0);
    ASSERT_NE(viewer, nullptr);
    EXPECT_EQ(Jobs(*viewer), S{QStringLiteral("zzz")});
    EXPECT_EQ(TextAt(*viewer, QStringLiteral("DayLbl")), QStringLiteral("ZZZ"));
    Settle();
    EXPECT_EQ(Jobs(*viewer), (S{QStringLiteral("Wed job 1"), QStringLiteral("Wed job 2")}));
    EXPECT_EQ(Ticked(QStringLiteral("Chores Anna")), S{});
}

TEST_F(OpenFillfrmTest, OkOnTheViewerTakesOffTheMarkOfAChartInUse) {
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 1));
    const ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    EXPECT_EQ(viewer.Tag, QStringLiteral("USED"));
    // The form is deleted only when events are delivered.
    Button(viewer, QStringLiteral("Ok")).click();
    EXPECT_EQ(viewer.Tag, QString());
    EXPECT_TRUE(viewer.IsUnloaded());
}

TEST_F(OpenFillfrmTest, AfterOkOnTheViewerTheNextOpeningAsksNothing) {
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 2));
    ChartViewer& first = OpenChart(QStringLiteral("Chores Anna"));
    Click(Button(first, QStringLiteral("Ok")));
    EXPECT_EQ(ViewerAt(0), nullptr);
    const ChartViewer& second = OpenChart(QStringLiteral("Chores Anna"));
    EXPECT_TRUE(Boxes.Shown().isEmpty());
    EXPECT_EQ(second.FormIndex, 1);
    EXPECT_EQ(ChartFormIndex, 2);
}

TEST_F(OpenFillfrmTest, OnYesTheChartInUseIsClosedWithoutItsTicksAndANewViewerOpens) {
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 2));
    ChartViewer& first = OpenChart(QStringLiteral("Chores Anna"));
    Click(first.ClearImg[0]);
    EXPECT_EQ(PointsIn(), QStringLiteral("5"));
    const QPointer<ChartViewer> old = &first;
    Boxes.Expect(ListQuestion, PromptAnswer::Yes);
    const ChartViewer& second = OpenChart(QStringLiteral("Chores Anna"));
    EXPECT_TRUE(old.isNull());
    EXPECT_EQ(Boxes.Last().Buttons, PromptButtons::YesNo);
    EXPECT_TRUE(Boxes.Last().BeginsOnNo) << "the last ticks are lost";
    EXPECT_EQ(ViewerAt(0), nullptr);
    EXPECT_EQ(second.FormIndex, 1);
    EXPECT_FALSE(second.CheckVisible(0));
    EXPECT_EQ(Ticked(QStringLiteral("Chores Anna")), S{});
    EXPECT_EQ(PointsIn(), QStringLiteral("5"));
    EXPECT_FALSE(IsOpen());
}

TEST_F(OpenFillfrmTest, OnNoTheChartInUseComesToTheFrontAndTheListCloses) {
    MakeChart(QStringLiteral("Chores Anna"), {{QStringLiteral("Cook"), QStringLiteral("Wed")},
                                              {QStringLiteral("Sweep"), QStringLiteral("Thu")},
                                              {QStringLiteral("Dust"), QStringLiteral("Fri")}});
    MakeChart(QStringLiteral("Garden Anna"), JobsOn(QStringLiteral("Wed"), 1));
    ChartViewer& first = OpenChart(QStringLiteral("Chores Anna"));
    ShowList();
    Boxes.Expect(ListQuestion, PromptAnswer::No);
    Pick(QStringLiteral("Garden Anna"));
    EXPECT_EQ(ViewerAt(0), &first);
    EXPECT_TRUE(first.isVisible());
    EXPECT_EQ(ChartFormIndex, 1);
    EXPECT_FALSE(IsOpen());
    // It came to the front from another form, so the page was turned, once.
    EXPECT_EQ(Jobs(first), S{QStringLiteral("Sweep")});
}

TEST_F(OpenFillfrmTest, OnNoTheChartInUseComesToTheFrontAlsoBeforeAFormOpenedSince) {
    MakeChart(QStringLiteral("Chores Anna"), {{QStringLiteral("Cook"), QStringLiteral("Wed")},
                                              {QStringLiteral("Sweep"), QStringLiteral("Thu")}});
    ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    DefaultForm(QStringLiteral("frmAboutDutygrid")).Show();
    Settle();
    ShowList();
    Boxes.Expect(ListQuestion, PromptAnswer::No);
    Pick(QStringLiteral("Chores Anna"));
    EXPECT_TRUE(MainWindowArea()->activeSubWindow() == &viewer.Frame());
    EXPECT_EQ(Jobs(viewer), S{QStringLiteral("Sweep")});
}

TEST_F(OpenFillfrmTest, AChartEditorOpenedAfterTheViewerHidesItFromTheQuestion) {
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 1));
    const ChartViewer& first = OpenChart(QStringLiteral("Chores Anna"));
    // The slot that an editor takes.
    ++ChartFormIndex;
    const ChartViewer& second = OpenChart(QStringLiteral("Chores Anna"));
    EXPECT_TRUE(Boxes.Shown().isEmpty());
    EXPECT_EQ(second.FormIndex, 2);
    EXPECT_EQ(ViewerAt(0), &first);
    EXPECT_EQ(ViewerAt(1), nullptr);
}

TEST_F(OpenFillfrmTest, AViewerClosedByItsFrameAsksNothingAndKeepsNoTicks) {
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 1));
    ChartViewer& first = OpenChart(QStringLiteral("Chores Anna"));
    Click(first.ClearImg[0]);
    first.Frame().close();
    Settle();
    EXPECT_EQ(ViewerAt(0), nullptr);
    OpenChart(QStringLiteral("Chores Anna"));
    EXPECT_TRUE(Boxes.Shown().isEmpty());
    EXPECT_EQ(Ticked(QStringLiteral("Chores Anna")), S{});
    EXPECT_EQ(PointsIn(), QStringLiteral("5"));
}

TEST_F(OpenFillfrmTest, AFailedReadIsSkippedAndTheRestOfTheOpeningRuns) {
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 1));
    OpenFillfrm& form = ShowList();
    Arrange([] { Database().DeleteChart(QStringLiteral("Chores Anna")); });
    ClickRow(List(), 0);
    Button(form, QStringLiteral("Ok")).click();
    EXPECT_TRUE(Boxes.Shown().isEmpty());
    ASSERT_NE(ViewerAt(0), nullptr);
    EXPECT_TRUE(ViewerAt(0)->isVisible());
    EXPECT_EQ(ChartFormIndex, 1);
    EXPECT_FALSE(IsOpen());
    // Nothing covers the viewer's own first page.
    Boxes.ExpectMissingTable(QStringLiteral("Chores Anna"));
    Settle();
    EXPECT_EQ(Jobs(*ViewerAt(0)), S{QStringLiteral("zzz")});
}

TEST_F(OpenFillfrmTest, BeyondTheLastSlotTheCounterStaysAndTheChartStillOpens) {
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 1));
    ChartFormIndex = 32767;
    ShowList();
    Pick(QStringLiteral("Chores Anna"));
    EXPECT_EQ(ChartFormIndex, 32767);
    ASSERT_NE(ViewerAt(32767), nullptr);
    EXPECT_EQ(Jobs(*ViewerAt(32767)), S{QStringLiteral("Wed job 1")});
    EXPECT_FALSE(IsOpen());
}

TEST_F(OpenFillfrmTest, TheKeyboardPicksAndOpensAChart) {
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 1));
    OpenFillfrm& form = ShowList();
    List().setFocus();
    Press(List(), Qt::Key_Down);
    Press(List(), Qt::Key_Space);
    Press(List(), Qt::Key_Tab);
    EXPECT_TRUE(Button(form, QStringLiteral("Ok")).hasFocus());
    Press(Button(form, QStringLiteral("Ok")), Qt::Key_Return);
    Settle();
    EXPECT_NE(ViewerAt(0), nullptr);
}

TEST_F(OpenFillfrmTest, AChartWithAnyNameOpens) {
    const QString name = QStringLiteral("Ann's \"tidy/up\" .. \U0001F9F9 [list] Anna");
    MakeChart(name, JobsOn(QStringLiteral("Wed"), 1));
    const ChartViewer& viewer = OpenChart(name);
    EXPECT_EQ(Jobs(viewer), S{QStringLiteral("Wed job 1")});
    EXPECT_EQ(viewer.Caption(), QStringLiteral("Anna's Ann's Dutygrid"));
}

} // namespace

#include "tests/reports/ReportTest.h"

#include "shell/LogIn.h"
#include "shell/MainForm.h"

#include <QPointer>
#include <QTest>

namespace {

/// The report by dates, and the wait for them.
class DateRangeReportTest : public ReportTest {
protected:
    void SetUp() override {
        ReportTest::SetUp();
        Open();
    }

    void AskForDatesOf(const QString& kid) {
        Pick(Kids, kid);
        AskForDates();
    }
    static void ExitDialog() { Click(Find(Dialog(), u"cmdExit"_s)); }
    static MainForm& MainWindow() { return dynamic_cast<MainForm&>(DefaultForm(u"MainForm"_s)); }
    static void PushToolbar(QLatin1String key) {
        MainWindow().ToolbarButton(key).trigger();
        Settle();
    }
    /// Dates that come when nobody is to wait for them any more print nothing.
    void ExpectWaitIsOver() {
        Report().StartDate = QDate(2001, 3, 1);
        Report().EndDate = QDate(2001, 3, 31);
        Report().DatesChosen = true;
        Settle();
        EXPECT_TRUE(Paper.Files().isEmpty());
    }
};

TEST_F(DateRangeReportTest, PrintsTheTablesThatBeginInTheSpan) {
    AskForDatesOf(u"Anna"_s);
    EXPECT_EQ(Report().cursor().shape(), Qt::ArrowCursor) << "no hourglass while dates are chosen";
    GiveDates(QDate(2001, 3, 4), QDate(2001, 3, 11));
    EXPECT_EQ(Report().SelectedCharts, (QStringList{Week2, Week1}));
    ASSERT_EQ(Paper.Files().size(), 1);
    const PrintedPages pages = LastPages();
    EXPECT_EQ(pages.LineAt(1, 0), u"Anna - Job Report"_s);
    EXPECT_EQ(pages.LineAt(1, 1), u"Starting from: 3/4/2001 until 3/11/2001"_s);
    EXPECT_EQ(pages.LineAt(1, 3), u"1. Dust 1 1"_s);
    EXPECT_EQ(pages.LineAt(1, 4), u"2. Sweep 2 1"_s);
    EXPECT_FALSE(Report().DatesChosen);
    EXPECT_EQ(Report().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(DateRangeReportTest, ChildIsTheOneSelectedWhenDatesWereAskedFor) {
    AskForDatesOf(u"Anna"_s);
    ToFront(Report());
    Pick(Kids, u"Ben"_s);
    ToFront(Dialog());
    GiveDates(QDate(2001, 3, 1), QDate(2001, 3, 31));
    EXPECT_EQ(LastPages().LineAt(1, 0), u"Anna - Job Report"_s);
}

TEST_F(DateRangeReportTest, EqualDatesAreRefusedAfterTheDialogClosedAndTheListWasBuilt) {
    AskForDatesOf(u"Anna"_s);
    GiveDate(u"Command1"_s, QDate(2001, 3, 4));
    Boxes.Expect(u"Starting from: 3/4/2001 until 3/4/2001"_s);
    Boxes.Expect(EndNotBehindStart, PromptAnswer::Ok, [] {
        EXPECT_EQ(ExistingForm(u"DateRangefrm"_s), nullptr);
        EXPECT_EQ(Report().SelectedCharts, QStringList{Week1});
        EXPECT_TRUE(Report().DatesChosen);
        EXPECT_EQ(Report().cursor().shape(), Qt::WaitCursor);
    });
    GiveDate(u"Command2"_s, QDate(2001, 3, 4));
    EXPECT_FALSE(Report().DatesChosen);
    EXPECT_EQ(Report().cursor().shape(), Qt::ArrowCursor);
    EXPECT_TRUE(Paper.Files().isEmpty());
}

TEST_F(DateRangeReportTest, EndBeforeTheStartIsRefused) {
    AskForDatesOf(u"Anna"_s);
    GiveDate(u"Command1"_s, QDate(2001, 3, 31));
    Boxes.Expect(u"Starting from: 3/31/2001 until 3/1/2001"_s);
    Boxes.Expect(EndNotBehindStart);
    GiveDate(u"Command2"_s, QDate(2001, 3, 1));
    EXPECT_TRUE(Paper.Files().isEmpty());
}

TEST_F(DateRangeReportTest, SpanWithOneTableHasNone) {
    AskForDatesOf(u"Anna"_s);
    GiveDate(u"Command1"_s, QDate(2001, 3, 1));
    Boxes.Expect(u"Starting from: 3/1/2001 until 3/10/2001"_s);
    Boxes.Expect(NoneInRange);
    GiveDate(u"Command2"_s, QDate(2001, 3, 10));
    EXPECT_EQ(Report().SelectedCharts, QStringList{Week1});
    EXPECT_TRUE(Paper.Files().isEmpty());
    EXPECT_FALSE(Report().DatesChosen);
}

TEST_F(DateRangeReportTest, SpanWithoutATableHasNone) {
    AskForDatesOf(u"Anna"_s);
    GiveDate(u"Command1"_s, QDate(2001, 2, 20));
    Boxes.Expect(u"Starting from: 2/20/2001 until 3/1/2001"_s);
    Boxes.Expect(NoneInRange);
    GiveDate(u"Command2"_s, QDate(2001, 3, 1));
    EXPECT_TRUE(Report().SelectedCharts.isEmpty());
    EXPECT_TRUE(Paper.Files().isEmpty());
}

TEST_F(DateRangeReportTest, SpanWithoutATableKeepsAnEarlierSelection) {
    Pick(Kids, u"Anna"_s);
    Pick(Histories, Week2);
    Pick(Histories, Week3, Qt::ControlModifier);
    Push(u"Ok2"_s);
    AskForDatesOf(u"Anna"_s);
    GiveDates(QDate(2001, 2, 20), QDate(2001, 3, 1));
    ASSERT_EQ(Paper.Files().size(), 2);
    EXPECT_EQ(LastPages().LineAt(1, 1), u"Starting from: 2/20/2001 until 3/1/2001"_s);
    EXPECT_EQ(LastPages().LineAt(1, 3), u"1. Dust 1 1"_s);
}

TEST_F(DateRangeReportTest, FailedPrintIsToldAsASpanWithoutTables) {
    QFile::remove(Path(u"Jobs/HomeJobs.dat"_s));
    AskForDatesOf(u"Anna"_s);
    GiveDate(u"Command1"_s, QDate(2001, 3, 1));
    Boxes.Expect(u"Starting from: 3/1/2001 until 3/31/2001"_s);
    Boxes.Expect(NoneInRange);
    GiveDate(u"Command2"_s, QDate(2001, 3, 31));
    EXPECT_TRUE(Paper.Files().isEmpty());
    EXPECT_FALSE(Report().DatesChosen);
}

TEST_F(DateRangeReportTest, WindowStaysLiveDuringTheWait) {
    AskForDatesOf(u"Anna"_s);
    ToFront(Report());
    Pick(Kids, u"Anna"_s);
    Pick(Histories, Week1);
    Push(u"Ok2"_s);
    EXPECT_EQ(Paper.Files().size(), 1);
    DefaultForm(u"frmAboutDutygrid"_s).Show();
    Settle();
    EXPECT_TRUE(IsShown(u"frmAboutDutygrid"_s));
    EXPECT_TRUE(DefaultForm(u"frmAboutDutygrid"_s).Unload());
    ToFront(Dialog());
    GiveDates(QDate(2001, 3, 1), QDate(2001, 3, 31));
    EXPECT_EQ(Paper.Files().size(), 2);
}

// Several waits

TEST_F(DateRangeReportTest, ExitOfTheDialogLeavesTheWaitToALaterOne) {
    AskForDatesOf(u"Anna"_s);
    ExitDialog();
    EXPECT_TRUE(Paper.Files().isEmpty());
    Dialog().Show();
    Settle();
    GiveDates(QDate(2001, 3, 1), QDate(2001, 3, 31));
    ASSERT_EQ(Paper.Files().size(), 1);
    EXPECT_EQ(LastPages().LineAt(1, 0), u"Anna - Job Report"_s);
}

TEST_F(DateRangeReportTest, LaterReportTakesTheDatesFirstAndTheEarlierGoesOnWaiting) {
    MakeChartTable(u"History Chores Ben from: 3/11/2001"_s, {{u"Dust"_s}}, u"Ben"_s,
                   QDate(2001, 3, 11), QDate(2001, 3, 17));
    AskForDatesOf(u"Anna"_s);
    ExitDialog();
    AskForDatesOf(u"Ben"_s);
    GiveDates(QDate(2001, 3, 1), QDate(2001, 3, 31));
    ASSERT_EQ(Paper.Files().size(), 1);
    EXPECT_EQ(LastPages().LineAt(1, 0), u"Ben - Job Report"_s);
    EXPECT_FALSE(Report().DatesChosen);
    Settle();
    EXPECT_EQ(Paper.Files().size(), 1) << "the earlier one waits";

    Dialog().Show();
    Settle();
    GiveDates(QDate(2001, 3, 4), QDate(2001, 3, 18));
    ASSERT_EQ(Paper.Files().size(), 2);
    EXPECT_EQ(LastPages().LineAt(1, 0), u"Anna - Job Report"_s);
    EXPECT_EQ(LastPages().LineAt(1, 1), u"Starting from: 3/4/2001 until 3/18/2001"_s);
}

TEST_F(DateRangeReportTest, TwoReportsWaitingForOneDialogAreServedOneByOne) {
    AskForDatesOf(u"Ben"_s);
    ToFront(Report());
    AskForDatesOf(u"Anna"_s);
    GiveDates(QDate(2001, 3, 1), QDate(2001, 3, 31));
    ASSERT_EQ(Paper.Files().size(), 1);
    EXPECT_EQ(LastPages().LineAt(1, 0), u"Anna - Job Report"_s);
}

TEST_F(DateRangeReportTest, HundredWaitsCostNothing) {
    for (int wait = 0; wait < 100; ++wait) {
        Boxes.Expect(WithDates, PromptAnswer::Yes);
        QTest::mouseClick(&Find(Report(), u"Command2"_s), Qt::LeftButton);
    }
    Settle();
    ToFront(Report());
    AskForDatesOf(u"Anna"_s);
    GiveDates(QDate(2001, 3, 1), QDate(2001, 3, 31));
    EXPECT_EQ(Paper.Files().size(), 1);
}

TEST_F(DateRangeReportTest, DatesOfNobodyDoNotServeTheNextReport) {
    Dialog().Show();
    Settle();
    GiveDates(QDate(2001, 3, 1), QDate(2001, 3, 31));
    EXPECT_TRUE(Report().DatesChosen);
    AskForDatesOf(u"Anna"_s);
    EXPECT_FALSE(Report().DatesChosen);
    EXPECT_TRUE(Paper.Files().isEmpty());
}

// Leaving in the middle of the wait

TEST_F(DateRangeReportTest, FormThatGoesTakesItsWaitAlong) {
    AskForDatesOf(u"Anna"_s);
    const QPointer<Reportfrm> form = &Report();
    Push(u"Cancel"_s);
    EXPECT_TRUE(form.isNull());
    EXPECT_TRUE(IsShown(u"DateRangefrm"_s));
    GiveDates(QDate(2001, 3, 1), QDate(2001, 3, 31));
    EXPECT_TRUE(Paper.Files().isEmpty());
    // A fresh instance, hidden, has been given the dates.
    ASSERT_NE(ExistingForm(u"Reportfrm"_s), nullptr);
    EXPECT_FALSE(IsShown(u"Reportfrm"_s));
    EXPECT_EQ(Report().EndDate, QDate(2001, 3, 31));
    Open();
    AskForDatesOf(u"Anna"_s);
    EXPECT_TRUE(Paper.Files().isEmpty()) << "only dates of its own serve it";
    GiveDates(QDate(2001, 3, 4), QDate(2001, 3, 18));
    EXPECT_EQ(LastPages().LineAt(1, 1), u"Starting from: 3/4/2001 until 3/18/2001"_s);
}

TEST_F(DateRangeReportTest, FormClosedByItsFrameDuringTheWait) {
    AskForDatesOf(u"Anna"_s);
    Report().Frame().close();
    Settle();
    EXPECT_EQ(ExistingForm(u"Reportfrm"_s), nullptr);
    ExpectWaitIsOver();
}

TEST_F(DateRangeReportTest, FormThatGoesBetweenTheDatesAndTheReport) {
    AskForDatesOf(u"Anna"_s);
    Report().StartDate = QDate(2001, 3, 1);
    Report().EndDate = QDate(2001, 3, 31);
    Report().DatesChosen = true;
    Report().Unload();
    Settle();
    EXPECT_TRUE(Paper.Files().isEmpty());
}

TEST_F(DateRangeReportTest, ToolbarExitDuringTheWait) {
    AskForDatesOf(u"Anna"_s);
    PushToolbar(QLatin1String("Exit"));
    EXPECT_EQ(Ends, QList<int>{0});
    EXPECT_EQ(ExistingForm(u"Reportfrm"_s), nullptr);
    EXPECT_EQ(ExistingForm(u"DateRangefrm"_s), nullptr);
    ExpectWaitIsOver();
}

TEST_F(DateRangeReportTest, MenuExitDuringTheWait) {
    AskForDatesOf(u"Anna"_s);
    MainWindow().MenuEntry(QLatin1String("Exit")).trigger();
    Settle();
    EXPECT_EQ(Ends, QList<int>({0, 0}));
    ExpectWaitIsOver();
}

TEST_F(DateRangeReportTest, ClosingTheMainWindowDuringTheWait) {
    AskForDatesOf(u"Anna"_s);
    MainWindow().close();
    Settle();
    EXPECT_EQ(Ends, QList<int>{0});
    ExpectWaitIsOver();
}

TEST_F(DateRangeReportTest, ExitOfTheLogInFormDuringTheWait) {
    AskForDatesOf(u"Anna"_s);
    PushToolbar(QLatin1String("LogOff"));
    Click(Find(DefaultForm(u"LogIn"_s).Widget(), u"Exitbtn"_s));
    EXPECT_EQ(Ends, QList<int>{0});
    // The forms of the main window are still there on this way.
    ASSERT_NE(ExistingForm(u"Reportfrm"_s), nullptr);
    ExpectWaitIsOver();
}

TEST_F(DateRangeReportTest, WaitOutlivesALogOff) {
    AskForDatesOf(u"Anna"_s);
    PushToolbar(QLatin1String("LogOff"));
    EXPECT_FALSE(MainWindow().isVisible());
    DefaultForm(u"LogIn"_s).Hide();
    StartSession(u"Mum"_s, u"Teacher"_s);
    ToFront(Dialog());
    GiveDates(QDate(2001, 3, 1), QDate(2001, 3, 31));
    ASSERT_EQ(Paper.Files().size(), 1);
    EXPECT_EQ(LastPages().LineAt(1, 0), u"Anna - Job Report"_s);
}

} // namespace

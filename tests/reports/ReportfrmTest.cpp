#include "tests/reports/ReportTest.h"

#include "platform/runtime/Dates.h"
#include "tests/common/FullDisk.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace {

const QString NoChart =
    u"Please select a Sparkit from the name list and the Dutygrid you would like to print."_s;
const QString NoHistory = u"Please select a Sparkit from the name list and the History Report you "
                          "would like to print."_s;
const QString Charts = u"ListView1"_s;

class ReportfrmTest : public ReportTest {
protected:
    void SetUp() override {
        ReportTest::SetUp();
        Open();
    }
};

TEST_F(ReportfrmTest, TextsOfTheForm) {
    EXPECT_EQ(Report().Caption(), u"Sparkit Dutygrid Report"_s);
    const QList<std::pair<QString, QString>> labels = {{u"Label1"_s, u"Choose name:"_s},
                                                       {u"Label2"_s, u"Choose Dutygrid:"_s},
                                                       {u"Label3"_s, u"Print Dutygrid Report"_s},
                                                       {u"Label4"_s, u"Choose History Report:"_s}};
    for (const auto& [name, text] : labels)
        EXPECT_EQ(Find<QLabel>(Report(), name).text(), text);
    const QList<std::pair<QString, QString>> buttons = {
        {u"Ok"_s, u"Print Dutygrid Report"_s},
        {u"Ok2"_s, u"Print History Report"_s},
        {u"Command2"_s, u"Print Date Range History Reports"_s},
        {u"Command1"_s, u"Review Dutygrid"_s},
        {u"Cancel"_s, u"Exit"_s}};
    for (const auto& [name, text] : buttons)
        EXPECT_EQ(Find<QPushButton>(Report(), name).text(), text);
}

TEST_F(ReportfrmTest, ActivationListsTheChildrenAndTheChartsOfNobody) {
    EXPECT_EQ(Entries(Kids), (QStringList{u"Anna"_s, u"Ben"_s}));
    EXPECT_EQ(Selected(Kids), QStringList());
    EXPECT_EQ(Entries(Charts), QStringList{u"Spare"_s});
    EXPECT_EQ(Entries(Histories), QStringList());
}

TEST_F(ReportfrmTest, ClickOnAChildListsItsChartsAndItsHistory) {
    Pick(Kids, u"Anna"_s);
    EXPECT_EQ(Entries(Charts), (QStringList{Chores, Piano}));
    EXPECT_EQ(Entries(Histories), (QStringList{Week2, Week3, Week1}));
    EXPECT_EQ(Selected(Charts), QStringList());
    LookAt(Report(), u"Reportfrm-child"_s);
    Pick(Kids, u"Ben"_s);
    EXPECT_EQ(Entries(Charts), QStringList{u"Chores Ben"_s});
    EXPECT_EQ(Entries(Histories), QStringList{u"History Chores Ben from: 3/4/2001"_s});
}

TEST_F(ReportfrmTest, ListsHoldThisMonthsTablesOnly) {
    SetToday(QDate(2002, 4, 1));
    Pick(Kids, u"Anna"_s);
    EXPECT_EQ(Entries(Charts), QStringList());
    EXPECT_EQ(Entries(Histories), QStringList());
    SetToday(QDate(2002, 3, 31));
    Pick(Kids, u"Anna"_s);
    EXPECT_EQ(Entries(Charts), (QStringList{Chores, Piano}));
}

TEST_F(ReportfrmTest, ClickOnTheSameChildReadsTheListsAgain) {
    Pick(Kids, u"Anna"_s);
    Pick(Charts, Piano);
    Database().DeleteChart(Chores);
    Pick(Kids, u"Anna"_s);
    EXPECT_EQ(Entries(Charts), QStringList{Piano});
    EXPECT_EQ(Selected(Charts), QStringList());
}

TEST_F(ReportfrmTest, ClickBelowTheChildrenSelectsNobody) {
    Pick(Kids, u"Anna"_s);
    ClickBelow(Kids);
    EXPECT_EQ(Selected(Kids), QStringList());
    EXPECT_EQ(Entries(Charts), QStringList{u"Spare"_s});
}

TEST_F(ReportfrmTest, KeysChooseAChild) {
    Pick(Kids, u"Anna"_s);
    Press(List(Kids), Qt::Key_Down);
    EXPECT_EQ(Selected(Kids), QStringList{u"Ben"_s});
    EXPECT_EQ(Entries(Charts), QStringList{u"Chores Ben"_s});
}

TEST_F(ReportfrmTest, EnterPressesTheButtonOfItsList) {
    Boxes.Expect(NoChart);
    Press(List(Charts), Qt::Key_Return);
    Boxes.Expect(NoHistory);
    Press(List(Histories), Qt::Key_Enter);
}

TEST_F(ReportfrmTest, RightButtonChoosesAChildAsTheLeftDoes) {
    Pick(Kids, u"Anna"_s);
    RightClick(Kids, u"Ben"_s);
    EXPECT_EQ(Selected(Kids), QStringList{u"Ben"_s});
    EXPECT_EQ(Entries(Charts), QStringList{u"Chores Ben"_s});
    EXPECT_EQ(Entries(Histories), QStringList{u"History Chores Ben from: 3/4/2001"_s});
}

TEST_F(ReportfrmTest, EveryActivationBeginsAnew) {
    Pick(Kids, u"Anna"_s);
    Pick(Charts, Piano);
    DefaultForm(u"frmAboutDutygrid"_s).Show();
    Settle();
    MakeAccount(u"Zoe"_s, u"z"_s, u"Student"_s);
    ToFront(Report());
    EXPECT_EQ(Entries(Kids), (QStringList{u"Anna"_s, u"Ben"_s, u"Zoe"_s}));
    EXPECT_EQ(Selected(Kids), QStringList());
    EXPECT_EQ(Entries(Charts), QStringList{u"Spare"_s});
}

// A chart

TEST_F(ReportfrmTest, ChartOfAChildIsPrintedWithItsChecks) {
    Pick(Kids, u"Anna"_s);
    Pick(Charts, Chores);
    Push(u"Ok"_s);
    ASSERT_EQ(Paper.Files().size(), 1);
    const PrintedPages pages = LastPages();
    EXPECT_EQ(pages.LineAt(1, 1), u"Anna's Job List - from 3/4/2001 to 3/10/2001"_s);
    EXPECT_EQ(pages.FindAll(1, u"Sweep"_s).size(), 1);
    // The first row's check, and nothing in the mark cell of the second.
    EXPECT_FALSE(pages.Ink(1, QRectF(19.1, 4.25, 0.3, 0.4)).isEmpty());
    EXPECT_TRUE(pages.Ink(1, QRectF(18.3, 5.1, 1.5, 0.8)).isEmpty());
}

TEST_F(ReportfrmTest, OfSeveralChartsTheLastIsPrinted) {
    Pick(Kids, u"Anna"_s);
    Pick(Charts, Piano);
    Pick(Charts, Chores, Qt::ControlModifier);
    EXPECT_EQ(Selected(Charts), (QStringList{Chores, Piano}));
    Push(u"Ok"_s);
    EXPECT_TRUE(LastPrint().contains(u"Scales"_s));
    EXPECT_EQ(Report().SelectedCharts, (QStringList{Chores, Piano}));
}

TEST_F(ReportfrmTest, ChartButNoChildIsAskedFor) {
    Pick(Charts, u"Spare"_s);
    Boxes.Expect(NoChart, PromptAnswer::Ok,
                 [] { EXPECT_EQ(Report().cursor().shape(), Qt::WaitCursor); });
    Push(u"Ok"_s);
    EXPECT_EQ(Report().cursor().shape(), Qt::ArrowCursor);
    EXPECT_TRUE(Paper.Files().isEmpty());
}

TEST_F(ReportfrmTest, ChildButNoChartIsAskedFor) {
    Pick(Kids, u"Anna"_s);
    Boxes.Expect(NoChart);
    Push(u"Ok"_s);
    EXPECT_TRUE(Paper.Files().isEmpty());
}

TEST_F(ReportfrmTest, ChartThatIsGoneIsARunTimeErrorAndThePointerIsNormalAgain) {
    Pick(Kids, u"Anna"_s);
    Pick(Charts, Chores);
    Database().DeleteChart(Chores);
    Boxes.ExpectMissingTable(u"Chores Anna"_s);
    Push(u"Ok"_s);
    EXPECT_EQ(Report().cursor().shape(), Qt::ArrowCursor);
    EXPECT_TRUE(Paper.Files().isEmpty());
}

// History

TEST_F(ReportfrmTest, ReportOverSelectedHistoryTables) {
    Pick(Kids, u"Anna"_s);
    Pick(Histories, Week1);
    Pick(Histories, Week3, Qt::ControlModifier);
    Push(u"Ok2"_s);
    EXPECT_EQ(Report().SelectedCharts, (QStringList{Week3, Week1}));
    const PrintedPages pages = LastPages();
    EXPECT_EQ(pages.LineAt(1, 0), u"Anna - Job Report"_s);
    EXPECT_EQ(pages.LineAt(1, 1), Database().ReturnDateRange(u"Anna"_s, {Week1, Week3}));
    EXPECT_EQ(pages.LineAt(1, 3), u"1. Dust 2 0"_s);
    EXPECT_EQ(pages.LineAt(1, 4), u"2. Sweep 0 1"_s);
    EXPECT_EQ(pages.LineAt(1, 5), QString());
}

TEST_F(ReportfrmTest, ASmallerSelectionTakesThePlaceOfALargerOne) {
    Pick(Kids, u"Anna"_s);
    Pick(Histories, Week1);
    Pick(Histories, Week3, Qt::ControlModifier);
    Push(u"Ok2"_s);
    Pick(Histories, Week2);
    Push(u"Ok2"_s);
    EXPECT_EQ(Report().SelectedCharts, QStringList{Week2});
}

TEST_F(ReportfrmTest, NoHistorySelectedIsAskedForEvenWithAChartSelected) {
    Pick(Kids, u"Anna"_s);
    Pick(Charts, Chores);
    Boxes.Expect(NoHistory, PromptAnswer::Ok,
                 [] { EXPECT_EQ(Report().cursor().shape(), Qt::WaitCursor); });
    Push(u"Ok2"_s);
    EXPECT_EQ(Report().cursor().shape(), Qt::ArrowCursor);
    EXPECT_TRUE(Paper.Files().isEmpty());
}

TEST_F(ReportfrmTest, HistoryButNoChildIsAskedFor) {
    MakeChartTable(u"History of nobody"_s, {{u"Dust"_s}}, QString());
    ClickBelow(Kids);
    Pick(Histories, u"History of nobody"_s);
    Boxes.Expect(NoHistory);
    Push(u"Ok2"_s);
    EXPECT_TRUE(Paper.Files().isEmpty());
}

TEST_F(ReportfrmTest, MissingListOfJobsIsARunTimeError) {
    QFile::remove(Path(u"Jobs/HomeJobs.dat"_s));
    Pick(Kids, u"Anna"_s);
    Pick(Histories, Week1);
    Boxes.ExpectError(ErrorNumber::FileNotFound);
    Push(u"Ok2"_s);
    EXPECT_EQ(Report().cursor().shape(), Qt::ArrowCursor);
    EXPECT_TRUE(Paper.Files().isEmpty());
}

// Everything

TEST_F(ReportfrmTest, SelectedChartsAreReportedWithoutAQuestion) {
    Pick(Kids, u"Anna"_s);
    Pick(Charts, Chores);
    Pick(Charts, Piano, Qt::ControlModifier);
    Pick(Histories, Week2);
    Push(u"Command2"_s);
    const PrintedPages pages = LastPages();
    EXPECT_EQ(pages.LineAt(1, 1), Database().ReturnDateRange(u"Anna"_s, {Chores, Piano}));
    EXPECT_EQ(pages.LineAt(1, 3), u"1. Dust 1 0"_s);
    EXPECT_EQ(pages.LineAt(1, 4), u"2. Sweep 0 1"_s);
    EXPECT_EQ(pages.LineAt(1, 5), u"3. Scales 0 1"_s);
    EXPECT_EQ(Report().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(ReportfrmTest, WholeHistoryCoversTheChildAndSpansTheDatabase) {
    MakeChartTable(u"Old chart of Ben"_s, {{u"Dust"_s}}, u"Ben"_s, QDate(1999, 1, 3),
                   QDate(1999, 1, 9));
    Pick(Kids, u"Anna"_s);
    Boxes.Expect(WithDates, PromptAnswer::No,
                 [] { EXPECT_EQ(Report().cursor().shape(), Qt::WaitCursor); });
    Boxes.Expect(WholeHistory, PromptAnswer::Yes);
    Push(u"Command2"_s);
    for (const Prompt& question : Boxes.Shown())
        EXPECT_FALSE(question.BeginsOnNo) << "nothing is lost: " << question.Text.toStdString();
    EXPECT_EQ(Report().SelectedCharts, QStringList{u"All"_s});
    const PrintedPages pages = LastPages();
    EXPECT_EQ(pages.LineAt(1, 0), u"Anna - Job Report"_s);
    EXPECT_EQ(pages.LineAt(1, 1), u"Starting from: 1/3/1999 until 3/24/2001"_s);
    EXPECT_EQ(pages.LineAt(1, 3), u"1. Dust 2 1"_s);
    EXPECT_EQ(pages.LineAt(1, 4), u"2. Sweep 2 1"_s);
    EXPECT_EQ(pages.LineAt(1, 5), QString());
    EXPECT_EQ(Report().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(ReportfrmTest, WholeHistoryIsNotPrintedOnNo) {
    Pick(Kids, u"Anna"_s);
    Pick(Histories, Week1);
    Push(u"Ok2"_s);
    ASSERT_EQ(Report().SelectedCharts, QStringList{Week1});
    Boxes.Expect(WithDates, PromptAnswer::No);
    Boxes.Expect(WholeHistory, PromptAnswer::No);
    Push(u"Command2"_s);
    EXPECT_EQ(Paper.Files().size(), 1) << "the former report";
    EXPECT_EQ(Report().SelectedCharts, QStringList{u"All"_s}) << "not the former selection";
    EXPECT_EQ(Report().cursor().shape(), Qt::ArrowCursor);
}

// Deletion

TEST_F(ReportfrmTest, RightButtonDeletesTheChartBeneathItOnYes) {
    Pick(Kids, u"Anna"_s);
    Boxes.Expect(DeleteChart, PromptAnswer::Yes,
                 [] { EXPECT_EQ(Selected(Charts), QStringList{Piano}); });
    RightClick(Charts, Piano);
    EXPECT_TRUE(Boxes.Last().BeginsOnNo);
    EXPECT_EQ(Entries(Charts), QStringList{Chores});
    EXPECT_FALSE(Database().ChartExist(Piano));
    EXPECT_TRUE(Database().ChartExist(Chores));
    EXPECT_EQ(Entries(Histories), (QStringList{Week2, Week3, Week1})) << "nothing else changes";
    EXPECT_EQ(Selected(Kids), QStringList{u"Anna"_s});
}

TEST_F(ReportfrmTest, RightButtonDeletesAllSelectedChartsNeighboursToo) {
    for (const QString& name : {u"Third"_s, u"Fourth"_s, u"Fifth"_s})
        MakeChartTable(name, {{u"Dust"_s}});
    Pick(Kids, u"Anna"_s);
    for (const QString& name : {Chores, Piano, u"Fourth"_s, u"Fifth"_s})
        Pick(Charts, name, Qt::ControlModifier);
    Boxes.Expect(DeleteChart, PromptAnswer::Yes);
    RightClick(Charts, Piano);
    EXPECT_EQ(Entries(Charts), QStringList{u"Third"_s});
    QStringList left = TableNames();
    left.removeIf([](const QString& name) { return name.startsWith(u"History "_s); });
    EXPECT_EQ(left, (QStringList{u"Chores Ben"_s, u"Spare"_s, u"Third"_s}));
}

TEST_F(ReportfrmTest, RightButtonDeletesNothingOnNoOrWithoutASelection) {
    Pick(Kids, u"Anna"_s);
    Boxes.Expect(DeleteChart, PromptAnswer::No);
    RightClick(Charts, Piano);
    List(Charts).clearSelection();
    Boxes.Expect(DeleteChart, PromptAnswer::Yes);
    ClickBelow(Charts, Qt::RightButton);
    EXPECT_EQ(Entries(Charts), (QStringList{Chores, Piano}));
    EXPECT_TRUE(Database().ChartExist(Piano));
}

TEST_F(ReportfrmTest, RightButtonIsForAdultsOnly) {
    Pick(Kids, u"Anna"_s);
    for (const QString& state : {u"Student"_s, u"Kid"_s, u"teacher"_s}) {
        CurrentState = state;
        RightClick(Charts, Piano);
    }
    EXPECT_EQ(Entries(Charts), (QStringList{Chores, Piano}));
    CurrentState = u"Parent"_s;
    Boxes.Expect(DeleteChart, PromptAnswer::No);
    RightClick(Charts, Piano);
}

TEST_F(ReportfrmTest, DeleteAndMenuKeysAskAsTheRightButtonDoes) {
    Pick(Kids, u"Anna"_s);
    Pick(Charts, Piano);
    Boxes.Expect(DeleteChart, PromptAnswer::No);
    Press(List(Charts), Qt::Key_Menu);
    EXPECT_EQ(Entries(Charts), (QStringList{Chores, Piano}));
    Boxes.Expect(DeleteChart, PromptAnswer::Yes);
    Press(List(Charts), Qt::Key_Delete);
    EXPECT_EQ(Entries(Charts), QStringList{Chores});
    EXPECT_FALSE(Database().ChartExist(Piano));
    CurrentState = u"Student"_s;
    Press(List(Charts), Qt::Key_Delete);
    EXPECT_EQ(Entries(Charts), QStringList{Chores});
}

TEST_F(ReportfrmTest, RightButtonDoesNothingToHistory) {
    Pick(Kids, u"Anna"_s);
    RightClick(Histories, Week1);
    RightClick(Kids, u"Anna"_s);
    EXPECT_TRUE(Database().ChartExist(Week1));
}

TEST_F(ReportfrmTest, ChartThatIsGoneStopsTheDeletionWhereItStands) {
    Pick(Kids, u"Anna"_s);
    Pick(Charts, Chores);
    Pick(Charts, Piano, Qt::ControlModifier);
    Boxes.Expect(DeleteChart, PromptAnswer::Yes, [] { Database().DeleteChart(Piano); });
    Boxes.ExpectMissingTable(u"Piano Anna"_s);
    RightClick(Charts, Chores);
    EXPECT_EQ(Entries(Charts), QStringList{Piano});
    EXPECT_FALSE(TableNames().contains(Chores)) << "what was deleted until then stays deleted";
}

TEST_F(ReportfrmTest, ADeletionThatTheDiskRefusesLeavesTheListAsTheFileIs) {
    Pick(Kids, u"Anna"_s);
    Pick(Charts, Chores);
    Pick(Charts, Piano, Qt::ControlModifier);
    Boxes.Expect(DeleteChart, PromptAnswer::Yes);
    Boxes.ExpectError(ErrorNumber::EngineFault, u"disk I/O error"_s);
    {
        const FullDisk noRoom(512);
        RightClick(Charts, Chores);
    }
    EXPECT_EQ(Entries(Charts), (QStringList{Chores, Piano}));
    EXPECT_TRUE(Database().ChartExist(Chores));
    EXPECT_TRUE(Database().ChartExist(Piano));
}

// The other buttons

TEST_F(ReportfrmTest, ReviewOpensTheWeeksTable) {
    Push(u"Command1"_s);
    EXPECT_TRUE(IsShown(u"WeekChartRepresentation"_s));
    EXPECT_TRUE(IsShown(u"Reportfrm"_s));
}

TEST_F(ReportfrmTest, ExitUnloadsTheForm) {
    const QPointer<Reportfrm> form = &Report();
    Push(u"Cancel"_s);
    EXPECT_TRUE(form.isNull());
    EXPECT_EQ(ExistingForm(u"Reportfrm"_s), nullptr);
}

TEST_F(ReportfrmTest, LongAndStrangeNamesAreListedAndPrinted) {
    const QString kid = u"O'Neil <b>\"😀\"</b> / "_s + QString(20, u'x');
    const QString history = u"History "_s + QString(180, u'y') + u" from: 3/4/2001"_s;
    MakeAccount(kid, u"k"_s, u"Student"_s);
    MakeChartTable(u"Chart 'of' \"him\""_s, {{u"Dust"_s}}, kid);
    MakeChartTable(history, {{u"Dust"_s, true}}, kid);
    DefaultForm(u"frmAboutDutygrid"_s).Show();
    Settle();
    ToFront(Report());
    Pick(Kids, kid);
    LookAt(Report(), u"Reportfrm-long"_s);
    EXPECT_EQ(Entries(Charts), QStringList{u"Chart 'of' \"him\""_s});
    Pick(Histories, history);
    Push(u"Ok2"_s);
    EXPECT_EQ(LastPages().LineAt(1, 3), u"1. Dust 1 0"_s);
}

} // namespace

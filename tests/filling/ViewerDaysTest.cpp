#include "tests/filling/FillingTest.h"

#include "platform/runtime/Dates.h"
#include "tests/common/SpoiledRows.h"

#include <QScrollBar>
#include <gtest/gtest.h>

namespace {

using S = QStringList;

/// Paging through the days of a chart.
class ViewerDaysTest : public FillingTest {
protected:
    static void Next(ChartViewer& viewer) { Click(Button(viewer, QStringLiteral("NextDay"))); }
    static void Back(ChartViewer& viewer) { Click(Button(viewer, QStringLiteral("PreviousDay"))); }
    static void MakeWeek() {
        MakeChart(QStringLiteral("Chores Anna"), {{QStringLiteral("Cook"), QStringLiteral("Mon")},
                                                  {QStringLiteral("Sweep"), QStringLiteral("Wed")},
                                                  {QStringLiteral("Dust"), QStringLiteral("Fri")},
                                                  {QStringLiteral("Mop"), QStringLiteral("Fri")}});
    }
};

/// Counts how often a control goes from the screen.
class HideCounter : public QObject {
public:
    int Hides = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        Hides += event->type() == QEvent::Hide ? 1 : 0;
        return false;
    }
};

TEST_F(ViewerDaysTest, ARowThatCannotBeReadIsThereEmptyAndThePagesGoOn) {
    using namespace Qt::StringLiterals;
    // As many rows as on the bad day, which are written over, and one more.
    for (const S& wednesday : {S{u"Cook"_s, u"Sweep"_s}, S{u"Cook"_s, u"Sweep"_s, u"Water"_s}}) {
        SCOPED_TRACE(wednesday.size());
        const QString chart = u"Chores%1 Anna"_s.arg(wednesday.size());
        QList<Job> jobs;
        for (const QString& job : wednesday)
            jobs.append(Job{job, u"Wed"_s});
        MakeChart(chart, jobs + QList<Job>{{u"Dust"_s, u"Thu"_s}, {u"Mop"_s, u"Thu"_s}});
        Spoil(chart, u"Points = NULL"_s, u"Instructions = 'Mop'"_s);
        ChartViewer& viewer = OpenChart(chart);
        ASSERT_EQ(Jobs(viewer), wednesday);
        Click(viewer.ClearImg[1]);
        Button(viewer, u"NextDay"_s).setFocus();
        Settle();

        Boxes.ExpectError(ErrorNumber::InvalidUseOfNull);
        Next(viewer);
        EXPECT_EQ(Jobs(viewer), (S{u"Dust"_s, QString()}));
        EXPECT_FALSE(viewer.CheckImg.Visible(1));
        EXPECT_EQ(Find<QScrollBar>(viewer, u"VScroll"_s).maximum(), 1);
        Next(viewer);
        EXPECT_EQ(Jobs(viewer), wednesday);
        EXPECT_TRUE(viewer.CheckImg.Visible(1));
        viewer.Unload();
        Settle();
    }
}

TEST_F(ViewerDaysTest, APageWithAsManyRowsIsWrittenOverWholly) {
    const QString wed = QStringLiteral("Wed");
    const QString thu = QStringLiteral("Thu");
    const QString one = QStringLiteral("1");
    const QString two = QStringLiteral("2");
    MakeChart(QStringLiteral("Chores Anna"),
              {{QStringLiteral("Cook"), wed, one, QStringLiteral("Mum"), QStringLiteral("Easy")},
               {QStringLiteral("Sweep"), wed, one, QStringLiteral("Mum"), QStringLiteral("Easy")},
               {QStringLiteral("Dust"), thu, two, QStringLiteral("Dad"), QStringLiteral("Hard")},
               {QStringLiteral("Mop"), thu, two, QStringLiteral("Dad"), QStringLiteral("Hard")}});
    ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    ASSERT_EQ(Jobs(viewer), (S{QStringLiteral("Cook"), QStringLiteral("Sweep")}));
    Click(viewer.ClearImg[1]);
    Button(viewer, QStringLiteral("NextDay")).setFocus();
    Settle();
    HideCounter counter;
    viewer.Instructions[1].installEventFilter(&counter);

    Next(viewer);
    EXPECT_EQ(counter.Hides, 0);
    EXPECT_EQ(Jobs(viewer), (S{QStringLiteral("Dust"), QStringLiteral("Mop")}));
    EXPECT_EQ(viewer.Instructions[1].accessibleName(), QStringLiteral("Job 2: Mop"));
    EXPECT_EQ(viewer.ClearImg[1].accessibleName(), QStringLiteral("Job 2: Mop"));
    EXPECT_EQ(viewer.Points[1].text(), two);
    EXPECT_EQ(viewer.Difficulty[1].text(), QStringLiteral("Hard"));
    EXPECT_EQ(viewer.AdultResponsable[1].text(), QStringLiteral("Dad"));
    EXPECT_TRUE(viewer.ClearImg.Visible(1));
    EXPECT_FALSE(viewer.CheckImg.Visible(1));
    Next(viewer);
    EXPECT_EQ(Jobs(viewer), (S{QStringLiteral("Cook"), QStringLiteral("Sweep")}));
    EXPECT_TRUE(viewer.ClearImg.Visible(0));
    EXPECT_FALSE(viewer.ClearImg.Visible(1));
    EXPECT_TRUE(viewer.CheckImg.Visible(1));
    // The tick lies over its outline, and the mark that is not shown beneath.
    const QObjectList stack = viewer.CheckImg[1].parentWidget()->children();
    EXPECT_GT(stack.indexOf(&viewer.CheckImg[1]), stack.indexOf(&viewer.RectCheck[1]));
    EXPECT_LT(stack.indexOf(&viewer.ClearImg[1]), stack.indexOf(&viewer.RectCheck[1]));
    EXPECT_EQ(Ticked(QStringLiteral("Chores Anna")), S{QStringLiteral("Sweep|Wed")});
    EXPECT_EQ(counter.Hides, 0);
}

TEST_F(ViewerDaysTest, TheTextOfAJobHoldsNoDocument) {
    MakeWeek();
    const ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    for (const QObject* child : viewer.Instructions[0].children())
        EXPECT_STRNE(child->metaObject()->className(), "QWidgetTextControl");
    EXPECT_EQ(viewer.Instructions[0].focusPolicy(), Qt::TabFocus);
}

TEST_F(ViewerDaysTest, TheFirstDisplayIsTodayIfItHasJobs) {
    SetToday(QDate(2001, 3, 5));
    MakeWeek();
    const ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    EXPECT_EQ(viewer.DayNumber, 2);
    EXPECT_EQ(Jobs(viewer), S{QStringLiteral("Cook")});
    EXPECT_EQ(TextAt(viewer, QStringLiteral("DayLbl")), QStringLiteral("Monday 3/5/2001"));
}

TEST_F(ViewerDaysTest, TheFirstDisplayIsOtherwiseTheNextDayWithJobsGoingForward) {
    SetToday(QDate(2001, 3, 10));
    MakeWeek();
    const ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    EXPECT_EQ(Jobs(viewer), S{QStringLiteral("Cook")});
    EXPECT_EQ(viewer.DayNumber, 2);
}

TEST_F(ViewerDaysTest, ADaysRowsShowTextsPointsAndMarks) {
    MakeChart(QStringLiteral("Chores Anna"),
              {{QStringLiteral("Cook"), QStringLiteral("Wed"), QStringLiteral("7"),
                QStringLiteral("Dad"), QStringLiteral("Hard")},
               {QStringLiteral("Sweep"), QStringLiteral("Thu")},
               {QStringLiteral("Dust"), QStringLiteral("Wed"), QStringLiteral("3"),
                QStringLiteral("Mum"), QStringLiteral("Easy")}});
    ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    ASSERT_EQ(Jobs(viewer), (S{QStringLiteral("Cook"), QStringLiteral("Dust")}));
    EXPECT_EQ(viewer.Difficulty[0].text(), QStringLiteral("Hard"));
    EXPECT_EQ(viewer.Points[0].text(), QStringLiteral("7"));
    EXPECT_EQ(viewer.AdultResponsable[0].text(), QStringLiteral("Dad"));
    EXPECT_EQ(viewer.AdultResponsable[1].text(), QStringLiteral("Mum"));
    EXPECT_FALSE(viewer.AdultResponsable.Visible(0));
    EXPECT_FALSE(viewer.AdultResponsable.Visible(1));
    EXPECT_EQ(viewer.Number[0].text(), QStringLiteral("1:"));
    EXPECT_EQ(viewer.Number[1].text(), QStringLiteral("2:"));
    EXPECT_FALSE(viewer.CheckImg.Visible(0));
    EXPECT_TRUE(viewer.ClearImg.Visible(0));
    Click(viewer.ClearImg[1]);
    Next(viewer);
    EXPECT_EQ(Jobs(viewer), S{QStringLiteral("Sweep")});
    Next(viewer);
    EXPECT_FALSE(viewer.CheckImg.Visible(0));
    EXPECT_TRUE(viewer.CheckImg.Visible(1));
    EXPECT_FALSE(viewer.ClearImg.Visible(1));
}

TEST_F(ViewerDaysTest, NextGoesRoundTheWeekAndSkipsDaysWithoutJobs) {
    MakeWeek();
    ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    EXPECT_EQ(Jobs(viewer), S{QStringLiteral("Sweep")});
    Next(viewer);
    EXPECT_EQ(Jobs(viewer), (S{QStringLiteral("Dust"), QStringLiteral("Mop")}));
    EXPECT_EQ(TextAt(viewer, QStringLiteral("DayLbl")), QStringLiteral("Friday 3/9/2001"));
    Next(viewer);
    EXPECT_EQ(Jobs(viewer), S{QStringLiteral("Cook")});
    Next(viewer);
    EXPECT_EQ(Jobs(viewer), S{QStringLiteral("Sweep")});
    EXPECT_EQ(viewer.DayNumber, 4);
}

TEST_F(ViewerDaysTest, BackGoesRoundTheWeekTheOtherWay) {
    MakeWeek();
    ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    Back(viewer);
    EXPECT_EQ(Jobs(viewer), S{QStringLiteral("Cook")});
    Back(viewer);
    EXPECT_EQ(viewer.DayNumber, 6);
    EXPECT_EQ(Jobs(viewer), (S{QStringLiteral("Dust"), QStringLiteral("Mop")}));
    Back(viewer);
    EXPECT_EQ(Jobs(viewer), S{QStringLiteral("Sweep")});
}

TEST_F(ViewerDaysTest, ASchoolChartSkipsItsWeekendByTheCountingAlone) {
    SchoolMode = -1;
    MakeChart(QStringLiteral("Class Anna"), {{QStringLiteral("Read"), QStringLiteral("Mon-Fri")}},
              QStringLiteral("Anna"), QDate(2001, 3, 5), QDate(2001, 3, 9));
    ChartViewer& viewer = OpenChart(QStringLiteral("Class Anna"));
    EXPECT_EQ(TextAt(viewer, QStringLiteral("DayLbl")), QStringLiteral("Wednesday 3/7/2001"));
    Next(viewer);
    Next(viewer);
    EXPECT_EQ(TextAt(viewer, QStringLiteral("DayLbl")), QStringLiteral("Friday 3/9/2001"));
    Next(viewer);
    EXPECT_EQ(TextAt(viewer, QStringLiteral("DayLbl")), QStringLiteral("Monday 3/5/2001"));
    Back(viewer);
    EXPECT_EQ(TextAt(viewer, QStringLiteral("DayLbl")), QStringLiteral("Friday 3/9/2001"));
}

TEST_F(ViewerDaysTest, AnyDayOfTheChartCanBeTickedWhateverTodayIs) {
    MakeWeek();
    ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    Next(viewer);
    Click(viewer.ClearImg[0]);
    Next(viewer);
    Click(viewer.ClearImg[0]);
    Next(viewer);
    EXPECT_EQ(Ticked(QStringLiteral("Chores Anna")),
              (S{QStringLiteral("Cook|Mon"), QStringLiteral("Dust|Fri")}));
}

TEST_F(ViewerDaysTest, AChartWithOneDayReloadsItBothWaysAndStoresItsTicks) {
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 3));
    ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    Click(viewer.ClearImg[2]);
    EXPECT_EQ(Ticked(QStringLiteral("Chores Anna")), S{});
    Next(viewer);
    EXPECT_EQ(Jobs(viewer).size(), 3);
    EXPECT_TRUE(viewer.CheckVisible(2));
    EXPECT_EQ(Ticked(QStringLiteral("Chores Anna")), S{QStringLiteral("Wed job 3|Wed")});
    Click(viewer.ClearImg[0]);
    Back(viewer);
    EXPECT_EQ(viewer.DayNumber, 4);
    EXPECT_TRUE(viewer.CheckVisible(0));
    EXPECT_FALSE(viewer.CheckVisible(1));
    EXPECT_TRUE(viewer.CheckVisible(2));
    EXPECT_EQ(Ticked(QStringLiteral("Chores Anna")),
              (S{QStringLiteral("Wed job 1|Wed"), QStringLiteral("Wed job 3|Wed")}));
}

TEST_F(ViewerDaysTest, AnUntickIsStoredAtTheNextPageToo) {
    MakeWeek();
    ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    Click(viewer.ClearImg[0]);
    Next(viewer);
    EXPECT_EQ(Ticked(QStringLiteral("Chores Anna")), S{QStringLiteral("Sweep|Wed")});
    Back(viewer);
    Click(viewer.CheckImg[0]);
    Next(viewer);
    EXPECT_EQ(Ticked(QStringLiteral("Chores Anna")), S{});
}

TEST_F(ViewerDaysTest, EveryPagePlaysItsSound) {
    MakeWeek();
    ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    Next(viewer);
    EXPECT_EQ(DesktopCalls.Sounds, S{PageSound()});
    Back(viewer);
    EXPECT_EQ(DesktopCalls.Sounds, (S{PageSound(), PageSound()}));
}

TEST_F(ViewerDaysTest, AnotherDayHidesTheAdultShrinksTheFormAndBlackensTheRows) {
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Sun-Sat"), 2));
    for (const char* button : {"NextDay", "PreviousDay"}) {
        ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
        Click(viewer.Instructions[0]);
        EXPECT_EQ(viewer.height(), 9800 / 15);
        Click(Button(viewer, QString::fromLatin1(button)));
        EXPECT_EQ(viewer.height(), 8700 / 15);
        for (const char* control : {"Label1", "Namelbl", "Image1"})
            EXPECT_TRUE(Find<QWidget>(viewer, QString::fromLatin1(control)).isHidden()) << control;
        EXPECT_EQ(viewer.Instructions[0].ForeColor(), QColor(Qt::black));
        EXPECT_EQ(viewer.RectCheck[0].BorderColor(), QColor(Qt::black));
        Click(Button(viewer, QStringLiteral("Ok")));
    }
}

TEST_F(ViewerDaysTest, TheHeadingsNameTheAccountTheChartsFirstWordAndToday) {
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 1));
    const ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    EXPECT_EQ(TextAt(viewer, QStringLiteral("UsersName")), QStringLiteral("Anna"));
    EXPECT_EQ(TextAt(viewer, QStringLiteral("ChartNamelbl")),
              QStringLiteral("Anna's Chores Dutygrid"));
    EXPECT_EQ(viewer.Caption(), QStringLiteral("Anna's Chores Dutygrid"));
    EXPECT_EQ(TextAt(viewer, QStringLiteral("Label4")),
              QStringLiteral("Today is Wednesday - 3/7/2001"));
    EXPECT_FALSE(Find<QLabel>(viewer, QStringLiteral("Image2")).pixmap(Qt::ReturnByValue).isNull());
}

TEST_F(ViewerDaysTest, TheIncentiveItsCostAndTheMissingPointsAreShown) {
    SetGoal(QStringLiteral("Bicycle"), 300, PictureFile());
    SetPoints(120);
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 1));
    const ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    EXPECT_EQ(TextAt(viewer, QStringLiteral("ToyName")), QStringLiteral("Bicycle 300 Points"));
    EXPECT_EQ(TextAt(viewer, QStringLiteral("Label3")), QStringLiteral("120"));
    EXPECT_EQ(TextAt(viewer, QStringLiteral("Label5")), QStringLiteral("180"));
    EXPECT_EQ(viewer.GoalPoints, 300);
    EXPECT_FALSE(Find<QLabel>(viewer, QStringLiteral("Image3")).pixmap(Qt::ReturnByValue).isNull());
}

TEST_F(ViewerDaysTest, WithEnoughPointsNoneAreNeeded) {
    SetGoal(QStringLiteral("Book"), 100);
    SetPoints(250);
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 1));
    const ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    EXPECT_EQ(TextAt(viewer, QStringLiteral("Label5")), QStringLiteral("0"));
}

TEST_F(ViewerDaysTest, AnAdultWithAChartSeesItsOwnNameAndPoints) {
    MakeChart(QStringLiteral("Chores Mum"), JobsOn(QStringLiteral("Wed"), 1),
              QStringLiteral("Mum"));
    CurrentUser = QStringLiteral("Mum");
    CurrentState = QStringLiteral("Teacher");
    ChartViewer& viewer = OpenChart(QStringLiteral("Chores Mum"));
    EXPECT_EQ(viewer.Caption(), QStringLiteral("Mum's Chores Dutygrid"));
    Click(viewer.ClearImg[0]);
    EXPECT_EQ(PointsIn(QStringLiteral("Mum")), QStringLiteral("5"));
}

TEST_F(ViewerDaysTest, AChartDeletedBehindTheViewerIsReportedAndTheRowsStay) {
    MakeWeek();
    ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    Arrange([] { Database().DeleteChart(QStringLiteral("Chores Anna")); });
    Boxes.ExpectMissingTable(QStringLiteral("Chores Anna"));
    Next(viewer);
    EXPECT_EQ(Jobs(viewer), S{QStringLiteral("Sweep")});
    EXPECT_EQ(viewer.DayNumber, 4);
}

} // namespace

#include "tests/filling/FillingTest.h"

#include "store/TableNames.h"
#include "tests/common/PrintedPages.h"

#include <QAction>
#include <gtest/gtest.h>

namespace {

using S = QStringList;

/// Ticks and unticks, points, the goal, Ok and printing.
class ViewerMarksTest : public FillingTest {
protected:
    /// A chart of Wednesday with one job for each point value.
    ChartViewer& OpenWith(const QStringList& points) {
        QList<Job> jobs;
        for (const QString& value : points)
            jobs += Job{QStringLiteral("Job for ") + value, QStringLiteral("Wed"), value};
        MakeChart(QStringLiteral("Chores Anna"), jobs);
        return OpenChart(QStringLiteral("Chores Anna"));
    }
    static QString Total(const ChartViewer& viewer) {
        return TextAt(viewer, QStringLiteral("Label3"));
    }
    static QString Needed(const ChartViewer& viewer) {
        return TextAt(viewer, QStringLiteral("Label5"));
    }
    static void ExpectMark(const ChartViewer& viewer, int row, bool ticked) {
        EXPECT_EQ(viewer.CheckImg.Visible(row), ticked);
        EXPECT_EQ(viewer.ClearImg.Visible(row), !ticked);
        EXPECT_EQ(viewer.CheckVisible(row), ticked);
    }
    inline static const QString PrintQuestion = QStringLiteral(
        "Please click the 'Yes' button to print your Sparkit Dutygrid showing check marks for "
        "those jobs that have been completed for the week.");
    inline static const QString PrintMessage = QStringLiteral(
        "Please click 'Ok' to print out your Sparkit Dutygrid with checkboxes to be filled in by "
        "you as you complete the jobs.");
};

TEST_F(ViewerMarksTest, ATickMovesThePointsAtOnceAndTheTickOnlyAtThePage) {
    SetGoal(QStringLiteral("Bicycle"), 100);
    ChartViewer& viewer = OpenWith({QStringLiteral("5"), QStringLiteral("3")});
    Click(viewer.ClearImg[0]);
    ExpectMark(viewer, 0, true);
    ExpectMark(viewer, 1, false);
    EXPECT_EQ(PointsIn(), QStringLiteral("5"));
    EXPECT_EQ(Total(viewer), QStringLiteral("5"));
    EXPECT_EQ(Needed(viewer), QStringLiteral("95"));
    EXPECT_EQ(DesktopCalls.Sounds, S{MarkSound()});
    EXPECT_EQ(Ticked(QStringLiteral("Chores Anna")), S{});
    Click(viewer.CheckImg[0]);
    ExpectMark(viewer, 0, false);
    EXPECT_EQ(PointsIn(), QStringLiteral("0"));
    EXPECT_EQ(Total(viewer), QStringLiteral("0"));
    EXPECT_EQ(Needed(viewer), QStringLiteral("100"));
    EXPECT_EQ(DesktopCalls.Sounds, (S{MarkSound(), MarkSound()}));
}

TEST_F(ViewerMarksTest, PointsOutlastAKillBeforeTheTickIsStored) {
    ChartViewer& viewer = OpenWith({QStringLiteral("5")});
    Click(viewer.ClearImg[0]);
    EXPECT_EQ(Rows(UsersTable).value(1), QStringLiteral("Anna|a|5|Student|<null>|500"));
    EXPECT_EQ(Rows(QStringLiteral("Chores Anna")),
              S{QStringLiteral("Job for 5|Wed|Mum|Easy|5|0|2001-03-04|2001-03-10|Anna|-1")});
}

TEST_F(ViewerMarksTest, EveryFurtherClickMovesThePoints) {
    ChartViewer& viewer = OpenWith({QStringLiteral("4")});
    for (int round = 0; round < 3; ++round) {
        Click(viewer.ClearImg[0]);
        EXPECT_EQ(PointsIn(), QStringLiteral("4"));
        Click(viewer.CheckImg[0]);
        EXPECT_EQ(PointsIn(), QStringLiteral("0"));
    }
}

TEST_F(ViewerMarksTest, TheGoalIsTestedStrictlyGreater) {
    SetGoal(QStringLiteral("Bicycle"), 13);
    SetPoints(8);
    ChartViewer& viewer = OpenWith({QStringLiteral("5"), QStringLiteral("1")});
    Click(viewer.ClearImg[0]);
    EXPECT_EQ(Total(viewer), QStringLiteral("13"));
    EXPECT_EQ(Needed(viewer), QStringLiteral("0"));
    EXPECT_TRUE(Boxes.Shown().isEmpty());
    EXPECT_EQ(viewer.GoalPoints, 13);
    DesktopCalls.Sounds.clear();
    Boxes.Expect(GoalMessage, PromptAnswer::Ok, [&] {
        EXPECT_EQ(Total(viewer), QStringLiteral("14"));
        EXPECT_TRUE(DesktopCalls.Sounds.isEmpty()) << "the sound follows the message";
    });
    Click(viewer.ClearImg[1]);
    ASSERT_EQ(Boxes.Shown().size(), 1);
    EXPECT_EQ(Boxes.Shown().value(0).Title, QStringLiteral("Sparkit Dutygrid"));
    EXPECT_EQ(DesktopCalls.Sounds, S{MarkSound()});
    EXPECT_EQ(viewer.GoalPoints, 0);
}

TEST_F(ViewerMarksTest, TheGoalMessageComesOnceAndThePointsNeededStayAtZeroAfterIt) {
    SetGoal(QStringLiteral("Bicycle"), 10);
    SetPoints(9);
    ChartViewer& viewer = OpenWith({QStringLiteral("5"), QStringLiteral("1")});
    Boxes.Expect(GoalMessage);
    Click(viewer.ClearImg[0]);
    Click(viewer.ClearImg[1]);
    Click(viewer.CheckImg[1]);
    Click(viewer.CheckImg[0]);
    EXPECT_EQ(Total(viewer), QStringLiteral("9"));
    // Counted from a goal of 0 now.
    EXPECT_EQ(Needed(viewer), QStringLiteral("0"));
    EXPECT_EQ(Boxes.Shown().size(), 1);
}

TEST_F(ViewerMarksTest, AnUntickThatLeavesTheTotalAboveTheGoalShowsTheMessageToo) {
    SetGoal(QStringLiteral("Bicycle"), 10);
    SetPoints(30);
    MakeChart(QStringLiteral("Chores Anna"), {{QStringLiteral("Cook"), QStringLiteral("Wed")}});
    ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    Boxes.Expect(GoalMessage);
    Click(viewer.ClearImg[0]);
    Click(Button(viewer, QStringLiteral("NextDay")));
    viewer.GoalPoints = 10;
    Boxes.Expect(GoalMessage);
    Click(viewer.CheckImg[0]);
    EXPECT_EQ(Total(viewer), QStringLiteral("30"));
    EXPECT_EQ(viewer.GoalPoints, 0);
}

TEST_F(ViewerMarksTest, WithoutAnIncentiveCostTheGoalIsWhatTheLabelHeld) {
    // A cost of Null leaves Label3 as it was, at first the designed 10.
    SetGoal(QStringLiteral("Bicycle"), 0);
    ChartViewer& viewer = OpenWith({QStringLiteral("11")});
    EXPECT_EQ(viewer.GoalPoints, 10);
    EXPECT_EQ(TextAt(viewer, QStringLiteral("ToyName")), QStringLiteral("Bicycle 10 Points"));
}

TEST_F(ViewerMarksTest, AGoalOfZeroSwitchesTheTestOff) {
    ChartViewer& viewer = OpenWith({QStringLiteral("11")});
    viewer.GoalPoints = 0;
    Click(viewer.ClearImg[0]);
    EXPECT_EQ(Needed(viewer), QStringLiteral("0"));
    EXPECT_TRUE(Boxes.Shown().isEmpty());
}

TEST_F(ViewerMarksTest, UntickBelowZeroKeepsPointsButFlipsTheMark) {
    ChartViewer& viewer = OpenWith({QStringLiteral("5")});
    Click(viewer.ClearImg[0]);
    SetPoints(3);
    DesktopCalls.Sounds.clear();
    Boxes.Expect(TooFewPoints, PromptAnswer::Ok, [&] { ExpectMark(viewer, 0, false); });
    Click(viewer.CheckImg[0]);
    ExpectMark(viewer, 0, false);
    EXPECT_EQ(Total(viewer), QStringLiteral("3"));
    EXPECT_EQ(PointsIn(), QStringLiteral("3"));
    EXPECT_EQ(DesktopCalls.Sounds, S{MarkSound()});
}

TEST_F(ViewerMarksTest, FractionsOfPointsRoundHalfToEven) {
    ChartViewer& viewer = OpenWith({QStringLiteral("0"), QStringLiteral("0")});
    viewer.Points[0].setText(QStringLiteral("2.5"));
    viewer.Points[1].setText(QStringLiteral("3.5 points"));
    Click(viewer.ClearImg[0]);
    EXPECT_EQ(PointsIn(), QStringLiteral("2"));
    Click(viewer.ClearImg[1]);
    EXPECT_EQ(PointsIn(), QStringLiteral("6"));
    Click(viewer.CheckImg[0]);
    EXPECT_EQ(PointsIn(), QStringLiteral("4"));
}

TEST_F(ViewerMarksTest, AJobWithoutPointsMovesNothing) {
    ChartViewer& viewer = OpenWith({QStringLiteral("")});
    SetPoints(7);
    viewer.Points[0].setText(QStringLiteral("lots"));
    Click(viewer.ClearImg[0]);
    ExpectMark(viewer, 0, true);
    EXPECT_EQ(Total(viewer), QStringLiteral("7"));
}

TEST_F(ViewerMarksTest, ANegativeJobTakesPointsAwayWhenTicked) {
    ChartViewer& viewer = OpenWith({QStringLiteral("-3")});
    SetPoints(7);
    Click(viewer.ClearImg[0]);
    EXPECT_EQ(PointsIn(), QStringLiteral("4"));
    Click(viewer.CheckImg[0]);
    EXPECT_EQ(PointsIn(), QStringLiteral("7"));
}

TEST_F(ViewerMarksTest, PointsBeyondSixteenBitsAreAnErrorAndTheMarkStaysFlipped) {
    ChartViewer& viewer = OpenWith({QStringLiteral("99999"), QStringLiteral("5")});
    EXPECT_EQ(viewer.Points[0].text(), QStringLiteral("99999"));
    Boxes.ExpectError(ErrorNumber::Overflow);
    Click(viewer.ClearImg[0]);
    ExpectMark(viewer, 0, true);
    EXPECT_EQ(PointsIn(), QStringLiteral("0"));
    EXPECT_TRUE(DesktopCalls.Sounds.isEmpty());
    // The form goes on.
    Click(viewer.ClearImg[1]);
    EXPECT_EQ(PointsIn(), QStringLiteral("5"));
}

TEST_F(ViewerMarksTest, ABalanceBeyondSixteenBitsIsAnErrorAndKeepsThePoints) {
    ChartViewer& viewer = OpenWith({QStringLiteral("10")});
    SetPoints(32760);
    Boxes.ExpectError(ErrorNumber::Overflow);
    Click(viewer.ClearImg[0]);
    ExpectMark(viewer, 0, true);
    EXPECT_EQ(PointsIn(), QStringLiteral("32760"));
}

TEST_F(ViewerMarksTest, TheSwitchSilencesTheMarks) {
    ChartViewer& viewer = OpenWith({QStringLiteral("5")});
    Find<QAction>(*viewer.window(), QStringLiteral("SoundOnOff")).setChecked(false);
    Click(viewer.ClearImg[0]);
    Click(Button(viewer, QStringLiteral("Ok")));
    EXPECT_TRUE(DesktopCalls.Sounds.isEmpty());
}

TEST_F(ViewerMarksTest, SpaceAndEnterFlipAMarkAndKeepTheKeyboardOnIt) {
    ChartViewer& viewer = OpenWith({QStringLiteral("5"), QStringLiteral("3")});
    viewer.ClearImg[0].setFocus();
    Press(viewer.ClearImg[0], Qt::Key_Space);
    ExpectMark(viewer, 0, true);
    EXPECT_TRUE(viewer.CheckImg[0].hasFocus());
    Press(viewer.CheckImg[0], Qt::Key_Return);
    ExpectMark(viewer, 0, false);
    EXPECT_TRUE(viewer.ClearImg[0].hasFocus());
    Press(viewer.ClearImg[0], Qt::Key_Enter);
    EXPECT_EQ(PointsIn(), QStringLiteral("5"));
    Press(viewer.CheckImg[0], Qt::Key_Tab);
    EXPECT_TRUE(viewer.Instructions[1].hasFocus());
    Press(viewer.Instructions[1], Qt::Key_Tab);
    EXPECT_TRUE(viewer.ClearImg[1].hasFocus());
    Press(viewer.ClearImg[1], Qt::Key_Tab);
    EXPECT_TRUE(Button(viewer, QStringLiteral("PreviousDay")).hasFocus());
}

TEST_F(ViewerMarksTest, TabBringsAMarkThatIsScrolledAwayIntoView) {
    ChartViewer& viewer = OpenWith(S(12, QStringLiteral("1")));
    const auto& list = Find<QWidget>(viewer, QStringLiteral("CleanUpList"));
    viewer.ClearImg[0].setFocus();
    for (int row = 0; row < 12; ++row) {
        ASSERT_TRUE(viewer.ClearImg[row].hasFocus()) << row;
        EXPECT_GE(viewer.ClearImg.Top(row), 1200);
        EXPECT_TRUE(list.rect().contains(viewer.ClearImg[row].geometry())) << row;
        EXPECT_TRUE(viewer.Instructions.Visible(row));
        Press(viewer.ClearImg[row], Qt::Key_Tab);
        if (row < 11)
            Press(viewer.Instructions[row + 1], Qt::Key_Tab);
    }
    viewer.ClearImg[4].setFocus(Qt::BacktabFocusReason);
    EXPECT_EQ(viewer.ClearImg.Top(4), 1250);
}

TEST_F(ViewerMarksTest, SpaceOnAJobChoosesItsRowWhichIsBoldAsWellAsBlue) {
    ChartViewer& viewer = OpenWith({QStringLiteral("5"), QStringLiteral("3")});
    Press(viewer.Instructions[1], Qt::Key_Space);
    EXPECT_EQ(viewer.Instructions[1].ForeColor(), QColor(Qt::blue));
    EXPECT_TRUE(viewer.Points[1].font().bold());
    EXPECT_FALSE(viewer.Points[0].font().bold());
    Press(viewer.Instructions[0], Qt::Key_Return);
    EXPECT_FALSE(viewer.Points[1].font().bold());
    EXPECT_TRUE(viewer.Number[0].font().bold());
}

TEST_F(ViewerMarksTest, AScreenReaderHearsWhichJobAMarkBelongsTo) {
    ChartViewer& viewer = OpenWith({QStringLiteral("5"), QStringLiteral("3")});
    EXPECT_EQ(viewer.ClearImg[0].accessibleName(), QStringLiteral("Job 1: Job for 5"));
    EXPECT_EQ(viewer.CheckImg[0].accessibleName(), QStringLiteral("Job 1: Job for 5"));
    EXPECT_EQ(viewer.ClearImg[1].accessibleName(), QStringLiteral("Job 2: Job for 3"));
    EXPECT_EQ(viewer.CheckImg[1].accessibleName(), QStringLiteral("Job 2: Job for 3"));
}

TEST_F(ViewerMarksTest, OkStoresTheMarksAndClosesTheForm) {
    ChartViewer& viewer = OpenWith({QStringLiteral("5"), QStringLiteral("3")});
    const QPointer<ChartViewer> form = &viewer;
    Click(viewer.ClearImg[1]);
    DesktopCalls.Sounds.clear();
    Click(Button(viewer, QStringLiteral("Ok")));
    EXPECT_TRUE(form.isNull());
    EXPECT_EQ(Ticked(QStringLiteral("Chores Anna")), S{QStringLiteral("Job for 3|Wed")});
    EXPECT_TRUE(DesktopCalls.Sounds.isEmpty());
}

TEST_F(ViewerMarksTest, OkWithOneJobOpenOnAnotherDayPlaysNoApplause) {
    MakeChart(QStringLiteral("Chores Anna"), {{QStringLiteral("Cook"), QStringLiteral("Wed")},
                                              {QStringLiteral("Sweep"), QStringLiteral("Thu")}});
    ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    Click(viewer.ClearImg[0]);
    DesktopCalls.Sounds.clear();
    Click(Button(viewer, QStringLiteral("Ok")));
    EXPECT_TRUE(DesktopCalls.Sounds.isEmpty());
}

TEST_F(ViewerMarksTest, OkOnAChartFinishedWithTheDayOnDisplayIsApplauded) {
    MakeChart(QStringLiteral("Chores Anna"), {{QStringLiteral("Cook"), QStringLiteral("Wed")},
                                              {QStringLiteral("Sweep"), QStringLiteral("Thu")}});
    ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    Click(viewer.ClearImg[0]);
    Click(Button(viewer, QStringLiteral("NextDay")));
    Click(viewer.ClearImg[0]);
    DesktopCalls.Sounds.clear();
    Click(Button(viewer, QStringLiteral("Ok")));
    EXPECT_EQ(DesktopCalls.Sounds, S{ApplauseSound()});
    EXPECT_EQ(Ticked(QStringLiteral("Chores Anna")),
              (S{QStringLiteral("Cook|Wed"), QStringLiteral("Sweep|Thu")}));
}

TEST_F(ViewerMarksTest, OkOnADeletedChartIsReportedAndTheFormStaysInUse) {
    ChartViewer& viewer = OpenWith({QStringLiteral("5")});
    Arrange([] { Database().DeleteChart(QStringLiteral("Chores Anna")); });
    Boxes.ExpectMissingTable(QStringLiteral("Chores Anna"));
    Click(Button(viewer, QStringLiteral("Ok")));
    EXPECT_TRUE(viewer.isVisible());
    EXPECT_EQ(viewer.Tag, QStringLiteral("USED"));
}

TEST_F(ViewerMarksTest, PrintingOnYesPrintsTheStoredChecks) {
    ChartViewer& viewer = OpenWith({QStringLiteral("5")});
    Boxes.Expect(PrintQuestion, PromptAnswer::Yes);
    Click(Button(viewer, QStringLiteral("Command1")));
    ASSERT_EQ(Boxes.Shown().size(), 1);
    EXPECT_EQ(Boxes.Shown().value(0).Buttons, PromptButtons::YesNo);
    EXPECT_FALSE(Boxes.Shown().value(0).BeginsOnNo) << "nothing is lost";
    EXPECT_EQ(Boxes.Shown().value(0).Title, QStringLiteral("Sparkit Dutygrid"));
    ASSERT_EQ(Paper.Files().size(), 1);
    const QString page = PdfPrintTarget::TextOf(Paper.Files().value(0));
    EXPECT_TRUE(page.contains(QStringLiteral("Anna's Job List - from 3/4/2001 to 3/10/2001")));
    EXPECT_TRUE(page.contains(QStringLiteral("Job for 5")));
}

TEST_F(ViewerMarksTest, PrintingOnNoTellsOfTheBoxesFirst) {
    ChartViewer& viewer = OpenWith({QStringLiteral("5")});
    Boxes.Expect(PrintQuestion, PromptAnswer::No);
    Boxes.Expect(PrintMessage, PromptAnswer::Ok, [&] { EXPECT_TRUE(Paper.Files().isEmpty()); });
    Click(Button(viewer, QStringLiteral("Command1")));
    EXPECT_EQ(Paper.Files().size(), 1);
    EXPECT_EQ(Jobs(viewer), S{QStringLiteral("Job for 5")}) << "the page stays";
}

TEST_F(ViewerMarksTest, TheTwoAnswersPrintDifferentMarksAndTicksNotYetStoredAreNotOnPaper) {
    ChartViewer& viewer = OpenWith({QStringLiteral("5")});
    Click(viewer.ClearImg[0]);
    const auto print = [&](PromptAnswer answer) {
        Boxes.Expect(PrintQuestion, answer);
        if (answer == PromptAnswer::No)
            Boxes.Expect(PrintMessage);
        Click(Button(viewer, QStringLiteral("Command1")));
        // The mark's cell on the line of the one job, in grid units.
        return PrintedPages(Paper.LastFile()).MainColor(1, QRectF(18.8, 6.1, 0.9, 0.85));
    };
    EXPECT_EQ(print(PromptAnswer::Yes), QColor(Qt::white));
    EXPECT_EQ(print(PromptAnswer::No), QColor(Qt::black));
    Click(Button(viewer, QStringLiteral("NextDay")));
    const QColor check = print(PromptAnswer::Yes);
    EXPECT_NE(check, QColor(Qt::white));
    EXPECT_NE(check, QColor(Qt::black));
    EXPECT_EQ(print(PromptAnswer::No), check);
}

} // namespace

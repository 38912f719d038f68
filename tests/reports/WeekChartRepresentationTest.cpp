#include "tests/reports/ReviewTest.h"

#include "platform/forms/DefaultForms.h"

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QWheelEvent>

namespace {

using S = QStringList;

const QString Chores = QStringLiteral("Chores Anna");

/// The form round the matrix: its list, its scroll bar, its buttons.
class WeekChartRepresentationTest : public ReviewTest {
protected:
    static bool IsOpen() { return ExistingForm(WeekChartRepresentation::FormName) != nullptr; }
    static QPushButton& Button(const char* name) { return dynamic_cast<QPushButton&>(Part(name)); }
    /// Each rectangle begins 120 above its line, and everything of a line stands in one row.
    static void ExpectInLine(const WeekChartRepresentation& form) {
        for (int line = 0; line < form.Job.Count(); ++line) {
            const int top = form.Job.Top(line);
            EXPECT_EQ(form.Patrat.Top(line), top - 120) << line;
            EXPECT_EQ(form.Points.Top(line), top) << line;
            EXPECT_EQ(form.JobTotal.Top(line), top) << line;
            for (const CellArray* day : DayArrays(form))
                EXPECT_EQ(day->Top(line), top) << line;
        }
        for (int day = 0; day < 7; ++day)
            EXPECT_EQ(form.DayTotal.Top(day), form.Job.Top(form.Job.Count() - 1));
    }
    /// What no control under the mouse takes reaches the form.
    static void Wheel(WeekChartRepresentation& form, const QWidget& under, int degrees) {
        const QPointF place = under.mapTo(&form, QPointF(9, 9));
        QWheelEvent event(place, form.mapToGlobal(place), {}, QPoint(0, degrees * 8), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&form, &event);
    }
};

TEST_F(WeekChartRepresentationTest, ToolTipsOfTheListShowNamesAsTheyStand) {
    const QString name = QStringLiteral("<b>x</b> & Anna");
    MakeChart(name, Jobs(1));
    Open();
    ASSERT_EQ(Listed(), S{name});
    EXPECT_EQ(ShownTip(List().item(0)->toolTip()), name);
}

TEST_F(WeekChartRepresentationTest, AFormWhoseLoadFailedIsLoadedAfreshTheNextTime) {
    MakeChart(Chores, Jobs(1));
    Database().CreateChart(QStringLiteral("Empty Anna"));
    for (int attempt = 0; attempt < 2; ++attempt) {
        Boxes.ExpectError(ErrorNumber::NoCurrentRecord);
        OpenByMenu();
        Boxes.VerifyAllShown();
        EXPECT_FALSE(IsOpen());
    }
    Database().DeleteChart(QStringLiteral("Empty Anna"));
    Open();
    EXPECT_EQ(Listed(), S{Chores});
}

TEST_F(WeekChartRepresentationTest, TextsAreThoseOfTheDesign) {
    const WeekChartRepresentation& form = Open();
    EXPECT_EQ(form.Caption(), QStringLiteral("Weekly Dutygrid Review"));
    const QList<std::pair<const char*, const char*>> labels = {
        {"Label1", "Jobs"},
        {"Label4", "Value"},
        {"Label3", "Points"},
        {"Label2", "Weekly Dutygrid Review"}};
    for (const auto& [name, text] : labels)
        EXPECT_EQ(dynamic_cast<QLabel&>(Part(name)).text(), QString::fromLatin1(text));
    EXPECT_EQ(dynamic_cast<QGroupBox&>(Part("Surface")).title(), QStringLiteral("Total"));
    EXPECT_EQ(Button("Command1").text(), QStringLiteral("View Accounts"));
    EXPECT_EQ(Button("Ok").text(), QStringLiteral("Ok"));
    EXPECT_EQ(form.ScrollValue, 0);
}

TEST_F(WeekChartRepresentationTest, BeforeAChoiceTheListAndTheTitleStandAlone) {
    MakeChart(Chores, Jobs(1));
    const WeekChartRepresentation& form = Open();
    EXPECT_TRUE(Surface().isHidden());
    EXPECT_TRUE(Scroll().isHidden());
    EXPECT_TRUE(List().isVisible());
    EXPECT_TRUE(List().selectedItems().isEmpty());
    LookAt(*form.window(), QStringLiteral("Review-before"));
}

TEST_F(WeekChartRepresentationTest, AllOwnersChartsAreListedOnceAndNoOtherTable) {
    MakeChart(Chores, Jobs(1));
    MakeChart(QStringLiteral("Chores Ben"), Jobs(1), QStringLiteral("Ben"));
    MakeChart(QStringLiteral("History x"), Jobs(1));
    MakeChart(QStringLiteral("Printed"), Jobs(1));
    CurrentUser = QStringLiteral("Anna");
    Open();
    EXPECT_EQ(Listed(), (S{Chores, QStringLiteral("Chores Ben")}));
}

TEST_F(WeekChartRepresentationTest, OpeningRollsTheChartsOfTheWeekJustPast) {
    MakeChartOfLastWeek(Chores);
    Open();
    EXPECT_EQ(Rows(Chores).value(0),
              QStringLiteral("Job 1|Mon|<null>|<null>|5|0|2001-03-04|2001-03-10|Anna|-1"));
    EXPECT_EQ(Listed(), S{Chores});
    EXPECT_TRUE(TableNames().contains(QStringLiteral("History Chores Anna from: 2/25/2001")));
}

TEST_F(WeekChartRepresentationTest, AClickFillsTheMatrixAndShowsIt) {
    MakeChart(Chores, Jobs(2));
    OpenOn(Chores);
    EXPECT_TRUE(Surface().isVisible());
    EXPECT_TRUE(Scroll().isVisible());
    EXPECT_EQ(Scroll().maximum(), 2);
    EXPECT_EQ(dynamic_cast<QLabel&>(Part("Label2")).text(),
              QStringLiteral("Weekly Dutygrid Review from: 3/4/2001 to 3/10/2001"));
}

TEST_F(WeekChartRepresentationTest, ArrowKeysInTheListFillTheMatrixAsAClickDoes) {
    MakeChart(Chores, Jobs(2));
    MakeChart(QStringLiteral("Chores Ben"), Jobs(3));
    const WeekChartRepresentation& form = OpenOn(Chores);
    Press(List(), Qt::Key_Down);
    EXPECT_EQ(form.Job.Count(), 4);
    Press(List(), Qt::Key_Up);
    EXPECT_EQ(form.Job.Count(), 3);
}

TEST_F(WeekChartRepresentationTest, AClickWithNoEntrySelectedFailsOnTheMissingTable) {
    MakeChart(Chores, Jobs(2));
    const WeekChartRepresentation& form = OpenOn(Chores);
    Boxes.ExpectMissingTable(QString());
    QTest::mouseClick(List().viewport(), Qt::LeftButton, Qt::ControlModifier,
                      List().visualItemRect(List().item(0)).center());
    Settle();
    EXPECT_TRUE(List().selectedItems().isEmpty());
    EXPECT_TRUE(Surface().isVisible());
    EXPECT_EQ(form.Job.Count(), 3);
}

TEST_F(WeekChartRepresentationTest, AClickIntoAnEmptyListFailsOnTheMissingTable) {
    Open();
    Boxes.ExpectMissingTable(QString());
    Click(*List().viewport());
    EXPECT_TRUE(Surface().isHidden());
}

TEST_F(WeekChartRepresentationTest, AFailedFillLeavesTheSurfaceAsItWas) {
    MakeChart(Chores, {{QStringLiteral("Cook"), QStringLiteral("Mon"), 5, true}});
    const WeekChartRepresentation& form = Open();
    List().addItem(QStringLiteral("Empty"));
    Database().CreateChart(QStringLiteral("Empty"));
    Boxes.ExpectError(ErrorNumber::NoCurrentRecord);
    Choose(QStringLiteral("Empty"));
    EXPECT_TRUE(Surface().isHidden());
    Choose(Chores);
    Boxes.ExpectError(ErrorNumber::NoCurrentRecord);
    Choose(QStringLiteral("Empty"));
    EXPECT_TRUE(Surface().isVisible());
    EXPECT_TRUE(form.Job[0].isVisible());
    EXPECT_EQ(Captions(form.Job), (S{QStringLiteral("Cook"), QStringLiteral("Total Points")}));
    // The cells of the first line were hidden for the fill that did not come.
    EXPECT_EQ(CellsOf(form, 0), QStringLiteral("- - - - - - -"));
}

TEST_F(WeekChartRepresentationTest, AtTheBarsEndTheTotalLineStandsWhereLineZeroStood) {
    MakeChart(Chores, Jobs(4));
    const WeekChartRepresentation& form = OpenOn(Chores);
    Scroll().setValue(4);
    EXPECT_EQ(form.Job.Top(4), 1320);
    EXPECT_EQ(form.Job.Top(0), 1320 - 4 * 510);
    ExpectInLine(form);
}

TEST_F(WeekChartRepresentationTest, MovingTheBarFromThreeToOneMovesAllLinesDownByTwoPitches) {
    MakeChart(Chores, Jobs(4));
    const WeekChartRepresentation& form = OpenOn(Chores);
    Scroll().setValue(3);
    QList<int> before;
    for (int line = 0; line < 5; ++line)
        before += form.Job.Top(line);
    const int dayTotalBefore = form.DayTotal.Top(6);
    Scroll().setValue(1);
    for (int line = 0; line < 5; ++line)
        EXPECT_EQ(form.Job.Top(line), before.at(line) + 1020);
    EXPECT_EQ(form.DayTotal.Top(6), dayTotalBefore + 1020);
    EXPECT_EQ(form.ScrollValue, 1);
    ExpectInLine(form);
}

TEST_F(WeekChartRepresentationTest, TheFirstScrollSnapsTheRectanglesToTheirLines) {
    MakeChart(Chores, Jobs(4));
    const WeekChartRepresentation& form = OpenOn(Chores);
    EXPECT_EQ(form.Patrat.Top(4), form.Job.Top(4) - 120 - 4 * 15);
    Scroll().setValue(1);
    ExpectInLine(form);
    Scroll().setValue(0);
    ExpectInLine(form);
    EXPECT_EQ(form.Job.Top(0), 1320);
}

TEST_F(WeekChartRepresentationTest, ASecondChartIsLaidOutFromTheScrolledFirstLine) {
    MakeChart(Chores, Jobs(10));
    MakeChart(QStringLiteral("Chores Ben"), Jobs(8));
    const WeekChartRepresentation& form = OpenOn(Chores);
    Scroll().setValue(3);
    Choose(QStringLiteral("Chores Ben"));
    EXPECT_EQ(Scroll().value(), 3);
    EXPECT_EQ(form.ScrollValue, 3);
    for (int line = 0; line < 9; ++line)
        EXPECT_EQ(form.Job.Top(line), 1320 + (line - 3) * 510);
    EXPECT_EQ(form.Patrat.Top(8), 1200 - 3 * 510 + 8 * 495);
    EXPECT_EQ(form.DayTotal.Top(0), form.Job.Top(8));
    Scroll().setValue(0);
    EXPECT_EQ(form.Job.Top(0), 1320);
}

TEST_F(WeekChartRepresentationTest, AShorterChartPullsTheBarBackAndItsLinesWithIt) {
    MakeChart(Chores, Jobs(12));
    MakeChart(QStringLiteral("Chores Ben"), Jobs(2));
    const WeekChartRepresentation& form = OpenOn(Chores);
    Scroll().setValue(10);
    Choose(QStringLiteral("Chores Ben"));
    EXPECT_EQ(Scroll().maximum(), 2);
    EXPECT_EQ(Scroll().value(), 2);
    EXPECT_EQ(form.ScrollValue, 2);
    EXPECT_EQ(form.Job.Top(2), 1320);
    ExpectInLine(form);
}

TEST_F(WeekChartRepresentationTest, TheFirstLineMayLeaveTheSurfaceWithoutLimit) {
    MakeChart(Chores, Jobs(30));
    const WeekChartRepresentation& form = OpenOn(Chores);
    for (const int value : {25, 28, 30})
        Scroll().setValue(value);
    EXPECT_EQ(form.Job.Top(0), 1320 - 30 * 510);
    EXPECT_TRUE(form.Job.Visible(0));
    EXPECT_EQ(form.Job.Top(30), 1320);
}

TEST_F(WeekChartRepresentationTest, LinesSlideUnderTheHeaderAndOutOfTheFrame) {
    MakeChart(Chores, Jobs(12));
    const WeekChartRepresentation& form = OpenOn(Chores);
    const QRect header = Part("Picture1").geometry();
    const auto picture = [&] { return Surface().grab(header).toImage(); };
    const QImage before = picture();
    for (const int value : {1, 2, 3}) {
        Scroll().setValue(value);
        EXPECT_EQ(picture(), before) << value;
        EXPECT_TRUE(form.Job[0].isVisible());
        EXPECT_TRUE(form.Job[0].visibleRegion().isEmpty());
    }
    EXPECT_TRUE(form.Job[11].visibleRegion().isEmpty());
}

TEST_F(WeekChartRepresentationTest, TheWheelScrollsOverTheSurfaceOnly) {
    MakeChart(Chores, Jobs(12));
    WeekChartRepresentation& form = OpenOn(Chores);
    Wheel(form, form.Job[2], -15);
    EXPECT_GT(Scroll().value(), 0);
    EXPECT_EQ(form.Job.Top(0), 1320 - Scroll().value() * 510);
    Wheel(form, form.Job[2], 15);
    Wheel(form, form.Job[2], 15);
    EXPECT_EQ(Scroll().value(), 0);
    Wheel(form, List(), -15);
    EXPECT_EQ(Scroll().value(), 0);
}

TEST_F(WeekChartRepresentationTest, TheKeyboardScrollsTheLines) {
    MakeChart(Chores, Jobs(12));
    const WeekChartRepresentation& form = OpenOn(Chores);
    Press(List(), Qt::Key_Tab);
    EXPECT_TRUE(Scroll().hasFocus());
    Press(Scroll(), Qt::Key_Down);
    EXPECT_EQ(form.Job.Top(0), 1320 - 510);
    Press(Scroll(), Qt::Key_End);
    EXPECT_EQ(form.Job.Top(12), 1320);
}

TEST_F(WeekChartRepresentationTest, AnotherOpeningBeginsWithoutScrollOrChoice) {
    MakeChart(Chores, Jobs(12));
    OpenOn(Chores);
    Scroll().setValue(5);
    Click(Button("Ok"));
    EXPECT_FALSE(IsOpen());
    const WeekChartRepresentation& form = Open();
    EXPECT_TRUE(Surface().isHidden());
    EXPECT_EQ(form.ScrollValue, 0);
    EXPECT_EQ(form.Job.Top(0), 1320);
}

TEST_F(WeekChartRepresentationTest, TheToolbarAndAChildOpenItTooBesideOtherForms) {
    MakeChart(Chores, Jobs(1));
    StartSession(QStringLiteral("Anna"), QStringLiteral("Student"));
    QWidget& menu = DefaultForm(QStringLiteral("MainForm")).Widget();
    Find<QAction>(menu, QStringLiteral("KidToolbar.Review")).trigger();
    Settle();
    ASSERT_TRUE(IsOpen());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    DefaultForm(QStringLiteral("OpenFillfrm")).Show();
    Settle();
    EXPECT_TRUE(List().isVisible());
}

TEST_F(WeekChartRepresentationTest, ViewAccountsShowsTheAccountsAndLeavesTheReviewOpen) {
    Open();
    Click(Button("Command1"));
    EXPECT_TRUE(DefaultForm(QStringLiteral("DisplayAccount")).Widget().isVisible());
    EXPECT_TRUE(IsOpen());
}

TEST_F(WeekChartRepresentationTest, AChartWithAnyNameIsReviewed) {
    const QString name = QStringLiteral("Ann's \"tidy/up\" .. \U0001F9F9 [list] Anna");
    MakeChart(name, Jobs(2));
    EXPECT_EQ(OpenOn(name).Job.Count(), 3);
}

} // namespace

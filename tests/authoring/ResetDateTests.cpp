#include "tests/authoring/AuthoringTest.h"

#include <QRadioButton>

class ResetDialog : public AuthoringTest {
protected:
    static ResetDate& Dialog() { return Default<ResetDate>(); }
    static QRadioButton& ThisWeek() { return Find<QRadioButton>(Dialog(), u"ThisWeek"_s); }
    static QRadioButton& NextWeek() { return Find<QRadioButton>(Dialog(), u"NextWeek"_s); }
    static void Ok() { Click(Find(Dialog(), u"ok"_s)); }

    /// Opens the dialog on a chart of the week that begins on `first`.
    static ChartEditor& Open(QDate first = {2001, 3, 4}) {
        StoreChart(u"Chores Anna"_s, {Job(u"a"_s)}, u"Anna"_s, first, first.addDays(6));
        ChartEditor& editor = OpenChart(u"Chores Anna"_s);
        Click(Find(editor, u"ResetTime"_s));
        return editor;
    }
};

TEST_F(ResetDialog, ControlsBearTheirCaptions) {
    Open();
    EXPECT_EQ(Dialog().Caption(), u"Reset Sparkit Dutygrid Date"_s);
    EXPECT_EQ(CaptionOf(Dialog(), u"Label1"_s), u"The Dutygrid will be available:"_s);
    EXPECT_EQ(ThisWeek().text(), u"This week"_s);
    EXPECT_EQ(NextWeek().text(), u"Next week"_s);
    EXPECT_EQ(CaptionOf(Dialog(), u"ok"_s), u"Ok"_s);
    EXPECT_EQ(CaptionOf(Dialog(), u"Cancel"_s), u"Cancel"_s);
    Find(Dialog(), u"Shape1"_s);
}

TEST_F(ResetDialog, ChartOfThisWeekComesUpWithThisWeekChosen) {
    Open();
    EXPECT_TRUE(ThisWeek().isChecked());
    EXPECT_FALSE(NextWeek().isChecked());
}

TEST_F(ResetDialog, ChartOfLastWeekComesUpWithNextWeekChosen) {
    Open({2001, 2, 25});
    EXPECT_TRUE(NextWeek().isChecked());
    EXPECT_FALSE(ThisWeek().isChecked());
}

TEST_F(ResetDialog, ChartWhoseLastDayIsTodayComesUpWithThisWeekChosen) {
    Open({2001, 3, 1});
    EXPECT_TRUE(ThisWeek().isChecked());
}

TEST_F(ResetDialog, YearsAreComparedBeforeMonths) {
    // 7 March is within the days of both weeks that are open now, but not within their years.
    Open({2000, 3, 5});
    EXPECT_TRUE(NextWeek().isChecked()) << "last year's week";
    Dialog().Unload();
    Open({2002, 3, 3});
    EXPECT_TRUE(NextWeek().isChecked()) << "next year's week";
}

TEST_F(ResetDialog, DayOfAWeekOverTheTurnOfTheYearLiesWithinIt) {
    for (const QDate& today : {QDate(2000, 12, 31), QDate(2001, 1, 3), QDate(2001, 1, 6)}) {
        SetToday(today);
        Open({2000, 12, 31});
        EXPECT_TRUE(ThisWeek().isChecked()) << today.toString(Qt::ISODate).toStdString();
        Dialog().Unload();
    }
    for (const QDate& today : {QDate(2000, 12, 30), QDate(2001, 1, 7)}) {
        SetToday(today);
        Open({2000, 12, 31});
        EXPECT_TRUE(NextWeek().isChecked()) << today.toString(Qt::ISODate).toStdString();
        Dialog().Unload();
    }
}

TEST_F(ResetDialog, EachReturnToTheFormChoosesAnew) {
    Open();
    Click(NextWeek());
    EXPECT_TRUE(NextWeek().isChecked());
    EXPECT_FALSE(ThisWeek().isChecked());
    Default<Newfrm>().Show();
    Settle();
    Dialog().Show();
    Settle();
    EXPECT_TRUE(ThisWeek().isChecked());
}

TEST_F(ResetDialog, ThisWeekMovesTheChartToTheWeekThatHoldsToday) {
    ChartEditor& editor = Open({2001, 2, 4});
    Click(ThisWeek());
    Ok();
    EXPECT_EQ(editor.FirstDate, QDate(2001, 3, 4));
    EXPECT_EQ(editor.LastDate, QDate(2001, 3, 10));
    EXPECT_FALSE(editor.NextWeek);
    EXPECT_TRUE(editor.IsNewChart);
    EXPECT_EQ(CaptionOf(editor, u"StartingFrom"_s),
              u"Starting from: Sunday 3/4/2001 to Saturday 3/10/2001"_s);
    EXPECT_EQ(ExistingForm(u"ResetDate"_s), nullptr);
}

TEST_F(ResetDialog, NextWeekMovesTheChartOn) {
    ChartEditor& editor = Open();
    Click(NextWeek());
    Ok();
    EXPECT_EQ(editor.FirstDate, QDate(2001, 3, 11));
    EXPECT_EQ(editor.LastDate, QDate(2001, 3, 17));
    EXPECT_TRUE(editor.NextWeek);
    EXPECT_EQ(CaptionOf(editor, u"StartingFrom"_s),
              u"Starting from: Sunday 3/11/2001 to Saturday 3/17/2001"_s);
}

TEST_F(ResetDialog, OnTheStartDayBothOptionsGiveTheWeekThatStartsToday) {
    SetToday(QDate(2001, 3, 11));
    ChartEditor& editor = Open();
    EXPECT_TRUE(NextWeek().isChecked());
    Ok();
    EXPECT_EQ(editor.FirstDate, QDate(2001, 3, 11));
    Click(Find(editor, u"ResetTime"_s));
    Click(ThisWeek());
    Ok();
    EXPECT_EQ(editor.FirstDate, QDate(2001, 3, 11));
}

TEST_F(ResetDialog, SchoolWeeksHaveFiveDays) {
    SchoolMode = -1;
    ChartEditor& editor = Open();
    Click(NextWeek());
    Ok();
    EXPECT_EQ(CaptionOf(editor, u"StartingFrom"_s),
              u"Starting from: Monday 3/12/2001 to Friday 3/16/2001"_s);
}

TEST_F(ResetDialog, AnyOtherModeLeavesTheTitleAndTheDates) {
    ChartEditor& editor = Open();
    const QString title = CaptionOf(editor, u"StartingFrom"_s);
    SchoolMode = 5;
    Click(NextWeek());
    Ok();
    EXPECT_EQ(CaptionOf(editor, u"StartingFrom"_s), title);
    EXPECT_EQ(editor.FirstDate, QDate(2001, 3, 4));
    EXPECT_TRUE(editor.NextWeek);
    EXPECT_TRUE(editor.IsNewChart);
}

TEST_F(ResetDialog, CancelLeavesTheDates) {
    ChartEditor& editor = Open();
    Click(NextWeek());
    Click(Find(Dialog(), u"Cancel"_s));
    EXPECT_EQ(editor.FirstDate, QDate(2001, 3, 4));
    EXPECT_FALSE(editor.IsNewChart);
    EXPECT_FALSE(editor.NextWeek);
    EXPECT_EQ(ExistingForm(u"ResetDate"_s), nullptr);
}

TEST_F(ResetDialog, ResetReachesTheTableOnlyWithASave) {
    MakeAccount(u"Anna"_s, u"a"_s, u"Student"_s);
    ChartEditor& editor = Open();
    const QStringList stored = Rows(u"Chores Anna"_s);
    Click(NextWeek());
    Ok();
    EXPECT_EQ(Rows(u"Chores Anna"_s), stored);

    Click(Find(editor, u"CreateChart"_s));
    ClickRow(Find(Default<DisplayAllPeople>(), u"ListView1"_s), 0);
    Boxes.Expect(u"Anna's Sparkit Dutygrid has been created"_s);
    Click(Find(Default<DisplayAllPeople>(), u"Ok"_s));
    EXPECT_TRUE(Rows(u"Chores Anna"_s).value(0).contains(u"|2001-03-11|2001-03-17|"_s));
}

TEST_F(ResetDialog, EditorClosedMeanwhileHasNothingToReset) {
    ChartEditor& editor = Open();
    Boxes.Expect(CloseQuestion, PromptAnswer::Yes);
    Click(Find(editor, u"Close"_s));
    Ok();
    EXPECT_EQ(ExistingForm(u"ResetDate"_s), nullptr);
    EXPECT_EQ(EditorAt(0), nullptr);
}

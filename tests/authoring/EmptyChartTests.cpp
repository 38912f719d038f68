#include "tests/authoring/AuthoringTest.h"

#include <QCheckBox>

/// A save that fails at its first row leaves a chart without rows, which stops the lists of charts.
/// The adult's way out of it, by the real forms.
class EmptyChart : public AuthoringTest {
protected:
    void SetUp() override {
        AuthoringTest::SetUp();
        MakeAccount(u"Anna"_s, u"x"_s, u"Student"_s);
        StoreChart(u"Art Anna"_s, {Job(u"Play"_s)});
    }

    static DisplayAllPeople& People() { return Default<DisplayAllPeople>(); }

    /// Presses "Create/Save Dutygrid" and Ok for Anna.
    static void SaveForAnna(ChartEditor& editor) {
        Click(Find(editor, u"CreateChart"_s));
        ClickRow(Find<QListWidget>(People(), u"ListView1"_s), 0);
        Click(Find(People(), u"Ok"_s));
    }

    /// A new chart whose only job is worth more points than a field holds, saved for Anna.
    void FailToSave() {
        ChartEditor& editor = NewChart();
        editor.SetRow(0, Job(u"Sweep"_s, u"Wed"_s, u"99999999999"_s));
        Boxes.ExpectError(ErrorNumber::Overflow);
        SaveForAnna(editor);
        ASSERT_EQ(Rows(Chart), QStringList()) << "a chart without rows";
        ASSERT_TRUE(TableNames().contains(Chart));
        Click(Find(People(), u"Cancel"_s));
    }

    void SaveWell(ChartEditor& editor) {
        editor.SetRow(0, Job(u"Sweep"_s, u"Wed"_s));
        Boxes.Expect(u"Anna's Sparkit Dutygrid has been created"_s);
        SaveForAnna(editor);
        EXPECT_EQ(Rows(Chart),
                  QStringList{u"Sweep|Wed|Mum|Easy|3|0|2001-03-04|2001-03-10|Anna|-1"_s});
    }

    /// What a list on a form shows once the form is in front. A box with an error fails the test.
    static QStringList ListOf(Form& form, const QString& list) {
        form.Show();
        Settle();
        return Entries(Find<QListWidget>(form.Widget(), list));
    }

    void ExpectEveryListToShow(const QStringList& charts, const QStringList& history) {
        EXPECT_EQ(ListOf(DefaultForm(u"Openfrm"_s), u"ChartList"_s), charts);
        EXPECT_EQ(ListOf(DefaultForm(u"WeekChartRepresentation"_s), u"ChartList"_s), charts);
        Form& reports = DefaultForm(u"Reportfrm"_s);
        ListOf(reports, u"StudentsList"_s);
        ClickRow(Find<QListWidget>(reports.Widget(), u"StudentsList"_s), 0);
        EXPECT_EQ(Entries(Find<QListWidget>(reports.Widget(), u"ListView1"_s)), charts);
        EXPECT_EQ(Entries(Find<QListWidget>(reports.Widget(), u"ListView2"_s)), history);
        CurrentUser = u"Anna"_s;
        EXPECT_EQ(ListOf(DefaultForm(u"OpenFillfrm"_s), u"ChartList"_s), charts);
        CurrentUser = u"Mum"_s;
    }

    const QString Chart = u"Chores Anna"_s;
    const QString History = u"History Chores Anna from: 3/4/2001"_s;
};

TEST_F(EmptyChart, CanBeDeletedByItsEditorAndWrittenAnew) {
    FailToSave();
    FakeList ofChild;
    EXPECT_ERROR(3021, Database().PopulateChartList(ofChild, true));

    ChartEditor& editor = OpenChart(Chart);
    EXPECT_TRUE(Shown(editor));
    EXPECT_EQ(editor.KidName, QString());
    EXPECT_EQ(Texts(editor), QStringList{QString()});
    Click(Find(editor, u"DeleteChart"_s));
    Click(Find(Default<DeleteChartForm>(), u"Yes"_s));
    EXPECT_FALSE(Shown(editor));
    EXPECT_EQ(TableNames(), QStringList{u"Art Anna"_s});

    SaveWell(NewChart());
    ExpectEveryListToShow({u"Art Anna"_s, Chart}, {History});
}

TEST_F(EmptyChart, CanBeDeletedByItsOnlyRowAndSavedAgainFromTheSameEditor) {
    FailToSave();
    ChartEditor& editor = OpenChart(Chart);
    Boxes.Expect(DeleteQuestion, PromptAnswer::Yes);
    Boxes.Expect(CloseQuestion, PromptAnswer::No);
    Click(editor.JobDelete[0]);
    EXPECT_EQ(TableNames(), QStringList{u"Art Anna"_s});
    EXPECT_TRUE(Shown(editor));
    Find<QCheckBox>(editor, u"AutoCreatechk"_s).setChecked(true);

    SaveWell(editor);
    ExpectEveryListToShow({u"Art Anna"_s, Chart}, {History});
}

TEST_F(EmptyChart, CannotBeSavedOverAsItHasNoWeekForItsHistory) {
    FailToSave();
    ChartEditor& editor = OpenChart(Chart);
    editor.SetRow(0, Job(u"Sweep"_s, u"Wed"_s));
    Boxes.ExpectError(ErrorNumber::NoCurrentRecord);
    SaveForAnna(editor);
    EXPECT_EQ(TableNames(), (QStringList{u"Art Anna"_s, Chart}));
    EXPECT_EQ(Rows(Chart), QStringList());
}

TEST_F(EmptyChart, OpensOnTheWeekOfTheChartReadBeforeItAndElseOnTodays) {
    Database().CreateChart(u"Bare"_s);
    ChartEditor& first = OpenChart(u"Bare"_s);
    EXPECT_EQ(first.FirstDate, QDate(2001, 3, 4));
    EXPECT_EQ(first.LastDate, QDate(2001, 3, 10));
    EXPECT_EQ(first.StartingFrom().text(),
              u"Starting from: Sunday 3/4/2001 to Saturday 3/10/2001"_s);
    StoreChart(u"Old"_s, {Job(u"Play"_s)}, u"Anna"_s, {2000, 12, 3}, {2000, 12, 9});
    Database().ReadDates(u"Old"_s);
    ChartEditor& second = OpenChart(u"Bare"_s);
    EXPECT_EQ(second.FirstDate, QDate(2000, 12, 3));
    EXPECT_EQ(second.LastDate, QDate(2000, 12, 9));
}

TEST_F(EmptyChart, ScratchTableOfAFailedPrintIsMendedByTheNextPrint) {
    ChartEditor& editor = NewChart();
    editor.SetRow(0, Job(u"Sweep"_s, u"Wed"_s, u"99999999999"_s));
    Boxes.ExpectError(ErrorNumber::Overflow);
    Click(Find(editor, u"Print"_s));
    EXPECT_EQ(Rows(u"Printed"_s), QStringList());
    editor.SetRow(0, Job(u"Sweep"_s, u"Wed"_s));
    Click(Find(editor, u"Print"_s));
    ASSERT_EQ(Paper.Files().size(), 1);
    ExpectEveryListToShow({u"Art Anna"_s}, {});
}

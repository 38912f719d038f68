#include "tests/authoring/AuthoringTest.h"

#include <QCheckBox>
#include <QLineEdit>

class ChartEditorActions : public AuthoringTest {};

// Rows

TEST_F(ChartEditorActions, EnterInAnyOtherBoxAddsARowEachTime) {
    ChartEditor& editor = NewChart();
    editor.SetRow(0, Job(u"Feed the dog"_s));
    int rows = 1;
    for (const QString& column :
         {u"Points"_s, u"DayOfWeek"_s, u"Difficulty"_s, u"AdultResponsable"_s}) {
        Press(RowControl(editor, column, 0), Qt::Key_Return);
        EXPECT_EQ(editor.RowCount(), ++rows) << column.toStdString();
        Press(RowControl(editor, column, rows - 1), Qt::Key_Enter);
        EXPECT_EQ(editor.RowCount(), ++rows) << column.toStdString();
    }
    AddJobs(editor, 1);
    EXPECT_EQ(editor.RowCount(), rows + 1);
    EXPECT_EQ(RowControl<QComboBox>(editor, u"DayOfWeek"_s, rows).count(), 9);
}

TEST_F(ChartEditorActions, EnterInTheTextOfACombosBoxAddsOneRow) {
    ChartEditor& editor = NewChart();
    Press(*RowControl<QComboBox>(editor, u"DayOfWeek"_s, 0).lineEdit(), Qt::Key_Return);
    EXPECT_EQ(editor.RowCount(), 2);
}

TEST_F(ChartEditorActions, OtherKeysAddNoRow) {
    ChartEditor& editor = NewChart();
    Press(RowControl(editor, u"Points"_s, 0), Qt::Key_1);
    Press(RowControl(editor, u"DayOfWeek"_s, 0), Qt::Key_F7);
    EXPECT_EQ(editor.RowCount(), 1);
}

TEST_F(ChartEditorActions, EnterInTheJobAddsNoRow) {
    ChartEditor& editor = NewChart();
    Press(RowControl(editor, u"Instructions"_s, 0), Qt::Key_Return);
    EXPECT_EQ(editor.RowCount(), 1);
}

TEST_F(ChartEditorActions, DeletingTheFirstOfThreeMovesTheOthersUp) {
    ChartEditor& editor = ThreeJobs();
    Click(RowControl(editor, u"JobDelete"_s, 0));
    ASSERT_EQ(editor.RowCount(), 2);
    const EditorRow first = editor.Row(0);
    EXPECT_EQ(first.Instructions, u"b"_s);
    EXPECT_EQ(first.DayOfWeek, u"Tue"_s);
    EXPECT_EQ(first.AdultResponsable, u"Dad"_s);
    EXPECT_EQ(first.Difficulty, u"Hard"_s);
    EXPECT_EQ(first.Points, u"2"_s);
    EXPECT_EQ(editor.Row(1).Instructions, u"c"_s);
    EXPECT_EQ(editor.Row(1).Points, u"3"_s);
    EXPECT_EQ(CaptionOf(editor, u"Number(0)"_s), u"1:"_s);
    EXPECT_EQ(CaptionOf(editor, u"Number(1)"_s), u"2:"_s);
    for (const QString& column :
         {u"Number"_s, u"Instructions"_s, u"DayOfWeek"_s, u"AdultResponsable"_s, u"Difficulty"_s,
          u"Points"_s, u"JobDelete"_s})
        EXPECT_EQ(editor.findChild<QWidget*>(column + u"(2)"_s), nullptr) << column.toStdString();
}

TEST_F(ChartEditorActions, DeletingTheLastRowLeavesTheOthersAlone) {
    ChartEditor& editor = ThreeJobs();
    Click(RowControl(editor, u"JobDelete"_s, 2));
    EXPECT_EQ(Texts(editor), (QStringList{u"a"_s, u"b"_s}));
}

TEST_F(ChartEditorActions, RowsCanBeAddedAgainAfterADeletion) {
    ChartEditor& editor = ThreeJobs();
    Click(RowControl(editor, u"JobDelete"_s, 1));
    AddJobs(editor, 1);
    EXPECT_EQ(Texts(editor), (QStringList{u"a"_s, u"c"_s, QString()}));
    EXPECT_EQ(CaptionOf(editor, u"Number(2)"_s), u"3:"_s);
    Click(RowControl(editor, u"JobDelete"_s, 0));
    EXPECT_EQ(Texts(editor), (QStringList{u"c"_s, QString()}));
}

TEST_F(ChartEditorActions, DeletingWhileScrolledLeavesAGapAtTheEndOfTheScrolling) {
    ChartEditor& editor = ThreeJobs();
    Scroll(editor).setValue(1);
    Click(RowControl(editor, u"JobDelete"_s, 1));
    EXPECT_EQ(Scroll(editor).maximum(), 2);
    EXPECT_EQ(editor.Points.Top(1), 650) << "rows are not laid out again";
    Scroll(editor).setValue(2);
    EXPECT_FALSE(editor.Points.Visible(0));
    EXPECT_FALSE(editor.Points.Visible(1));
}

TEST_F(ChartEditorActions, DeletionReachesTheTableOnlyWithASave) {
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s), Job(u"b"_s)});
    const QStringList stored = Rows(u"Chores Anna"_s);
    ChartEditor& editor = OpenChart(u"Chores Anna"_s);
    Click(RowControl(editor, u"JobDelete"_s, 0));
    EXPECT_EQ(editor.RowCount(), 1);
    EXPECT_EQ(Rows(u"Chores Anna"_s), stored);
}

TEST_F(ChartEditorActions, OnlyRowStaysWhenDeletingTheChartIsRefused) {
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s)});
    ChartEditor& editor = OpenChart(u"Chores Anna"_s);
    Boxes.Expect(DeleteQuestion, PromptAnswer::No);
    Click(RowControl(editor, u"JobDelete"_s, 0));
    EXPECT_EQ(Texts(editor), QStringList{u"a"_s});
    EXPECT_TRUE(TableNames().contains(u"Chores Anna"_s));
    EXPECT_EQ(Boxes.Last().Title, u"Sparkit Dutygrid"_s);
}

TEST_F(ChartEditorActions, DeletingTheOnlyRowOfAnUnsavedChartLeavesTheFormAsItWas) {
    ChartEditor& editor = NewChart();
    editor.SetRow(0, Job(u"a"_s));
    Boxes.Expect(DeleteQuestion, PromptAnswer::Yes);
    Click(RowControl(editor, u"JobDelete"_s, 0));
    EXPECT_TRUE(Shown(editor));
    EXPECT_EQ(Texts(editor), QStringList{u"a"_s});
}

TEST_F(ChartEditorActions, DeletingTheOnlyRowOfASavedChartDropsItAndAsksBeforeClosing) {
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s)});
    const QPointer<ChartEditor> editor = &OpenChart(u"Chores Anna"_s);
    Boxes.Expect(DeleteQuestion, PromptAnswer::Yes);
    Boxes.Expect(CloseQuestion, PromptAnswer::Yes, [] {
        EXPECT_FALSE(Database().ChartExist(u"Chores Anna"_s)) << "dropped before the question";
    });
    Click(RowControl(*editor, u"JobDelete"_s, 0));
    EXPECT_TRUE(editor.isNull());
    EXPECT_FALSE(TableNames().contains(u"Chores Anna"_s));
}

TEST_F(ChartEditorActions, EditorStaysWithItsRowIfClosingIsRefusedAfterTheChartHasGone) {
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s)});
    ChartEditor& editor = OpenChart(u"Chores Anna"_s);
    Boxes.Expect(DeleteQuestion, PromptAnswer::Yes);
    Boxes.Expect(CloseQuestion, PromptAnswer::No);
    Click(RowControl(editor, u"JobDelete"_s, 0));
    EXPECT_TRUE(Shown(editor));
    EXPECT_EQ(Texts(editor), QStringList{u"a"_s});
    Boxes.Expect(DeleteQuestion, PromptAnswer::Yes);
    Click(RowControl(editor, u"JobDelete"_s, 0));
    EXPECT_TRUE(Shown(editor)) << "the chart has gone already";
}

// Points

TEST_F(ChartEditorActions, PointsWithoutALeadingNumberAreRefusedAndEmptied) {
    ChartEditor& editor = NewChart();
    auto& points = RowControl<QLineEdit>(editor, u"Points"_s, 0);
    for (const QString& text : {u"abc"_s, u"00"_s, u"-"_s, u"."_s, u" "_s, u"x3"_s}) {
        Boxes.Expect(PointsMessage);
        points.setText(text);
        EXPECT_EQ(points.text(), QString()) << text.toStdString();
    }
    EXPECT_EQ(Boxes.Last().Title, u"Sparkit Dutygrid"_s);
}

TEST_F(ChartEditorActions, PointsWithALeadingNumberPass) {
    ChartEditor& editor = NewChart();
    auto& points = RowControl<QLineEdit>(editor, u"Points"_s, 0);
    for (const QString& text :
         {QString(), u"0"_s, u"12abc"_s, u"-3"_s, u"1.5"_s, u"32768"_s, u"99999"_s, u" 7"_s}) {
        points.setText(text);
        EXPECT_EQ(points.text(), text);
    }
}

TEST_F(ChartEditorActions, PointsAreCheckedAtEachKeystroke) {
    ChartEditor& editor = NewChart();
    auto& points = RowControl<QLineEdit>(editor, u"Points"_s, 0);
    TypeOn(points, u"12"_s);
    TypeOn(points, u"x"_s);
    EXPECT_EQ(points.text(), u"12x"_s);
    Boxes.Expect(PointsMessage);
    Type(points, u"-"_s);
    EXPECT_EQ(points.text(), QString());
    TypeOn(points, u"0"_s);
    Boxes.Expect(PointsMessage);
    TypeOn(points, u"0"_s);
    EXPECT_EQ(points.text(), QString());
}

TEST_F(ChartEditorActions, PointsOfRowsAddedLaterAreCheckedToo) {
    ChartEditor& editor = NewChart();
    AddJobs(editor, 1);
    Boxes.Expect(PointsMessage);
    TypeOn(RowControl(editor, u"Points"_s, 1), u"q"_s);
    EXPECT_EQ(editor.Row(1).Points, QString());
}

// Job names

TEST_F(ChartEditorActions, DroppingTheListDownFillsItAndKeepsTheTypedText) {
    WriteJobs("Feed the dog\r\nWater plants\r\n");
    ChartEditor& editor = NewChart();
    auto& jobs = RowControl<QComboBox>(editor, u"Instructions"_s, 0);
    EXPECT_EQ(jobs.count(), 0);
    Type(jobs, u"Fee"_s);
    jobs.showPopup();
    EXPECT_EQ(Entries(jobs), (QStringList{u"Feed the dog"_s, u"Water plants"_s}));
    EXPECT_EQ(jobs.currentText(), u"Fee"_s);
    jobs.hidePopup();
}

TEST_F(ChartEditorActions, ClickOnTheArrowDropsTheFilledListDown) {
    WriteJobs("Feed the dog\r\nWater plants\r\n");
    ChartEditor& editor = NewChart();
    auto& jobs = RowControl<QComboBox>(editor, u"Instructions"_s, 0);
    QTest::mouseClick(&jobs, Qt::LeftButton, {}, QPoint(jobs.width() - 8, jobs.height() / 2));
    Settle();
    EXPECT_TRUE(jobs.view()->isVisible());
    EXPECT_EQ(Entries(jobs), (QStringList{u"Feed the dog"_s, u"Water plants"_s}));
    jobs.hidePopup();
}

TEST_F(ChartEditorActions, DroppingTheListDownShowsWhatOtherRowsHaveWritten) {
    WriteJobs("");
    ChartEditor& editor = NewChart();
    AddJobs(editor, 1);
    Type(RowControl(editor, u"Instructions"_s, 0), u"Sweep"_s);
    Press(RowControl(editor, u"Instructions"_s, 0), Qt::Key_Return);
    auto& jobs = RowControl<QComboBox>(editor, u"Instructions"_s, 1);
    jobs.showPopup();
    EXPECT_EQ(Entries(jobs), QStringList{u"Sweep"_s});
    jobs.hidePopup();
}

TEST_F(ChartEditorActions, ChoosingAJobPutsItInTheRowAndRemembersItsPlaceForAllRows) {
    WriteJobs("a\r\nb\r\nc\r\n");
    ChartEditor& editor = NewChart();
    AddJobs(editor, 1);
    EXPECT_EQ(editor.LastListIndex, 0);
    Choose(RowControl<QComboBox>(editor, u"Instructions"_s, 1), 2);
    EXPECT_EQ(editor.Row(1).Instructions, u"c"_s);
    EXPECT_EQ(editor.LastListIndex, 2);
    Type(RowControl(editor, u"Instructions"_s, 0), u"new"_s);
    Press(RowControl(editor, u"Instructions"_s, 0), Qt::Key_Return);
    EXPECT_EQ(ReadJobs(), "a\r\nb\r\nnew\r\nc\r\n");
}

TEST_F(ChartEditorActions, TypingAKnownJobIsNoChoice) {
    WriteJobs("a\r\nb\r\nc\r\n");
    ChartEditor& editor = NewChart();
    auto& jobs = RowControl<QComboBox>(editor, u"Instructions"_s, 0);
    jobs.showPopup();
    jobs.hidePopup();
    jobs.setFocus();
    Type(jobs, u"c"_s);
    RowControl(editor, u"Points"_s, 0).setFocus();
    Settle();
    EXPECT_EQ(editor.LastListIndex, 0);
}

TEST_F(ChartEditorActions, EnterPutsANewJobAtTheTopWhileNoneWasChosen) {
    WriteJobs("a\r\nb\r\n");
    ChartEditor& editor = NewChart();
    Type(RowControl(editor, u"Instructions"_s, 0), u"new"_s);
    Press(RowControl(editor, u"Instructions"_s, 0), Qt::Key_Return);
    EXPECT_EQ(ReadJobs(), "new\r\na\r\nb\r\n");
    EXPECT_EQ(editor.Row(0).Instructions, u"new"_s);
}

TEST_F(ChartEditorActions, EnterOnTheJobChosenLastReplacesItByItself) {
    WriteJobs("a\r\nb\r\n");
    ChartEditor& editor = NewChart();
    Choose(RowControl<QComboBox>(editor, u"Instructions"_s, 0), 1);
    Press(RowControl(editor, u"Instructions"_s, 0), Qt::Key_Return);
    EXPECT_EQ(ReadJobs(), "a\r\nb\r\n");
    EXPECT_EQ(editor.Row(0).Instructions, u"b"_s);
}

TEST_F(ChartEditorActions, EnterOnAnEmptyJobRemovesTheOneChosenLast) {
    WriteJobs("a\r\nb\r\nc\r\n");
    ChartEditor& editor = NewChart();
    Choose(RowControl<QComboBox>(editor, u"Instructions"_s, 0), 1);
    Type(RowControl(editor, u"Instructions"_s, 0), QString());
    Press(RowControl(editor, u"Instructions"_s, 0), Qt::Key_Return);
    EXPECT_EQ(ReadJobs(), "a\r\nc\r\n");
    EXPECT_EQ(editor.Row(0).Instructions, QString());
}

TEST_F(ChartEditorActions, EnterOnAnEmptyJobWithAnEmptyListChangesNothing) {
    WriteJobs("");
    ChartEditor& editor = NewChart();
    Press(RowControl(editor, u"Instructions"_s, 0), Qt::Key_Return);
    EXPECT_EQ(ReadJobs(), "");
}

TEST_F(ChartEditorActions, JobGoesToTheEndOfAListThatHasBecomeShorter) {
    WriteJobs("a\r\nb\r\nc\r\n");
    ChartEditor& editor = NewChart();
    Choose(RowControl<QComboBox>(editor, u"Instructions"_s, 0), 2);
    WriteJobs("a\r\n");
    Type(RowControl(editor, u"Instructions"_s, 0), u"new"_s);
    Press(RowControl(editor, u"Instructions"_s, 0), Qt::Key_Return);
    EXPECT_EQ(ReadJobs(), "a\r\nnew\r\n");
}

TEST_F(ChartEditorActions, MissingJobListIsReportedAndTheTypedTextStays) {
    QFile::remove(Path(u"Jobs/HomeJobs.dat"_s));
    ChartEditor& editor = NewChart();
    Type(RowControl(editor, u"Instructions"_s, 0), u"Sweep"_s);
    Boxes.ExpectError(ErrorNumber::FileNotFound);
    Press(RowControl(editor, u"Instructions"_s, 0), Qt::Key_Return);
    EXPECT_EQ(editor.Row(0).Instructions, u"Sweep"_s);
    EXPECT_FALSE(QFile::exists(Path(u"Jobs/HomeJobs.dat"_s)));
}

// Saving

TEST_F(ChartEditorActions, SavingPutsEveryJobIntoTheListAndHandsOn) {
    WriteJobs("old\r\n");
    ChartEditor& editor = ThreeJobs();
    Find<QCheckBox>(editor, u"AutoCreatechk"_s).setChecked(true);
    Click(Find(editor, u"CreateChart"_s));
    EXPECT_EQ(ReadJobs(), "c\r\nb\r\na\r\nold\r\n");
    EXPECT_FALSE(Shown(editor));
    EXPECT_FALSE(editor.IsUnloaded());
    auto& people = Default<DisplayAllPeople>();
    EXPECT_TRUE(Shown(people));
    EXPECT_EQ(people.ChartName, u"Chores"_s);
    EXPECT_EQ(people.FormIndex, 0);
    EXPECT_EQ(people.FirstDate, QDate(2001, 3, 4));
    EXPECT_EQ(people.LastDate, QDate(2001, 3, 10));
    EXPECT_TRUE(people.AutoCreate);
    EXPECT_EQ(TableNames(), QStringList()) << "nothing is stored before the children are chosen";
}

TEST_F(ChartEditorActions, SavingHandsOnAnUntickedAutoCreate) {
    ChartEditor& editor = NewChart();
    Click(Find(editor, u"AutoCreatechk"_s));
    EXPECT_FALSE(Find<QCheckBox>(editor, u"AutoCreatechk"_s).isChecked());
    Click(Find(editor, u"CreateChart"_s));
    EXPECT_FALSE(Default<DisplayAllPeople>().AutoCreate);
}

TEST_F(ChartEditorActions, SavingTwoRowsOfOneJobListsItOnceWithNothingChosen) {
    WriteJobs("old\r\n");
    ChartEditor& editor = NewChart();
    AddJobs(editor, 1);
    editor.SetRow(0, Job(u"Sweep"_s));
    editor.SetRow(1, Job(u"Sweep"_s, u"Tue"_s));
    Click(Find(editor, u"CreateChart"_s));
    EXPECT_EQ(ReadJobs(), "Sweep\r\nold\r\n");
}

TEST_F(ChartEditorActions, SavingTwoRowsOfOneListedJobListsItTwiceWithAnotherChosen) {
    WriteJobs("Sweep\r\nb\r\nc\r\n");
    ChartEditor& editor = NewChart();
    AddJobs(editor, 1);
    Choose(RowControl<QComboBox>(editor, u"Instructions"_s, 0), 2);
    editor.SetRow(0, Job(u"Sweep"_s));
    editor.SetRow(1, Job(u"Sweep"_s, u"Tue"_s));
    Click(Find(editor, u"CreateChart"_s));
    EXPECT_EQ(ReadJobs(), "Sweep\r\nb\r\nSweep\r\nc\r\n");
}

TEST_F(ChartEditorActions, SavingAnEmptyRowTakesTheJobChosenLastOutOfTheList) {
    WriteJobs("a\r\nb\r\nc\r\n");
    ChartEditor& editor = NewChart();
    AddJobs(editor, 1);
    Choose(RowControl<QComboBox>(editor, u"Instructions"_s, 0), 1);
    Click(Find(editor, u"CreateChart"_s));
    EXPECT_EQ(ReadJobs(), "a\r\nc\r\n");
}

TEST_F(ChartEditorActions, SavingWithoutAJobListIsReportedAndTheEditorStays) {
    QFile::remove(Path(u"Jobs/HomeJobs.dat"_s));
    ChartEditor& editor = ThreeJobs();
    Boxes.ExpectError(ErrorNumber::FileNotFound);
    Click(Find(editor, u"CreateChart"_s));
    EXPECT_TRUE(Shown(editor));
    EXPECT_EQ(Texts(editor), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
    EXPECT_EQ(ExistingForm(u"DisplayAllPeople"_s), nullptr);
}

TEST_F(ChartEditorActions, CancelledSaveLeavesTheEditorHiddenAndNothingStored) {
    ChartEditor& editor = ThreeJobs();
    Click(Find(editor, u"CreateChart"_s));
    Click(Find(Default<DisplayAllPeople>(), u"Cancel"_s));
    EXPECT_EQ(ExistingForm(u"DisplayAllPeople"_s), nullptr);
    EXPECT_FALSE(Shown(editor));
    EXPECT_EQ(EditorAt(0), &editor);
    EXPECT_EQ(TableNames(), QStringList());
}

// The other buttons

TEST_F(ChartEditorActions, ResetOpensOnAChartOfThisWeek) {
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s)});
    ChartEditor& editor = OpenChart(u"Chores Anna"_s);
    Click(Find(editor, u"ResetTime"_s));
    const auto& reset = Default<ResetDate>();
    EXPECT_TRUE(Shown(reset));
    EXPECT_EQ(reset.FormIndex, 0);
    EXPECT_EQ(reset.ChartName, u"Chores Anna"_s);
    EXPECT_FALSE(reset.OutsideChartWeek);
    EXPECT_TRUE(Shown(editor));
}

TEST_F(ChartEditorActions, TodayIsInsideTheWeekFromItsFirstToItsLastDay) {
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s)}, u"Anna"_s, {2000, 12, 31}, {2001, 1, 6});
    ChartEditor& editor = OpenChart(u"Chores Anna"_s);
    const QList<QPair<QDate, bool>> days = {{{2000, 12, 30}, true},
                                            {{2000, 12, 31}, false},
                                            {{2001, 1, 1}, false},
                                            {{2001, 1, 6}, false},
                                            {{2001, 1, 7}, true}};
    for (const auto& [today, outside] : days) {
        SetToday(today);
        editor.Show();
        Click(Find(editor, u"ResetTime"_s));
        EXPECT_EQ(Default<ResetDate>().OutsideChartWeek, outside)
            << today.toString(Qt::ISODate).toStdString();
    }
}

TEST_F(ChartEditorActions, DeleteOpensItsConfirmation) {
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s)});
    Click(Find(OpenChart(u"Chores Anna"_s), u"DeleteChart"_s));
    const auto& confirm = Default<DeleteChartForm>();
    EXPECT_TRUE(Shown(confirm));
    EXPECT_EQ(confirm.ChartName, u"Chores Anna"_s);
    EXPECT_EQ(confirm.FormIndex, 0);
}

TEST_F(ChartEditorActions, CloseAsksEachTimeThoughNothingHasChanged) {
    const QPointer<ChartEditor> editor = &NewChart();
    Boxes.Expect(CloseQuestion, PromptAnswer::No);
    Click(Find(*editor, u"Close"_s));
    EXPECT_TRUE(Shown(*editor));
    Boxes.Expect(CloseQuestion, PromptAnswer::Yes);
    Click(Find(*editor, u"Close"_s));
    EXPECT_TRUE(editor.isNull());
    EXPECT_EQ(Boxes.Last().Title, u"Sparkit Dutygrid"_s);
}

TEST_F(ChartEditorActions, ClosingTheWindowAsksAsTheButtonDoes) {
    const QPointer<ChartEditor> editor = &NewChart();
    Boxes.Expect(CloseQuestion, PromptAnswer::No);
    editor->Frame().close();
    Settle();
    ASSERT_FALSE(editor.isNull());
    EXPECT_TRUE(Shown(*editor));
    Boxes.Expect(CloseQuestion, PromptAnswer::Yes);
    editor->Frame().close();
    Settle();
    EXPECT_TRUE(editor.isNull());
}

TEST_F(ChartEditorActions, TheSlotIsEmptyAsSoonAsTheEditorIsUnloaded) {
    ChartEditor& editor = NewChart();
    Boxes.Expect(CloseQuestion, PromptAnswer::Yes);
    editor.Unload();
    EXPECT_EQ(EditorAt(0), nullptr);
}

TEST_F(ChartEditorActions, SlotOfAClosedEditorIsEmptyAndNotUsedAgain) {
    ChartEditor& first = NewChart();
    Boxes.Expect(CloseQuestion, PromptAnswer::Yes);
    Click(Find(first, u"Close"_s));
    EXPECT_EQ(EditorAt(0), nullptr);
    const ChartEditor& second = NewChart(u"Other"_s);
    EXPECT_EQ(second.FormIndex, 1);
    EXPECT_EQ(EditorAt(0), nullptr);
    EXPECT_EQ(EditorAt(1), &second);
}

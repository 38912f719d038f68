#include "tests/authoring/AuthoringTest.h"
#include "tests/common/GermanWeekdays.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QStyleOptionFrame>

namespace {

const QStringList Columns = {u"Number"_s,           u"Instructions"_s, u"DayOfWeek"_s,
                             u"AdultResponsable"_s, u"Difficulty"_s,   u"Points"_s,
                             u"JobDelete"_s};

} // namespace

class ChartEditorForm : public AuthoringTest {};

TEST_F(ChartEditorForm, ControlsBearTheirCaptions) {
    StoreChart(u"Chores Anna"_s, {Job(u"Feed the dog"_s)});
    const ChartEditor& editor = OpenChart(u"Chores Anna"_s);
    EXPECT_EQ(editor.Caption(), u"Sparkit Dutygrid Editor"_s);
    EXPECT_EQ(Find<QGroupBox>(editor, u"EditChartFrame"_s).title(), u"Create Sparkit Dutygrid"_s);
    const QList<QPair<QString, QString>> captions = {
        {u"InstructionsLbl"_s, u"Jobs"_s},
        {u"DayOfWeeklbl"_s, u"Day of week"_s},
        {u"AdultResponsablelbl"_s, u"Adult Responsible"_s},
        {u"difficultylbl"_s, u"Difficulty"_s},
        {u"Pointslbl"_s, u"Points"_s},
        {u"Number(0)"_s, u"1:"_s},
        {u"JobDelete(0)"_s, u"Delete"_s},
        {u"NewTask"_s, u"Add Job"_s},
        {u"CreateChart"_s, u"Create/Save Dutygrid"_s},
        {u"Print"_s, u"Print Dutygrid"_s},
        {u"ResetTime"_s, u"Reset Date"_s},
        {u"DeleteChart"_s, u"Delete Dutygrid"_s},
        {u"Close"_s, u"Close"_s},
        {u"AutoCreatechk"_s, u"Auto Create Dutygrid For The Following Week."_s}};
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(CaptionOf(editor, name), caption) << name.toStdString();
}

TEST_F(ChartEditorForm, NewChartStartsWithOneEmptyRowOfTheAdultLoggedIn) {
    const ChartEditor& editor = NewChart();
    ASSERT_EQ(editor.RowCount(), 1);
    const EditorRow row = editor.Row(0);
    EXPECT_EQ(row.Instructions, QString());
    EXPECT_EQ(row.DayOfWeek, QString());
    EXPECT_EQ(row.AdultResponsable, u"Mum"_s);
    EXPECT_EQ(row.Difficulty, QString());
    EXPECT_EQ(row.Points, QString());
}

TEST_F(ChartEditorForm, NewChartHasAutoCreateTickedAndNothingToResetOrDelete) {
    const ChartEditor& editor = NewChart();
    EXPECT_TRUE(Find<QCheckBox>(editor, u"AutoCreatechk"_s).isChecked());
    EXPECT_TRUE(Find(editor, u"ResetTime"_s).isHidden());
    EXPECT_TRUE(Find(editor, u"DeleteChart"_s).isHidden());
}

TEST_F(ChartEditorForm, OpenedChartTakesAutoCreateFromItsTable) {
    StoreChart(u"Rolling Anna"_s, {Job(u"a"_s)}, u"Anna"_s, {2001, 3, 4}, {2001, 3, 10}, true);
    StoreChart(u"Once Anna"_s, {Job(u"a"_s)});
    EXPECT_TRUE(Find<QCheckBox>(OpenChart(u"Rolling Anna"_s), u"AutoCreatechk"_s).isChecked());
    EXPECT_FALSE(Find<QCheckBox>(OpenChart(u"Once Anna"_s), u"AutoCreatechk"_s).isChecked());
}

TEST_F(ChartEditorForm, RowsStandInTheirColumns) {
    ChartEditor& editor = NewChart();
    AddJobs(editor, 1);
    const auto expectColumn = [](const auto& column, int left, int width) {
        for (int row = 0; row < 2; ++row) {
            EXPECT_EQ(column.Left(row), left);
            EXPECT_EQ(column.Width(row), width);
            EXPECT_EQ(column.Height(row), 330);
            EXPECT_EQ(column.Top(row), 650 + row * 380);
        }
    };
    expectColumn(editor.Number, 120, 375);
    expectColumn(editor.Instructions, 600, 2655);
    expectColumn(editor.DayOfWeek, 3360, 1695);
    expectColumn(editor.AdultResponsable, 5160, 2535);
    expectColumn(editor.Difficulty, 7800, 1575);
    expectColumn(editor.Points, 9480, 1335);
    expectColumn(editor.JobDelete, 10920, 975);
}

TEST_F(ChartEditorForm, ElevenRowsShowInTheFrame) {
    ChartEditor& editor = NewChart();
    AddJobs(editor, 12);
    Scroll(editor).setValue(0);
    const auto& frame = Find(editor, u"EditChartFrame"_s);
    EXPECT_EQ(frame.height(), 5055 / 15);
    const auto seen = [&editor](int row) {
        const auto& box = RowControl(editor, u"Points"_s, row);
        return box.visibleRegion().boundingRect().height();
    };
    const int whole = RowControl(editor, u"Points"_s, 0).height();
    EXPECT_EQ(seen(10), whole);
    EXPECT_LT(seen(11), whole);
    EXPECT_EQ(seen(12), 0);
    EXPECT_TRUE(editor.Points.Visible(12)) << "clipped, not hidden";
}

TEST_F(ChartEditorForm, RowControlsHaveTheListedHeight) {
    // 22 pixels, whatever the look of other boxes and buttons asks for.
    const ChartEditor& editor = NewChart();
    for (const QString& column : Columns)
        EXPECT_EQ(RowControl(editor, column, 0).height(), 22) << column.toStdString();
}

TEST_F(ChartEditorForm, DifficultyListHasFiveTextsInEachRow) {
    ChartEditor& editor = NewChart();
    AddJobs(editor, 1);
    const QStringList texts = {u"Very Easy"_s, u"Easy"_s, u"Medium"_s, u"Hard"_s, u"Very Hard"_s};
    EXPECT_EQ(Entries(RowControl<QComboBox>(editor, u"Difficulty"_s, 0)), texts);
    EXPECT_EQ(Entries(RowControl<QComboBox>(editor, u"Difficulty"_s, 1)), texts);
}

TEST_F(ChartEditorForm, FillDifficultyListDoesNotClearTheListFirst) {
    ChartEditor& editor = NewChart();
    editor.FillDifficultyList(0);
    EXPECT_EQ(RowControl<QComboBox>(editor, u"Difficulty"_s, 0).count(), 10);
}

TEST_F(ChartEditorForm, HomeChartsOfferTheWholeWeek) {
    ChartEditor& editor = NewChart();
    AddJobs(editor, 1);
    const QStringList days = {u"Sun"_s, u"Mon"_s, u"Tue"_s,     u"Wed"_s,    u"Thu"_s,
                              u"Fri"_s, u"Sat"_s, u"Mon-Fri"_s, u"Sun-Sat"_s};
    EXPECT_EQ(Entries(RowControl<QComboBox>(editor, u"DayOfWeek"_s, 0)), days);
    EXPECT_EQ(Entries(RowControl<QComboBox>(editor, u"DayOfWeek"_s, 1)), days);
}

TEST_F(ChartEditorForm, SchoolChartsHaveNoWeekend) {
    SchoolMode = -1;
    ChartEditor& editor = NewChart();
    AddJobs(editor, 1);
    const QStringList days = {u"Mon"_s, u"Tue"_s, u"Wed"_s, u"Thu"_s, u"Fri"_s, u"Mon-Fri"_s};
    EXPECT_EQ(Entries(RowControl<QComboBox>(editor, u"DayOfWeek"_s, 0)), days);
    EXPECT_EQ(Entries(RowControl<QComboBox>(editor, u"DayOfWeek"_s, 1)), days);
}

TEST_F(ChartEditorForm, FillDayListReplacesTheListAndKeepsTheText) {
    ChartEditor& editor = NewChart();
    auto& day = RowControl<QComboBox>(editor, u"DayOfWeek"_s, 0);
    day.setEditText(u"Sat"_s);
    editor.FillDayList(0, u"School"_s);
    EXPECT_EQ(day.count(), 6);
    EXPECT_EQ(day.currentText(), u"Sat"_s);
    editor.FillDayList(0, u"Elsewhere"_s);
    EXPECT_EQ(day.count(), 0);
    EXPECT_EQ(day.currentText(), u"Sat"_s);
}

TEST_F(ChartEditorForm, AnyOtherModeFillsNoDayListAndKnowsNoWeek) {
    ChartEditor& editor = NewChart();
    SchoolMode = 1;
    AddJobs(editor, 1);
    EXPECT_EQ(RowControl<QComboBox>(editor, u"DayOfWeek"_s, 1).count(), 0);
    editor.FillAllDayLists();
    EXPECT_EQ(RowControl<QComboBox>(editor, u"DayOfWeek"_s, 0).count(), 9);
    const ChartWeek week = editor.ChartWeekDates(false);
    EXPECT_FALSE(week.First.isValid());
    EXPECT_FALSE(week.Last.isValid());
}

TEST_F(ChartEditorForm, FillAllDayListsFillsThoseOfEveryRow) {
    ChartEditor& editor = NewChart();
    AddJobs(editor, 2);
    SchoolMode = -1;
    editor.FillAllDayLists();
    for (int row = 0; row < 3; ++row)
        EXPECT_EQ(RowControl<QComboBox>(editor, u"DayOfWeek"_s, row).count(), 6) << row;
    SchoolMode = 0;
    editor.FillAllDayLists();
    for (int row = 0; row < 3; ++row)
        EXPECT_EQ(RowControl<QComboBox>(editor, u"DayOfWeek"_s, row).count(), 9) << row;
}

TEST_F(ChartEditorForm, SchoolModeChangesDoNotTouchOpenEditors) {
    ChartEditor& editor = NewChart();
    const QString title = CaptionOf(editor, u"StartingFrom"_s);
    SchoolMode = -1;
    Default<Newfrm>().Show();
    Settle();
    editor.Show();
    Settle();
    EXPECT_EQ(RowControl<QComboBox>(editor, u"DayOfWeek"_s, 0).count(), 9);
    EXPECT_EQ(CaptionOf(editor, u"StartingFrom"_s), title);
    EXPECT_EQ(editor.FirstDate, QDate(2001, 3, 4));
}

TEST_F(ChartEditorForm, AddedRowIsEmptyNumberedAndOfTheAdultLoggedIn) {
    ChartEditor& editor = NewChart();
    editor.SetRow(0, Job(u"Feed the dog"_s));
    AddJobs(editor, 2);
    ASSERT_EQ(editor.RowCount(), 3);
    const EditorRow row = editor.Row(2);
    EXPECT_EQ(row.Instructions + row.DayOfWeek + row.Difficulty + row.Points, QString());
    EXPECT_EQ(row.AdultResponsable, u"Mum"_s);
    EXPECT_EQ(CaptionOf(editor, u"Number(2)"_s), u"3:"_s);
    EXPECT_EQ(Scroll(editor).maximum(), 2);
    EXPECT_EQ(editor.Row(0).Instructions, u"Feed the dog"_s);
}

TEST_F(ChartEditorForm, CreateNewTaskLeavesTheDayListToItsCaller) {
    ChartEditor& editor = NewChart();
    editor.CreateNewTask();
    EXPECT_EQ(RowControl<QComboBox>(editor, u"DayOfWeek"_s, 1).count(), 0);
    editor.NewTask_Click();
    EXPECT_EQ(RowControl<QComboBox>(editor, u"DayOfWeek"_s, 2).count(), 9);
}

TEST_F(ChartEditorForm, OneScrollStepIsOneRow) {
    ChartEditor& editor = NewChart();
    AddJobs(editor, 3);
    Press(Scroll(editor), Qt::Key_Down);
    EXPECT_EQ(Scroll(editor).value(), 1);
    EXPECT_EQ(editor.Points.Top(1), 650);
    EXPECT_EQ(editor.Points.Top(2), 1030);
}

TEST_F(ChartEditorForm, RowsScrolledAboveTheListAreHiddenAndComeBack) {
    ChartEditor& editor = NewChart();
    AddJobs(editor, 3);
    Scroll(editor).setValue(2);
    for (const QString& column : Columns) {
        EXPECT_TRUE(RowControl(editor, column, 1).isHidden()) << column.toStdString();
        EXPECT_FALSE(RowControl(editor, column, 2).isHidden()) << column.toStdString();
    }
    EXPECT_EQ(editor.Number.Top(1), 270);
    Scroll(editor).setValue(0);
    for (const QString& column : Columns)
        EXPECT_FALSE(RowControl(editor, column, 0).isHidden()) << column.toStdString();
    EXPECT_EQ(editor.Number.Top(0), 650);
}

TEST_F(ChartEditorForm, RowAddedWhileScrolledStandsBelowTheLastRowAndShowsWhenScrolledTo) {
    ChartEditor& editor = NewChart();
    AddJobs(editor, 14);
    Scroll(editor).setValue(1);
    editor.NewTask_Click();
    EXPECT_EQ(Scroll(editor).value(), 1) << "the list moves only by the user";
    EXPECT_EQ(editor.Points.Top(15), editor.Points.Top(14) + 380);
    EXPECT_EQ(editor.Points.Top(15), 650 + 15 * 380 - 380);
    EXPECT_TRUE(RowControl(editor, u"Points"_s, 15).visibleRegion().isEmpty());
    Scroll(editor).setValue(15);
    EXPECT_FALSE(RowControl(editor, u"Points"_s, 15).visibleRegion().isEmpty());
    EXPECT_EQ(editor.Points.Top(15), 650);
}

TEST_F(ChartEditorForm, HomeWeekOfAWednesdayGoesFromSundayToSaturday) {
    const ChartEditor& editor = NewChart();
    EXPECT_EQ(editor.FirstDate, QDate(2001, 3, 4));
    EXPECT_EQ(editor.LastDate, QDate(2001, 3, 10));
    const ChartWeek next = editor.ChartWeekDates(true);
    EXPECT_EQ(next.First, QDate(2001, 3, 11));
    EXPECT_EQ(next.Last, QDate(2001, 3, 17));
}

TEST_F(ChartEditorForm, SchoolWeekOfAWednesdayGoesFromMondayToFriday) {
    SchoolMode = -1;
    const ChartEditor& editor = NewChart();
    EXPECT_EQ(editor.FirstDate, QDate(2001, 3, 5));
    EXPECT_EQ(editor.LastDate, QDate(2001, 3, 9));
    const ChartWeek next = editor.ChartWeekDates(true);
    EXPECT_EQ(next.First, QDate(2001, 3, 12));
    EXPECT_EQ(next.Last, QDate(2001, 3, 16));
}

TEST_F(ChartEditorForm, OnTheStartDayTheNextWeekIsTheWeekThatStartsToday) {
    const ChartEditor& editor = NewChart();
    SetToday(QDate(2001, 3, 11));
    EXPECT_EQ(editor.ChartWeekDates(true).First, QDate(2001, 3, 11));
    EXPECT_EQ(editor.ChartWeekDates(false).First, QDate(2001, 3, 11));
    SchoolMode = -1;
    SetToday(QDate(2001, 3, 12));
    EXPECT_EQ(editor.ChartWeekDates(true).First, QDate(2001, 3, 12));
    EXPECT_EQ(editor.ChartWeekDates(false).First, QDate(2001, 3, 12));
}

TEST_F(ChartEditorForm, WeeksCrossTheTurnOfTheYear) {
    const ChartEditor& editor = NewChart();
    SetToday(QDate(2004, 12, 31));
    const ChartWeek week = editor.ChartWeekDates(false);
    EXPECT_EQ(week.First, QDate(2004, 12, 26));
    EXPECT_EQ(week.Last, QDate(2005, 1, 1));
}

TEST_F(ChartEditorForm, TitleTellsTheWeekWithWeekdays) {
    ChartEditor& editor = NewChart();
    const QString title = u"Starting from: Sunday 3/4/2001 to Saturday 3/10/2001"_s;
    EXPECT_EQ(CaptionOf(editor, u"StartingFrom"_s), title);
    EXPECT_EQ(editor.Title(u"Home"_s), title);
    EXPECT_EQ(editor.Title(u"School"_s), title);
}

TEST_F(ChartEditorForm, TitleOfAnotherModeIsEmptyAndStillSettlesTheWeek) {
    ChartEditor& editor = NewChart();
    editor.FirstDate = QDate();
    EXPECT_EQ(editor.Title(u"home"_s), QString());
    EXPECT_EQ(editor.FirstDate, QDate(2001, 3, 4));
}

TEST_F(ChartEditorForm, OpenedChartShowsTheWeekOfItsTable) {
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s)}, u"Anna"_s, {1999, 12, 27}, {1999, 12, 31});
    const ChartEditor& editor = OpenChart(u"Chores Anna"_s);
    EXPECT_EQ(CaptionOf(editor, u"StartingFrom"_s),
              u"Starting from: Monday 12/27/1999 to Friday 12/31/1999"_s);
    EXPECT_EQ(editor.FirstDate, QDate(1999, 12, 27));
    EXPECT_EQ(editor.LastDate, QDate(1999, 12, 31));
    EXPECT_EQ(editor.KidName, u"Anna"_s);
}

TEST_F(ChartEditorForm, TitleOfAChartWithoutRowsKeepsTheDatesReadBefore) {
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s)}, u"Anna"_s, {1999, 12, 27}, {1999, 12, 31});
    Database().CreateChart(u"Bare"_s);
    ChartEditor& editor = OpenChart(u"Chores Anna"_s);
    editor.ChartName = u"Bare"_s;
    EXPECT_EQ(editor.Title(u"Home"_s), u"Starting from: Monday 12/27/1999 to Friday 12/31/1999"_s);
}

TEST_F(ChartEditorForm, WhereNoDayIsCalledAsTheStartDayNoChartOpensAndTheUserIsTold) {
    CallTheDaysInGerman();
    Boxes.ExpectError(ErrorNumber::TypeMismatch, u"No day of the week is called Sunday"_s);
    auto& dialog = Default<Newfrm>();
    dialog.Show();
    Settle();
    Type(Find(dialog, u"NameOfNewChart"_s), u"Chores"_s);
    Click(Find(dialog, u"Ok"_s));
    EXPECT_EQ(ChartFormIndex, 0);
    EXPECT_EQ(EditorAt(0), nullptr);
    EXPECT_TRUE(Shown(dialog));
}

TEST_F(ChartEditorForm, JobOfADayRangeComesBackAsSingleDays) {
    StoreChart(u"Chores Anna"_s, {Job(u"Feed the dog"_s, u"Mon-Fri"_s), Job(u"Rest"_s, u"Sun"_s)});
    const ChartEditor& editor = OpenChart(u"Chores Anna"_s);
    ASSERT_EQ(editor.RowCount(), 6);
    const QStringList days = {u"Mon"_s, u"Tue"_s, u"Wed"_s, u"Thu"_s, u"Fri"_s, u"Sun"_s};
    for (int row = 0; row < 6; ++row) {
        EXPECT_EQ(editor.Row(row).DayOfWeek, days.at(row));
        EXPECT_EQ(editor.Row(row).Difficulty, u"Easy"_s);
        EXPECT_EQ(editor.Row(row).Points, u"3"_s);
        EXPECT_EQ(CaptionOf(editor, u"Number(%1)"_s.arg(row)), u"%1:"_s.arg(row + 1));
    }
    EXPECT_EQ(editor.Row(5).Instructions, u"Rest"_s);
}

TEST_F(ChartEditorForm, StoredDayThatTheModeDoesNotOfferStaysInTheBox) {
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s, u"Sat"_s), Job(u"b"_s, u"Sun"_s)});
    SchoolMode = -1;
    const ChartEditor& editor = OpenChart(u"Chores Anna"_s);
    EXPECT_EQ(RowControl<QComboBox>(editor, u"DayOfWeek"_s, 0).currentText(), u"Sat"_s);
    EXPECT_EQ(RowControl<QComboBox>(editor, u"DayOfWeek"_s, 1).currentText(), u"Sun"_s);
    EXPECT_EQ(RowControl<QComboBox>(editor, u"DayOfWeek"_s, 1).findText(u"Sun"_s), -1);
}

TEST_F(ChartEditorForm, AnyTextCanBeTypedIntoTheCombos) {
    ChartEditor& editor = NewChart();
    for (const QString& column : {u"Instructions"_s, u"DayOfWeek"_s, u"Difficulty"_s}) {
        auto& combo = RowControl<QComboBox>(editor, column, 0);
        Type(combo, u"Some \"odd\" text/."_s);
        EXPECT_EQ(combo.currentText(), u"Some \"odd\" text/."_s);
    }
    Type(RowControl(editor, u"DayOfWeek"_s, 0), u"M"_s);
    EXPECT_EQ(editor.Row(0).DayOfWeek, u"M"_s) << "nothing is completed";
}

TEST_F(ChartEditorForm, ChoosingADayAndADifficultyPutsThemInTheRow) {
    ChartEditor& editor = NewChart();
    Choose(RowControl<QComboBox>(editor, u"DayOfWeek"_s, 0), 7);
    Choose(RowControl<QComboBox>(editor, u"Difficulty"_s, 0), 3);
    EXPECT_EQ(editor.Row(0).DayOfWeek, u"Mon-Fri"_s);
    EXPECT_EQ(editor.Row(0).Difficulty, u"Hard"_s);
    EXPECT_EQ(editor.LastListIndex, 0) << "only the job lists count";
}

TEST_F(ChartEditorForm, TabWalksTheRowsFromLeftToRightAndDown) {
    ChartEditor& editor = NewChart();
    AddJobs(editor, 1);
    RowControl(editor, u"Instructions"_s, 0).setFocus();
    QStringList names;
    for (int step = 0; step < 13; ++step) {
        KeyToFocus(Qt::Key_Tab);
        names += Focused().objectName();
    }
    EXPECT_EQ(names, (QStringList{u"DayOfWeek(0)"_s, u"AdultResponsable(0)"_s, u"Difficulty(0)"_s,
                                  u"Points(0)"_s, u"JobDelete(0)"_s, u"Instructions(1)"_s,
                                  u"DayOfWeek(1)"_s, u"AdultResponsable(1)"_s, u"Difficulty(1)"_s,
                                  u"Points(1)"_s, u"JobDelete(1)"_s, u"VScroll"_s, u"NewTask"_s}));
}

TEST_F(ChartEditorForm, RowAddedAfterDeletionsInAScrolledListIsInSight) {
    ChartEditor& editor = NewChart();
    AddJobs(editor, 4);
    Scroll(editor).setValue(4);
    for (int deleted = 0; deleted < 3; ++deleted)
        RowControl<QPushButton>(editor, u"JobDelete"_s, 0).click();
    AddJobs(editor, 1);
    EXPECT_EQ(Scroll(editor).maximum(), 2);
    EXPECT_EQ(editor.Points.Top(2), 650);
    EXPECT_FALSE(RowControl(editor, u"Points"_s, 2).visibleRegion().isEmpty());
}

TEST_F(ChartEditorForm, TextsStandWhollyInTheirRows) {
    ChartEditor& editor = NewChart(u"Chores of the whole summer"_s);
    LookAt(editor, u"ChartEditorEmpty"_s);
    AddJobs(editor, 14);
    Scroll(editor).setValue(0);
    for (int row = 0; row < 15; ++row)
        editor.SetRow(row,
                      {u"Empty the waste paper bins on the upper floor and below"_s, u"Mon-Fri"_s,
                       u"Grandmother Josephine Maximiliana"_s, u"Very Easy"_s, u"12"_s});
    LookAt(editor, u"ChartEditorLongTexts"_s);
    for (const QString& column : {u"AdultResponsable"_s, u"Points"_s}) {
        const auto& box = RowControl<QLineEdit>(editor, column, 0);
        QStyleOptionFrame option;
        option.initFrom(&box);
        option.lineWidth = 1;
        const QRect inside =
            box.style()->subElementRect(QStyle::SE_LineEditContents, &option, &box);
        EXPECT_GE(inside.height(), box.fontMetrics().height()) << column.toStdString();
    }
}

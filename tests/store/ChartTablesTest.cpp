#include "store/ChartFields.h"
#include "tests/common/GermanWeekdays.h"
#include "tests/store/StoreTest.h"

#include <QLocale>

namespace {

class ChartTablesTest : public StoreTest {
protected:
    QStringList FieldOfRows(const QString& table, int position) {
        QStringList values;
        for (const QString& row : Rows(table))
            values += row.section(QLatin1Char('|'), position, position);
        return values;
    }

    /// A chart with a row for each range text, which no save stores.
    void MakeRangeChart() {
        SaveChart(Chores, {Job(QStringLiteral("Feed"), QStringLiteral("Mon")),
                           Job(QStringLiteral("Rake"), QStringLiteral("Mon"))});
        const auto tables = TableStore::OpenDatabase(Path(QStringLiteral("Database/Charts.mdb")));
        Recordset rows = tables->OpenRecordset(Chores);
        for (const char* range : {"Mon-Fri", "Sun-Sat"}) {
            rows.Edit();
            rows.SetValue(ChartField::DayOfWeek, QString::fromLatin1(range));
            rows.Update();
            rows.MoveNext();
        }
        tables->Commit();
    }
};

TEST_F(ChartTablesTest, MondayToFridayFansOutToFiveRowsThatAllHoldTheChartsFields) {
    SaveChart(Chores,
              {Job(QStringLiteral("Feed cat"), QStringLiteral("Mon-Fri"), QStringLiteral("3")),
               Job(QStringLiteral("Rake"), QStringLiteral("Sat"), QStringLiteral("10"))},
              QStringLiteral("Anna"), true);
    EXPECT_EQ(
        Rows(Chores),
        (QStringList{QStringLiteral("Feed cat|Mon|Mum|Easy|3|0|2001-03-04|2001-03-10|Anna|-1"),
                     QStringLiteral("Feed cat|Tue|Mum|Easy|3|0|2001-03-04|2001-03-10|Anna|-1"),
                     QStringLiteral("Feed cat|Wed|Mum|Easy|3|0|2001-03-04|2001-03-10|Anna|-1"),
                     QStringLiteral("Feed cat|Thu|Mum|Easy|3|0|2001-03-04|2001-03-10|Anna|-1"),
                     QStringLiteral("Feed cat|Fri|Mum|Easy|3|0|2001-03-04|2001-03-10|Anna|-1"),
                     QStringLiteral("Rake|Sat|Mum|Easy|10|0|<null>|<null>|<null>|0")}));
}

TEST_F(ChartTablesTest, SundayToSaturdayFansOutToSevenRowsFromSunday) {
    SaveChart(Chores, {Job(QStringLiteral("Teeth"), QStringLiteral("Sun-Sat"))});
    EXPECT_EQ(FieldOfRows(Chores, 1).join(QLatin1Char(' ')),
              QStringLiteral("Sun Mon Tue Wed Thu Fri Sat"));
}

TEST_F(ChartTablesTest, EmptyEditorIsOneRowOfBlanksWithTheChartsDates) {
    SaveChart(Chores, {EditorRow{}});
    EXPECT_EQ(Rows(Chores),
              QStringList{QStringLiteral(" | | | |0|0|2001-03-04|2001-03-10|Anna|0")});
}

TEST_F(ChartTablesTest, JobWithoutADayIsInNoDayOfTheViewerButInTheEditor) {
    SaveChart(Chores, {Job(QStringLiteral("Sometime"), QString()),
                       Job(QStringLiteral("Rake"), QStringLiteral("Sat"))});
    EXPECT_EQ(FieldOfRows(Chores, 1), (QStringList{QStringLiteral(" "), QStringLiteral("Sat")}));
    for (const char* day : {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri"})
        EXPECT_EQ(Database().PrintReturnNr_Articles(QLatin1String(day), Chores), 0) << day;
    EXPECT_EQ(Database().PrintReturnNr_Articles(QStringLiteral("Sat"), Chores), 1);
    Editor.rows = {EditorRow{}};
    Database().ReadInfoFromChart(Chores, 0, false, QString());
    ASSERT_EQ(Editor.rows.size(), 2);
    EXPECT_EQ(EntryOf(Editor.rows, 0).Instructions, QStringLiteral("Sometime"));
    EXPECT_EQ(EntryOf(Editor.rows, 0).DayOfWeek, QStringLiteral(" "));
}

TEST_F(ChartTablesTest, PointsAreReadByTheNumberAtTheStartAndRoundHalfToEven) {
    SaveChart(Chores, {Job(QStringLiteral("a"), QStringLiteral("Mon"), QStringLiteral("3abc")),
                       Job(QStringLiteral("b"), QStringLiteral("Mon"), QStringLiteral("-3")),
                       Job(QStringLiteral("c"), QStringLiteral("Mon"), QStringLiteral("1.5")),
                       Job(QStringLiteral("d"), QStringLiteral("Mon"), QStringLiteral("2.5")),
                       Job(QStringLiteral("e"), QStringLiteral("Mon"), QStringLiteral("99999")),
                       Job(QStringLiteral("f"), QStringLiteral("Mon"), QStringLiteral("none"))});
    EXPECT_EQ(FieldOfRows(Chores, 4).join(QLatin1Char(' ')), QStringLiteral("3 -3 2 2 99999 0"));
}

TEST_F(ChartTablesTest, PointsOf32768AndMoreAreStoredAsTheyAreUpTo32Bits) {
    SaveChart(Chores,
              {Job(QStringLiteral("a"), QStringLiteral("Mon"), QStringLiteral("32767")),
               Job(QStringLiteral("b"), QStringLiteral("Mon"), QStringLiteral("32768")),
               Job(QStringLiteral("c"), QStringLiteral("Mon"), QStringLiteral("2147483647"))});
    EXPECT_EQ(FieldOfRows(Chores, 4).join(QLatin1Char(' ')),
              QStringLiteral("32767 32768 2147483647"));
    Editor.rows = {EditorRow{}};
    Database().ReadInfoFromChart(Chores, 0, false, QString());
    EXPECT_EQ(EntryOf(Editor.rows, 1).Points, QStringLiteral("32768"));
    EXPECT_ERROR(6, SaveChart(Chores, {Job(QStringLiteral("a"), QStringLiteral("Mon"),
                                           QStringLiteral("2147483648"))}));
}

TEST_F(ChartTablesTest, PointsBeyondAWholeNumberFailTheSaveWithTheRowsBeforeWritten) {
    EXPECT_ERROR(6, SaveChart(Chores, {Job(QStringLiteral("a"), QStringLiteral("Mon")),
                                       Job(QStringLiteral("b"), QStringLiteral("Mon"),
                                           QStringLiteral("99999999999"))}));
    Database().Commit();
    EXPECT_EQ(FieldOfRows(Chores, 0), QStringList{QStringLiteral("a")});
}

TEST_F(ChartTablesTest, TooLongATextFailsAndTheRowsBeforeStand) {
    EditorRow long1 = Job(QStringLiteral("b"), QStringLiteral("Mon"));
    long1.AdultResponsable = QString(256, QLatin1Char('x'));
    EXPECT_ERROR(3163, SaveChart(Chores, {Job(QStringLiteral("a"), QStringLiteral("Mon")), long1}));
    Database().Commit();
    EXPECT_EQ(FieldOfRows(Chores, 0), QStringList{QStringLiteral("a")});
}

TEST_F(ChartTablesTest, SavingFromTheEditorLosesEveryTickOfTheTableSavedOver) {
    const QList<EditorRow> rows = {Job(QStringLiteral("Rake"), QStringLiteral("Mon"))};
    SaveChart(Chores, rows);
    TickDay(Chores, QStringLiteral("Mon"));
    EXPECT_EQ(FieldOfRows(Chores, 5), QStringList{QStringLiteral("-1")});
    SaveChart(Chores, rows);
    EXPECT_EQ(FieldOfRows(Chores, 5), QStringList{QStringLiteral("0")});
}

TEST_F(ChartTablesTest, ASaveDropsTheOldTableBeforeItAsksForTheEditor) {
    SaveChart(Chores, {Job(QStringLiteral("Rake"), QStringLiteral("Mon"))});
    constexpr qint16 noSlot = 7;
    EXPECT_ERROR(9, Database().WriteInfoToChart(Chores, noSlot, false, QString(), QDate(2001, 3, 4),
                                                QDate(2001, 3, 10), false));
    Database().Commit();
    EXPECT_EQ(TableNames(), QStringList{Chores});
    EXPECT_EQ(Rows(Chores), QStringList());
}

TEST_F(ChartTablesTest, AModeThatIsNeitherTrueNorFalseReadsAndWritesNothing) {
    SaveChart(Chores, {Job(QStringLiteral("Rake"), QStringLiteral("Mon"))});
    Viewer.rows = {ViewerRow{}};
    Database().ReadInfoFromChart(Chores, 0, true, QStringLiteral("Mon"));
    const QStringList stored = Rows(Chores);
    Viewer.rows = {ViewerRow{}};
    EntryOf(Viewer.rows, 0).Completed = true;
    Editor.rows = {EditorRow{}};
    for (const int value : {1, -2, 2}) {
        const Mode mode(static_cast<qint16>(value));
        Database().WriteInfoToChart(Chores, 0, mode, QString(), QDate(), QDate(), false);
        EXPECT_EQ(Rows(Chores), stored) << value;
        Database().ReadInfoFromChart(Chores, 0, mode, QStringLiteral("Mon"));
        EXPECT_EQ(EntryOf(Viewer.rows, 0).Instructions, QString()) << value;
        EXPECT_EQ(EntryOf(Editor.rows, 0).Instructions, QString()) << value;
    }
    Database().WriteInfoToChart(Chores, 0, Mode(-1), QString(), QDate(), QDate(), false);
    Database().Commit();
    EXPECT_EQ(FieldOfRows(Chores, 5), QStringList{QStringLiteral("-1")});
}

TEST_F(ChartTablesTest, SavingUnderAnotherCaseReplacesTheTable) {
    SaveChart(QStringLiteral("Chores"), {Job(QStringLiteral("old"), QStringLiteral("Mon"))});
    SaveChart(QStringLiteral("CHORES"), {Job(QStringLiteral("new"), QStringLiteral("Mon"))});
    EXPECT_EQ(TableNames(), QStringList{QStringLiteral("CHORES")});
}

TEST_F(ChartTablesTest, ReloadingAndSavingLeavesTheSameRows) {
    SaveChart(Chores, {Job(QStringLiteral("Feed"), QStringLiteral("Mon-Fri")),
                       Job(QStringLiteral("Rake"), QStringLiteral("Sat"))});
    Editor.rows = {EditorRow{}};
    Database().ReadInfoFromChart(Chores, 0, false, QString());
    EXPECT_EQ(Editor.rows.size(), 6);
    const QList<EditorRow> rows = Editor.rows;
    const auto jobsAndDays = [this] {
        QStringList result;
        for (const QString& row : Rows(Chores))
            result += row.section(QLatin1Char('|'), 0, 4);
        return result;
    };
    const QStringList before = jobsAndDays();
    SaveChart(Chores, rows);
    EXPECT_EQ(jobsAndDays(), before);
}

TEST_F(ChartTablesTest, ViewerIsFilledWithOneDaysRowsAndTheirMarks) {
    SaveChart(Chores, {Job(QStringLiteral("Feed"), QStringLiteral("Mon-Fri")),
                       Job(QStringLiteral("Rake"), QStringLiteral("Wed"), QStringLiteral("10"))});
    TickDay(Chores, QStringLiteral("Wed"));
    Viewer.rows = {ViewerRow{}};
    Database().ReadInfoFromChart(Chores, 0, true, QStringLiteral("Wed"));
    ASSERT_EQ(Viewer.rows.size(), 2);
    EXPECT_EQ(EntryOf(Viewer.rows, 0).Instructions, QStringLiteral("Feed"));
    EXPECT_EQ(EntryOf(Viewer.rows, 1).Instructions, QStringLiteral("Rake"));
    EXPECT_EQ(EntryOf(Viewer.rows, 1).Points, QStringLiteral("10"));
    EXPECT_EQ(EntryOf(Viewer.rows, 1).Difficulty, QStringLiteral("Easy"));
    EXPECT_EQ(EntryOf(Viewer.rows, 1).AdultResponsable, QStringLiteral("Mum"));
    EXPECT_TRUE(EntryOf(Viewer.rows, 0).Completed);
    EXPECT_EQ(Viewer.dayCaption, QStringLiteral("Wednesday 3/7/2001"));
}

TEST_F(ChartTablesTest, TicksAreWrittenByPositionToTheRowsOfTheDayLastReadAlone) {
    SaveChart(Chores, {Job(QStringLiteral("Feed"), QStringLiteral("Mon-Fri")),
                       Job(QStringLiteral("Rake"), QStringLiteral("Wed"))});
    Viewer.rows = {ViewerRow{}};
    Database().ReadInfoFromChart(Chores, 0, true, QStringLiteral("Wed"));
    EntryOf(Viewer.rows, 1).Completed = true;
    Database().WriteInfoToChart(Chores, 0, true, QString(), QDate(), QDate(), false);
    Database().Commit();
    EXPECT_EQ(FieldOfRows(Chores, 5).join(QLatin1Char(' ')), QStringLiteral("0 0 0 0 0 -1"));
}

TEST_F(ChartTablesTest, MoreRowsThanTheViewerShowsFailAtTheFirstBeyondWithTheOthersStored) {
    SaveChart(Chores, {Job(QStringLiteral("a"), QStringLiteral("Wed")),
                       Job(QStringLiteral("b"), QStringLiteral("Wed"))});
    Database().ReadInfoFromChart(Chores, 0, true, QStringLiteral("Wed"));
    Viewer.rows = {ViewerRow{}};
    EntryOf(Viewer.rows, 0).Completed = true;
    EXPECT_ERROR(9,
                 Database().WriteInfoToChart(Chores, 0, true, QString(), QDate(), QDate(), false));
    Database().Commit();
    EXPECT_EQ(FieldOfRows(Chores, 5).join(QLatin1Char(' ')), QStringLiteral("-1 0"));
}

TEST_F(ChartTablesTest, ADayWithoutRowsSetsTheCurrentDayAndLeavesTheViewerAsItWas) {
    SaveChart(Chores, {Job(QStringLiteral("a"), QStringLiteral("Wed"))});
    Database().ReadInfoFromChart(Chores, 0, true, QStringLiteral("Wed"));
    EntryOf(Viewer.rows, 0).Completed = true;
    Database().ReadInfoFromChart(Chores, 0, true, QStringLiteral("Sun"));
    EXPECT_EQ(EntryOf(Viewer.rows, 0).Instructions, QStringLiteral("a"));
    EXPECT_EQ(Viewer.dayCaption, QStringLiteral("Wednesday 3/7/2001"));
    // The ticks now belong to Sunday, which has no row to take them.
    Database().WriteInfoToChart(Chores, 0, true, QString(), QDate(), QDate(), false);
    Database().Commit();
    EXPECT_EQ(FieldOfRows(Chores, 5), QStringList{QStringLiteral("0")});
}

TEST_F(ChartTablesTest, FiveDayChartsCountFromMondayAndHaveNoCaptionForAWeekendDay) {
    SaveChart(Chores,
              {Job(QStringLiteral("a"), QStringLiteral("Fri")),
               Job(QStringLiteral("b"), QStringLiteral("Sun"))},
              QStringLiteral("Anna"), false, QDate(2001, 3, 5), QDate(2001, 3, 9));
    Database().ReadInfoFromChart(Chores, 0, true, QStringLiteral("Fri"));
    EXPECT_EQ(Viewer.dayCaption, QStringLiteral("Friday 3/9/2001"));
    Viewer.rows = {ViewerRow{}};
    Database().ReadInfoFromChart(Chores, 0, true, QStringLiteral("Sun"));
    EXPECT_EQ(Viewer.dayCaption, QString());
}

TEST_F(ChartTablesTest, RowsWithARangeTextCountForAllSevenDays) {
    MakeRangeChart();
    for (const char* day : {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"})
        EXPECT_EQ(Database().PrintReturnNr_Articles(QLatin1String(day), Chores), 2) << day;
    EXPECT_EQ(Database().PrintReturnNr_Articles(QString(), Chores), 0);
    EXPECT_EQ(Database().DaysWithJobs(Chores), QSet<int>({1, 2, 3, 4, 5, 6, 7}));
}

TEST_F(ChartTablesTest, DaysWithJobsAreThoseOfTheRows) {
    SaveChart(Chores, {Job(QStringLiteral("Rake"), QStringLiteral("Sat")),
                       Job(QStringLiteral("Sometime"), QString()),
                       Job(QStringLiteral("Feed"), QStringLiteral("Sun")),
                       Job(QStringLiteral("Cook"), QStringLiteral("Wed")),
                       Job(QStringLiteral("Sweep"), QStringLiteral("Wed"))});
    EXPECT_EQ(Database().DaysWithJobs(Chores), QSet<int>({1, 4, 7}));
    SaveChart(Chores, {Job(QStringLiteral("Sometime"), QString())});
    EXPECT_EQ(Database().DaysWithJobs(Chores), QSet<int>());
    MakeEmptyChart(Chores);
    EXPECT_ERROR(3021, Database().DaysWithJobs(Chores));
}

TEST_F(ChartTablesTest, RowsWithARangeTextAreShownAndTickedUnderTheDayAskedFor) {
    MakeRangeChart();
    Database().ReadInfoFromChart(Chores, 0, true, QStringLiteral("Sat"));
    ASSERT_EQ(Viewer.rows.size(), 2);
    EXPECT_EQ(Viewer.dayCaption, QStringLiteral("Saturday 3/10/2001"));
    EntryOf(Viewer.rows, 1).Completed = true;
    Database().WriteInfoToChart(Chores, 0, true, QString(), QDate(), QDate(), false);
    Database().Commit();
    EXPECT_EQ(FieldOfRows(Chores, 5), (QStringList{QStringLiteral("0"), QStringLiteral("-1")}));
}

TEST_F(ChartTablesTest, OnASystemOfAnotherLanguageTheCaptionHasTheEnglishNameAndTheSystemsDate) {
    SaveChart(Chores, {Job(QStringLiteral("a"), QStringLiteral("Wed"))});
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    Database().ReadInfoFromChart(Chores, 0, true, QStringLiteral("Wed"));
    EXPECT_EQ(Viewer.dayCaption, QStringLiteral("Wednesday 07.03.2001"));
}

TEST_F(ChartTablesTest, ADayThatNoneOfTheWeekIsCalledHasNoCaption) {
    SaveChart(Chores, {Job(QStringLiteral("a"), QStringLiteral("Wed"))});
    Database().ReadInfoFromChart(Chores, 0, true, QStringLiteral("Wed"));
    EXPECT_EQ(Viewer.dayCaption, QStringLiteral("Wednesday 3/7/2001"));
    CallTheDaysInGerman();
    Database().ReadInfoFromChart(Chores, 0, true, QStringLiteral("Wed"));
    EXPECT_EQ(Viewer.dayCaption, QString());
    EXPECT_EQ(EntryOf(Viewer.rows, 0).Instructions, QStringLiteral("a"));
}

TEST_F(ChartTablesTest, ReadDatesFillsTheFourMembersAndAnEmptyChartLeavesThem) {
    SaveChart(Chores, {Job(QStringLiteral("a"), QStringLiteral("Fri"))});
    Database().ReadDates(Chores);
    EXPECT_EQ(Database().FirstDateText, QStringLiteral("3/4/2001"));
    EXPECT_EQ(Database().LastDateText, QStringLiteral("3/10/2001"));
    EXPECT_EQ(Database().FirstDateKey, QStringLiteral("20010304"));
    EXPECT_EQ(Database().LastDateKey, QStringLiteral("20010310"));
    MakeEmptyChart(QStringLiteral("Empty"));
    Database().ReadDates(QStringLiteral("Empty"));
    EXPECT_EQ(Database().FirstDateKey, QStringLiteral("20010304"));
}

TEST_F(ChartTablesTest, UnknownTablesFailEachInItsOwnWay) {
    EXPECT_ERROR(3078, Database().ReadDates(QStringLiteral("none")));
    EXPECT_ERROR(91, Database().ReadInfoFromChart(QStringLiteral("none"), 0, true, QString()));
    EXPECT_ERROR(3078, Database().WriteInfoToChart(QStringLiteral("none"), 0, true, QString(),
                                                   QDate(), QDate(), false));
    EXPECT_ERROR(3078, Database().DeleteChart(QStringLiteral("none")));
}

TEST_F(ChartTablesTest, ReadingAsksForTheExactCaseOfTheName) {
    SaveChart(QStringLiteral("Chores"), {Job(QStringLiteral("a"), QStringLiteral("Fri"))});
    EXPECT_ERROR(91, Database().ReadInfoFromChart(QStringLiteral("CHORES"), 0, false, QString()));
}

TEST_F(ChartTablesTest, ChartNamesOfAnyKindAreStoredAndFoundAgain) {
    const QStringList names = {QStringLiteral("   "),
                               QStringLiteral("[brackets] `ticks`"),
                               QStringLiteral("Bobby\"; DROP TABLE USERS; --"),
                               QStringLiteral("O'Neil's / jobs."),
                               QString(200, QLatin1Char('w')),
                               QStringLiteral("😀 fun")};
    for (const QString& name : names)
        SaveChart(name, {Job(QStringLiteral("It's \"it\""), QStringLiteral("Wed"))});
    EXPECT_EQ(TableNames(), names);
    Restart();
    for (const QString& name : names) {
        EXPECT_TRUE(Database().ChartExist(name));
        EXPECT_EQ(FieldOfRows(name, 0), QStringList{QStringLiteral("It's \"it\"")});
    }
}

} // namespace

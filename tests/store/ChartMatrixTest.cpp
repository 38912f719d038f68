#include "platform/runtime/Dates.h"
#include "store/ChartFields.h"
#include "tests/common/Charts.h"
#include "tests/common/SpoiledRows.h"
#include "tests/store/FakeMatrix.h"
#include "tests/store/StoreTest.h"

namespace {

using S = QStringList;

/// What the store puts into the matrix of the weekly review.
class ChartMatrixTest : public StoreTest {
protected:
    using Row = PlainRow;
    static void MakeChart(const QList<Row>& rows, const QString& name = Chores) {
        MakePlainChart(name, rows);
    }

    static void Fill(const QString& chart = Chores) { Database().FillMatrix(chart); }

    /// The cells of a line from Sunday to Saturday: "-" not scheduled, "o" open, a count if done.
    S Cells(int line) const {
        const FakeMatrix::Week& week = EntryOf(Form.cells, line);
        return {week.begin(), week.end()};
    }
    static S Days(const char* texts) { return QString::fromLatin1(texts).split(QLatin1Char(' ')); }

    FakeMatrix Form;
};

TEST_F(ChartMatrixTest, OneOpenJobOnOneDayIsOneTransparentCellAndZeroes) {
    MakeChart({{QStringLiteral("Cook"), QStringLiteral("Tue"), 7}});
    Fill();
    EXPECT_EQ(Form.jobs, (S{QStringLiteral("Cook"), QStringLiteral("Total Points")}));
    EXPECT_EQ(Form.values, (S{QStringLiteral("7"), QStringLiteral("0")}));
    EXPECT_EQ(Cells(0), Days("- - o - - - -"));
    EXPECT_EQ(Form.jobTotals.value(0), QStringLiteral("0"));
    EXPECT_EQ(Form.dayTotals, Days("0 0 0 0 0 0 0"));
    EXPECT_EQ(Form.title, QStringLiteral("Weekly Dutygrid Review from: 3/4/2001 to 3/10/2001"));
}

TEST_F(ChartMatrixTest, TicksOnTwoDaysCountInTheCellsTheJobsTotalAndTheDaysTotals) {
    const QString job = QStringLiteral("Cook");
    MakeChart({{job, QStringLiteral("Mon"), 5, true},
               {job, QStringLiteral("Tue"), 5, false},
               {job, QStringLiteral("Wed"), 5, true}});
    Fill();
    EXPECT_EQ(Form.jobs.size(), 2);
    EXPECT_EQ(Cells(0), Days("- 1 o 1 - - -"));
    EXPECT_EQ(Form.jobTotals.value(0), QStringLiteral("10"));
    EXPECT_EQ(Form.values.value(1), QStringLiteral("10"));
    EXPECT_EQ(Form.dayTotals, Days("0 5 0 5 0 0 0"));
}

TEST_F(ChartMatrixTest, EveryDayHasItsOwnCellAndTotal) {
    QList<Row> rows;
    for (int day = 1; day <= 7; ++day)
        rows += Row{QStringLiteral("Cook"), DayAbbreviation(day), day, true};
    MakeChart(rows);
    Fill();
    EXPECT_EQ(Cells(0), Days("1 1 1 1 1 1 1"));
    EXPECT_EQ(Form.dayTotals, Days("1 2 3 4 5 6 7"));
    EXPECT_EQ(Form.jobTotals.value(0), QStringLiteral("28"));
}

TEST_F(ChartMatrixTest, AMarkThatIsNullCountsAsOpen) {
    MakeChart({{QStringLiteral("Cook"), QStringLiteral("Mon"), 5, true}});
    Spoil(Chores, QStringLiteral("Completed = NULL"));
    Fill();
    EXPECT_EQ(Cells(0), Days("- o - - - - -"));
    EXPECT_EQ(Form.values, Days("5 0"));
    EXPECT_EQ(Form.dayTotals, Days("0 0 0 0 0 0 0"));
}

TEST_F(ChartMatrixTest, LaterLinesBeginWithoutTheFirstOnesMarks) {
    MakeChart({{QStringLiteral("Cook"), QStringLiteral("Mon"), 5, true},
               {QStringLiteral("Rake"), QStringLiteral("Mon"), 5, false},
               {QStringLiteral("Read"), QStringLiteral("Mon"), 5, true}});
    Fill();
    EXPECT_EQ(Cells(0), Days("- 1 - - - - -"));
    EXPECT_EQ(Cells(1), Days("- o - - - - -"));
    EXPECT_EQ(Cells(2), Days("- 1 - - - - -"));
}

TEST_F(ChartMatrixTest, WhatWasFoundBeforeAFailureStandsAndNothingOfTheFormerFill) {
    const QString job = QStringLiteral("Cook");
    MakeChart({{job, QStringLiteral("Mon"), 5, true}});
    Fill();
    SetNull(Chores, 0, ChartField::Points);
    EXPECT_ERROR(94, Fill());
    EXPECT_EQ(Form.jobs, S{job});
    EXPECT_EQ(Form.values, S{QString()});
    SetNull(Chores, 0, ChartField::Instructions);
    EXPECT_ERROR(94, Fill());
    EXPECT_EQ(Form.jobs, S());
}

TEST_F(ChartMatrixTest, TwoCompletedRowsOfAJobOnOneDayCountTwo) {
    const QString job = QStringLiteral("Cook");
    MakeChart({{job, QStringLiteral("Fri"), 5, true}, {job, QStringLiteral("Fri"), 5, true}});
    Fill();
    EXPECT_EQ(Cells(0), Days("- - - - - 2 -"));
}

TEST_F(ChartMatrixTest, ADoneCellStaysDoneWhenALaterRowIsOpen) {
    const QString job = QStringLiteral("Cook");
    MakeChart({{job, QStringLiteral("Fri"), 5, true},
               {job, QStringLiteral("Fri"), 5, false},
               {job, QStringLiteral("Sat"), 5, false},
               {job, QStringLiteral("Sat"), 5, true}});
    Fill();
    EXPECT_EQ(Cells(0), Days("- - - - - 1 1"));
}

TEST_F(ChartMatrixTest, ACompletedRowOfARangeCountsInTheTotalsButInNoCellAndNoDay) {
    MakeChart({{QStringLiteral("Cook"), QStringLiteral("Mon-Fri"), 5, true},
               {QStringLiteral("Rake"), QStringLiteral("Sun-Sat"), 3, true},
               {QStringLiteral("Read"), QStringLiteral(" "), 2, true},
               {QStringLiteral("Sing"), QStringLiteral("mon"), 1, true}});
    Fill();
    for (int line = 0; line < 4; ++line)
        EXPECT_EQ(Cells(line), Days("- - - - - - -")) << line;
    EXPECT_EQ(Form.jobTotals.mid(0, 4), Days("5 3 2 1"));
    EXPECT_EQ(Form.values.value(4), QStringLiteral("11"));
    EXPECT_EQ(Form.dayTotals, Days("0 0 0 0 0 0 0"));
}

TEST_F(ChartMatrixTest, FewerJobsAfterMoreLeaveNoStaleLinesNorTheFormerTotal) {
    MakeChart({{QStringLiteral("Cook"), QStringLiteral("Mon"), 5, true},
               {QStringLiteral("Rake"), QStringLiteral("Tue"), 5, true},
               {QStringLiteral("Read"), QStringLiteral("Wed"), 5, true}});
    MakeChart({{QStringLiteral("Sing"), QStringLiteral("Thu"), 1}}, QStringLiteral("Other"));
    Fill();
    EXPECT_EQ(Form.jobs.size(), 4);
    Fill(QStringLiteral("Other"));
    EXPECT_EQ(Form.jobs, (S{QStringLiteral("Sing"), QStringLiteral("Total Points")}));
    EXPECT_EQ(Cells(0), Days("- - - - o - -"));
    EXPECT_EQ(Form.values, Days("1 0"));
    EXPECT_EQ(Form.cells.size(), 1);
    EXPECT_EQ(Form.dayTotals, Days("0 0 0 0 0 0 0"));
}

TEST_F(ChartMatrixTest, LinesStandInTheOrderOfFirstAppearanceAndKeepTheirCase) {
    MakeChart({{QStringLiteral("rake"), QStringLiteral("Mon")},
               {QStringLiteral("Cook"), QStringLiteral("Mon")},
               {QStringLiteral("Rake"), QStringLiteral("Tue"), 5, true},
               {QStringLiteral("rake"), QStringLiteral("Wed"), 5, true}});
    Fill();
    EXPECT_EQ(Form.jobs.mid(0, 3),
              (S{QStringLiteral("rake"), QStringLiteral("Cook"), QStringLiteral("Rake")}));
    EXPECT_EQ(Cells(0), Days("- o - 1 - - -"));
    EXPECT_EQ(Cells(1), Days("- o - - - - -"));
    EXPECT_EQ(Cells(2), Days("- - 1 - - - -"));
}

TEST_F(ChartMatrixTest, ALineShowsItsFirstRowsValueAndSumsEachRowsOwn) {
    const QString job = QStringLiteral("Cook");
    MakeChart({{job, QStringLiteral("Mon"), 5, false},
               {job, QStringLiteral("Tue"), 20, true},
               {job, QStringLiteral("Wed"), -3, true}});
    Fill();
    EXPECT_EQ(Form.values, Days("5 17"));
    EXPECT_EQ(Form.jobTotals.value(0), QStringLiteral("17"));
    EXPECT_EQ(Form.dayTotals, Days("0 0 20 -3 0 0 0"));
}

TEST_F(ChartMatrixTest, AChartWithoutRowsFailsWithTheEarlierContentStanding) {
    MakeChart({{QStringLiteral("Cook"), QStringLiteral("Mon"), 5, true}});
    Fill();
    MakeEmptyChart(QStringLiteral("Empty"));
    EXPECT_ERROR(3021, Fill(QStringLiteral("Empty")));
    EXPECT_EQ(Form.title, QStringLiteral("Weekly Dutygrid Review from: 3/4/2001 to 3/10/2001"));
    EXPECT_EQ(Form.jobs, (S{QStringLiteral("Cook"), QStringLiteral("Total Points")}));
    EXPECT_EQ(Cells(0), Days("- 1 - - - - -"));
}

TEST_F(ChartMatrixTest, AMissingChartFailsWithTheEarlierContentStanding) {
    EXPECT_ERROR(3078, Fill(QString()));
    EXPECT_ERROR(3078, Fill(QStringLiteral("No such chart")));
    EXPECT_EQ(Form.title, QStringLiteral("as it was"));
}

TEST_F(ChartMatrixTest, AJobsPointsBeyondSixteenBitsFailAtItsLineWithWhatWasFilledStanding) {
    MakeChart({{QStringLiteral("Cook"), QStringLiteral("Mon"), 32767, true},
               {QStringLiteral("Rake"), QStringLiteral("Tue"), 20000, true},
               {QStringLiteral("Rake"), QStringLiteral("Wed"), 20000, true}});
    EXPECT_ERROR(6, Fill());
    EXPECT_EQ(Form.jobs, (S{QStringLiteral("Cook"), QStringLiteral("Rake")}));
    EXPECT_EQ(Form.values, Days("32767 20000"));
    EXPECT_EQ(Form.jobTotals, (S{QStringLiteral("32767"), QString()}));
    EXPECT_EQ(Cells(0), Days("- 1 - - - - -"));
    EXPECT_EQ(Cells(1), Days("- - - - - - -"));
}

TEST_F(ChartMatrixTest, AGrandTotalBeyondSixteenBitsFailsBehindTheLastLine) {
    MakeChart({{QStringLiteral("Cook"), QStringLiteral("Mon"), 30000, true},
               {QStringLiteral("Rake"), QStringLiteral("Tue"), 30000, true}});
    EXPECT_ERROR(6, Fill());
    EXPECT_EQ(Form.jobs,
              (S{QStringLiteral("Cook"), QStringLiteral("Rake"), QStringLiteral("Total Points")}));
    EXPECT_EQ(Form.jobTotals.mid(0, 2), Days("30000 30000"));
    EXPECT_EQ(Form.dayTotals.value(1), QString());
}

TEST_F(ChartMatrixTest, AValueBeyondSixteenBitsStandsWhileItIsNotEarned) {
    MakeChart({{QStringLiteral("Cook"), QStringLiteral("Mon"), 99999, false}});
    Fill();
    EXPECT_EQ(Form.values.value(0), QStringLiteral("99999"));
    EXPECT_EQ(Form.jobTotals.value(0), QStringLiteral("0"));
}

TEST_F(ChartMatrixTest, OnlyTheSumHasToStayWithinSixteenBits) {
    const QString job = QStringLiteral("Cook");
    MakeChart(
        {{job, QStringLiteral("Mon"), -30000, true}, {job, QStringLiteral("Mon"), 40000, true}});
    Fill();
    EXPECT_EQ(Form.jobTotals.value(0), QStringLiteral("10000"));
    EXPECT_EQ(Form.values.value(1), QStringLiteral("10000"));
    EXPECT_EQ(Form.dayTotals.value(1), QStringLiteral("10000"));
}

TEST_F(ChartMatrixTest, AfterAFailureTheNextFillCountsAfresh) {
    MakeChart({{QStringLiteral("Cook"), QStringLiteral("Mon"), 99999, true}});
    EXPECT_ERROR(6, Fill());
    MakeChart({{QStringLiteral("Cook"), QStringLiteral("Mon"), 4, true}});
    Fill();
    EXPECT_EQ(Form.values, Days("4 4"));
    EXPECT_EQ(Form.jobTotals.value(0), QStringLiteral("4"));
    EXPECT_EQ(Cells(0), Days("- 1 - - - - -"));
}

TEST_F(ChartMatrixTest, ASavedChartWithRangesShowsItsSingleDays) {
    SaveChart(Chores, {Job(QStringLiteral("Cook"), QStringLiteral("Mon-Fri")),
                       Job(QStringLiteral("Rake"), QStringLiteral("Sat"))});
    TickDay(Chores, QStringLiteral("Wed"));
    Fill();
    EXPECT_EQ(Cells(0), Days("- o o 1 o o -"));
    EXPECT_EQ(Cells(1), Days("- - - - - - o"));
    EXPECT_EQ(Form.values.value(2), QStringLiteral("5"));
}

TEST_F(ChartMatrixTest, AFillWritesNothing) {
    MakeChart({{QStringLiteral("Cook"), QStringLiteral("Mon"), 5, true}});
    const S before = Rows(Chores);
    Fill();
    EXPECT_EQ(Rows(Chores), before);
    EXPECT_EQ(TableNames(), S{Chores});
}

TEST_F(ChartMatrixTest, EveryJobOfALargeChartHasItsLine) {
    QList<Row> rows;
    for (int job = 0; job < 800; ++job)
        rows += Row{QStringLiteral("Job %1").arg(job), QStringLiteral("Mon"), 1, true};
    MakeChart(rows);
    Fill();
    EXPECT_EQ(Form.jobs.size(), 801);
    EXPECT_EQ(Form.values.value(800), QStringLiteral("800"));
    EXPECT_EQ(Form.dayTotals.value(1), QStringLiteral("800"));
}

} // namespace

#include "tests/common/PrintedPages.h"
#include "tests/print/JobReportTest.h"

namespace {

constexpr QRgb Black = qRgb(0, 0, 0);
constexpr QRgb Red = qRgb(255, 0, 0);

const QString Period = u"Starting from: 3/4/2001 until 3/10/2001"_s;

class JobReportPagesTest : public JobReportTest {
protected:
    /// A table that holds each of the jobs job1, job2, ... once, and the list of them.
    static void MakeJobs(int count) {
        QList<ChartRow> rows;
        QByteArray list;
        for (int number = 1; number <= count; ++number) {
            rows.append({u"job%1"_s.arg(number)});
            list += "job" + QByteArray::number(number) + "\r\n";
        }
        MakeChartTable(Chores, rows);
        WriteJobs(list);
    }

    static void ExpectText(const RecordedPage::Text& text, const QString& words, double x, double y,
                           int points, QRgb color) {
        EXPECT_EQ(text.Words, words);
        EXPECT_NEAR(text.Place.x(), x, 0.001) << words.toStdString();
        EXPECT_NEAR(text.Place.y(), y, 0.001) << words.toStdString();
        EXPECT_EQ(text.Points, points) << words.toStdString();
        EXPECT_EQ(text.Color, color) << words.toStdString();
    }

    static void ExpectHeader(const RecordedPage& page) {
        ASSERT_GE(page.Texts.size(), 5);
        ExpectText(page.Texts[0], u"Anna - Job Report"_s, 8, 0, 18, Black);
        ExpectText(page.Texts[1], Period, 5, 1, 18, Black);
        ExpectText(page.Texts[2], u"         Jobs"_s, 1.2, 2, 18, Black);
        ExpectText(page.Texts[3], u"Completed"_s, 11.5, 2, 18, Black);
        ExpectText(page.Texts[4], u"   Incomplete"_s, 15.5, 2, 18, Black);
        const QList<QPair<QPointF, QPointF>> rules = {
            {{3, 3}, {21, 3}}, {{11, 3}, {11, 29}}, {{15, 3}, {15, 29}}};
        ASSERT_EQ(page.Strokes.size(), rules.size());
        for (qsizetype rule = 0; rule < rules.size(); ++rule) {
            EXPECT_LT((page.Strokes[rule].From - rules[rule].first).manhattanLength(), 0.001);
            EXPECT_LT((page.Strokes[rule].To - rules[rule].second).manhattanLength(), 0.001);
            EXPECT_EQ(page.Strokes[rule].Color, Black);
        }
    }
};

TEST_F(JobReportPagesTest, NoJobFoundPrintsTheHeaderAlone) {
    MakeChartTable(Chores, {{u"Dust"_s}});
    WriteJobs("Sweep\r\n");
    EXPECT_EQ(Print({Chores}), QList<QList<Line>>{{}});
    ExpectHeader(EntryOf(Recorded.LastJob(), 0));
}

TEST_F(JobReportPagesTest, TheGridIsItsOwnWhateverIsSetBefore) {
    Printer().SetScaleWidth(42);
    Printer().SetScaleHeight(60);
    WriteJobs("");
    Print({Chores});
    ExpectHeader(EntryOf(Recorded.LastJob(), 0));
}

TEST_F(JobReportPagesTest, EmptyListOfJobsPrintsTheHeaderAlone) {
    WriteJobs("");
    EXPECT_EQ(Print({u"there is no such table"_s}), QList<QList<Line>>{{}})
        << "no table is opened without a job";
    ExpectHeader(EntryOf(Recorded.LastJob(), 0));
}

TEST_F(JobReportPagesTest, LongJobsEndBeforeTheirCounts) {
    const QString job = u"Take the recycling out and rinse the bins afterwards"_s;
    MakeChartTable(Chores, {{job}});
    WriteJobs(job.toUtf8() + "\r\n");
    SetPrintTarget(&Paper);
    Database().PrintReport2(u"Anna"_s, {Chores}, Period);
    const PrintedPages pages(Paper.LastFile());
    EXPECT_EQ(pages.LineAt(1, 3), u"1. "_s + job + u" 0 1"_s);
    EXPECT_LT(pages.Find(1, u"afterwards"_s).Place.right(), 11);
    EXPECT_EQ(Paper.Names(), QStringList(u"Anna - Job Report - 2001-03-07"_s));
}

TEST_F(JobReportPagesTest, LineHasNumberAndJobThenBothCountsTheSecondInRed) {
    MakeChartTable(
        Chores, {{u"Dust"_s, true}, {u"Sweep"_s, true}, {u"Sweep"_s, false}, {u"Sweep"_s, true}});
    WriteJobs("Sweep\r\nDust\r\n");
    Print({Chores});
    ASSERT_EQ(Recorded.LastJob().size(), 1);
    const RecordedPage& page = EntryOf(Recorded.LastJob(), 0);
    ExpectHeader(page);
    ASSERT_EQ(page.Texts.size(), 11);
    ExpectText(page.Texts[5], u"1.     Sweep"_s, 1.2, 3, 14, Black);
    ExpectText(page.Texts[6], u"2 "_s, 12, 3, 14, Black);
    ExpectText(page.Texts[7], u"1 "_s, 16.5, 3, 14, Red);
    ExpectText(page.Texts[8], u"2.     Dust"_s, 1.2, 4, 14, Black);
    ExpectText(page.Texts[9], u"1 "_s, 12, 4, 14, Black);
    ExpectText(page.Texts[10], u"0 "_s, 16.5, 4, 14, Red);
}

TEST_F(JobReportPagesTest, JobOfNoExaminedTableTakesNoLineAndNoNumber) {
    MakeChartTable(Chores, {{u"Dust"_s}, {u"Sweep"_s}});
    WriteJobs("Rake\r\nDust\r\nCook\r\nSweep\r\nIron\r\n");
    EXPECT_EQ(Print({Chores}), (QList<QList<Line>>{{{u"1.     Dust"_s, u"0 "_s, u"1 "_s, 3},
                                                    {u"2.     Sweep"_s, u"0 "_s, u"1 "_s, 4}}}));
}

TEST_F(JobReportPagesTest, TwentyEightJobsFitOnOnePage) {
    MakeJobs(28);
    const auto pages = Print({Chores});
    ASSERT_EQ(pages.size(), 1);
    EXPECT_EQ(pages[0].size(), 28);
    EXPECT_EQ(pages[0].value(27), (Line{u"28.     job28"_s, u"0 "_s, u"1 "_s, 30}));
}

TEST_F(JobReportPagesTest, Line29StandsAt31AndAHeaderAloneFollows) {
    MakeJobs(29);
    const auto pages = Print({Chores});
    ASSERT_EQ(pages.size(), 2);
    EXPECT_EQ(pages[0].size(), 29);
    EXPECT_EQ(pages[0].value(28), (Line{u"29.     job29"_s, u"0 "_s, u"1 "_s, 31}));
    EXPECT_TRUE(pages[1].isEmpty());
    ExpectHeader(EntryOf(Recorded.LastJob(), 1));
}

TEST_F(JobReportPagesTest, EveryPageRepeatsTheHeaderAndNumbersFromOne) {
    MakeJobs(29 + 29 + 2);
    const auto pages = Print({Chores});
    ASSERT_EQ(pages.size(), 3);
    for (const RecordedPage& page : Recorded.LastJob())
        ExpectHeader(page);
    EXPECT_EQ(pages[0].size(), 29);
    EXPECT_EQ(pages[1].size(), 29);
    EXPECT_EQ(pages[1].value(0), (Line{u"1.     job30"_s, u"0 "_s, u"1 "_s, 3}));
    EXPECT_EQ(pages[1].value(28), (Line{u"29.     job58"_s, u"0 "_s, u"1 "_s, 31}));
    EXPECT_EQ(pages[2], (QList<Line>{{u"1.     job59"_s, u"0 "_s, u"1 "_s, 3},
                                     {u"2.     job60"_s, u"0 "_s, u"1 "_s, 4}}));
}

TEST_F(JobReportPagesTest, PaperShowsTheReportAndLosesTheLastTwoLines) {
    MakeJobs(29 + 29 + 2);
    SetPrintTarget(&Paper);
    Database().PrintReport2(u"Anna"_s, {Chores}, Period);
    const PrintedPages pages(Paper.LastFile());
    ASSERT_EQ(pages.Count(), 3);
    for (const int page : {1, 2, 3}) {
        EXPECT_FALSE(pages.HasInkInMargins(page)) << page;
        EXPECT_EQ(pages.LineAt(page, 0), u"Anna - Job Report"_s);
        EXPECT_EQ(pages.LineAt(page, 1), Period);
        EXPECT_EQ(pages.LineAt(page, 2), u"Jobs Completed Incomplete"_s);
        // The top rule begins at 3, not at the paper's left edge.
        EXPECT_TRUE(pages.Ink(page, QRectF(0.5, 2.97, 2.3, 0.06)).isEmpty());
        EXPECT_NEAR(pages.Ink(page, QRectF(2.8, 2.97, 18, 0.06)).left(), 3, 0.05);
        for (const double rule : {11, 15})
            EXPECT_NEAR(pages.Ink(page, QRectF(rule - 0.2, 3.5, 0.4, 26)).left(), rule, 0.05);
    }
    EXPECT_EQ(pages.LineAt(1, 3), u"1. job1 0 1"_s);
    EXPECT_EQ(pages.LineAt(1, 29), u"27. job27 0 1"_s);
    EXPECT_EQ(pages.MainColor(1, QRectF(16.4, 4.1, 1, 0.8)), QColor(Red));
    EXPECT_EQ(pages.MainColor(1, QRectF(11.9, 4.1, 1, 0.8)), QColor(Black));
    EXPECT_TRUE(pages.FindAll(1, u"job29"_s).isEmpty());
    EXPECT_EQ(pages.LineAt(2, 3), u"1. job30 0 1"_s);
}

} // namespace

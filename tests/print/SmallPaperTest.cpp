#include "tests/common/Charts.h"
#include "tests/common/PrintedPages.h"
#include "tests/common/TestWorld.h"

#include <QFile>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Everything that goes to paper, on sheets half as large as usual.
class SmallPaperTest : public ProgramTest {
protected:
    SmallPaperTest() { Paper.Size = QPageSize(QPageSize::A5); }

    PrintedPages Sheets() const { return PrintedPages(Paper.LastFile()); }

    /// No word goes beyond the page, and none of a line into the next one.
    static void ExpectNothingCut(const PrintedPages& pages) {
        for (int page = 1; page <= pages.Count(); ++page) {
            const QList<PrintedPages::Word>& words = pages.Words(page);
            for (qsizetype index = 0; index < words.size(); ++index) {
                const PrintedPages::Word& word = words[index];
                EXPECT_TRUE(QRectF(0, 0, 21, 30).contains(word.Place)) << word.Text.toStdString();
                EXPECT_FALSE(word.Text.endsWith(u"..."_s)) << word.Text.toStdString();
                for (const PrintedPages::Word& other : words.mid(index + 1)) {
                    const QRectF both = word.Place.intersected(other.Place);
                    // The boxes of letters are higher than what is seen of them.
                    EXPECT_TRUE(both.width() < 0.01 || both.height() < 0.3)
                        << word.Text.toStdString() << " and " << other.Text.toStdString();
                }
            }
        }
    }
};

TEST_F(SmallPaperTest, TheListOfAccountsIsWhole) {
    for (int number = 1; number <= 28; ++number)
        Database().AddUser(u"Peggy Quayle %1"_s.arg(number), u"jigsaw%1"_s.arg(number),
                           u"Student"_s, QString());
    Database().PrintUsersPasswords();
    const PrintedPages pages = Sheets();
    ASSERT_EQ(pages.Count(), 1);
    EXPECT_EQ(pages.SheetPoints(), QSize(420, 595));
    EXPECT_EQ(pages.LineAt(1, 29), u"User Name Is: Peggy Quayle 28 Password Is: jigsaw28"_s);
    ExpectNothingCut(pages);
    // The tails of its letters as on the line above.
    const auto tails = [&pages](int line) {
        const QRectF word = pages.Find(1, u"jigsaw%1"_s.arg(line - 1)).Place;
        return pages.Ink(1, word).bottom() - line;
    };
    EXPECT_NEAR(tails(29), tails(28), 0.12);
}

TEST_F(SmallPaperTest, TheReportsHeadingsStandInTheirColumns) {
    MakeChartTable(u"Chores"_s, {{u"Take the recycling out"_s, true}, {u"Feed the guppy"_s}});
    QFile jobs(Path(u"Jobs/HomeJobs.dat"_s));
    ASSERT_TRUE(jobs.open(QIODevice::WriteOnly));
    jobs.write("Take the recycling out\r\nFeed the guppy\r\n");
    jobs.close();
    Database().PrintReport2(u"Anna"_s, {u"Chores"_s}, u"Starting from: 3/4/2001 until 3/10/2001"_s);
    const PrintedPages pages = Sheets();
    const QRectF completed = pages.Find(1, u"Completed"_s).Place;
    const QRectF incomplete = pages.Find(1, u"Incomplete"_s).Place;
    EXPECT_GT(completed.left(), 11);
    EXPECT_LT(completed.right(), 15);
    EXPECT_GT(incomplete.left(), 15);
    EXPECT_NEAR(completed.height(), incomplete.height(), 0.03) << "of one size";
    EXPECT_EQ(pages.LineAt(1, 3), u"1. Take the recycling out 1 0"_s);
    EXPECT_EQ(pages.LineAt(1, 4), u"2. Feed the guppy 0 1"_s);
    ExpectNothingCut(pages);

    Paper.Size = QPageSize(QPageSize::A4);
    Database().PrintReport2(u"Anna"_s, {u"Chores"_s}, QString());
    const PrintedPages usual = Sheets();
    const double whole = usual.Find(1, u"Jobs"_s).Place.height();
    EXPECT_NEAR(usual.Find(1, u"Completed"_s).Place.height(), whole, 0.01) << "full size";
    EXPECT_NEAR(usual.Find(1, u"Incomplete"_s).Place.height(), whole, 0.01);
}

TEST_F(SmallPaperTest, AWeekOfAChartIsWhole) {
    QList<PlainRow> jobs;
    for (const QString& day :
         {u"Sun"_s, u"Mon"_s, u"Tue"_s, u"Wed"_s, u"Thu"_s, u"Fri"_s, u"Sat"_s})
        for (const QString& job : {u"Take the recycling out and rinse the bins"_s,
                                   u"Feed the guppy"_s, u"Lay the table for supper"_s})
            jobs += PlainRow{job, day, 12};
    MakePlainChart(u"Chores"_s, jobs);
    Database().PrintChart(u"Chores"_s, true, u"Anna"_s, QString());
    const PrintedPages pages = Sheets();
    ASSERT_EQ(pages.Count(), 2);
    EXPECT_EQ(pages.FindAll(1, u"guppy"_s).size() + pages.FindAll(2, u"guppy"_s).size(), 7);
    for (const int page : {1, 2})
        for (const PrintedPages::Word& bins : pages.FindAll(page, u"bins"_s))
            EXPECT_LT(bins.Place.right(), 13);
    ExpectNothingCut(pages);
    // A box keeps clear of the rules above and below it.
    for (const int row : {3, 4, 5}) {
        const QRectF box = pages.Ink(1, QRectF(18.3, row + 0.08, 1.4, 0.8));
        EXPECT_GT(box.top(), row + 0.1) << row;
        EXPECT_LT(box.bottom(), row + 0.85) << row;
    }
}

} // namespace

#include "tests/print/PrintChartTest.h"

#include <QFontMetricsF>
#include <QPageSize>
#include <QPdfWriter>
#include <QSet>

namespace {

// The title.

TEST_F(PrintChartTest, BlankChartOfAChildIsTitledWithChildAndTable) {
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Sun")}}, QStringLiteral("Printed"));
    Database().PrintChart(QStringLiteral("Printed"), true, Kid, QString());
    const PrintedPages pages(Paper.LastFile());
    EXPECT_EQ(pages.LineAt(1, 1),
              QStringLiteral("Anna's Printed Dutygrid from 3/4/2001 to 3/10/2001"));
}

TEST_F(PrintChartTest, BlankChartOfNobodyIsTitledWithTheProgramsName) {
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Sun")}}, QStringLiteral("Printed"));
    Database().PrintChart(QStringLiteral("Printed"), true, QString(), QString());
    const PrintedPages pages(Paper.LastFile());
    EXPECT_EQ(pages.LineAt(1, 1), QStringLiteral("Sparkit Dutygrid from 3/4/2001 to 3/10/2001"));
}

TEST_F(PrintChartTest, FilledChartIsTitledAsTheChildsJobList) {
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Sun")}});
    EXPECT_EQ(Print().LineAt(1, 1), QStringLiteral("Anna's Job List - from 3/4/2001 to 3/10/2001"));
}

TEST_F(PrintChartTest, FilledChartOfNobodyKeepsTheApostrophe) {
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Sun")}});
    Database().PrintChart(Chart, false, QString(), QString());
    EXPECT_EQ(PrintedPages(Paper.LastFile()).LineAt(1, 1),
              QStringLiteral("'s Job List - from 3/4/2001 to 3/10/2001"));
}

TEST_F(PrintChartTest, TitleStandsAtFourAndOneInBlackOf18Points) {
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Wed")}});
    const PrintedPages pages = Print();
    const QRectF title = pages.Find(1, QStringLiteral("Anna's")).Place;
    EXPECT_NEAR(title.left(), 4, Near);
    EXPECT_NEAR(title.top(), 1, Near);
    // The line of a font of 18 points is as high as the reader's box of the word.
    QPdfWriter device(Path(QStringLiteral("metrics.pdf")));
    EXPECT_NEAR(title.height(),
                QFontMetricsF(PaperFont(18), &device).height() * 30 / device.height(), Near);
    EXPECT_EQ(pages.MainColor(1, QRectF(0, 0.9, 21, 1)), QColor(0, 0, 0));
}

TEST_F(PrintChartTest, TitleIsTakenFromTheFirstRowsDatesAlone) {
    // The second row holds no dates at all.
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Mon")},
               {QStringLiteral("Beds"), QStringLiteral("Sun")}});
    EXPECT_EQ(Print().LineAt(1, 1), QStringLiteral("Anna's Job List - from 3/4/2001 to 3/10/2001"));
}

// A day's header and box.

TEST_F(PrintChartTest, DaysWithoutJobsLeaveEmptyRowsAboveALoneWednesday) {
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Wed")}});
    const PrintedPages pages = Print();
    ASSERT_EQ(pages.Count(), 1);
    const QRectF header = pages.Find(1, QStringLiteral("Wednesday")).Place;
    EXPECT_NEAR(header.left(), 9, Near);
    EXPECT_NEAR(header.top(), 5.1, Near);
    EXPECT_NEAR(pages.Find(1, QStringLiteral("Dishes")).Place.top(), 6.2, Near);
    EXPECT_TRUE(pages.Ink(1, QRectF(0, 2, 21, 3)).isEmpty());
    EXPECT_TRUE(pages.Ink(1, QRectF(0, 7.2, 21, 22.8)).isEmpty());
}

TEST_F(PrintChartTest, HeaderIsRedAndOf14PointsAndRowsAreBlack) {
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Sun")}});
    const PrintedPages pages = Print();
    EXPECT_EQ(pages.MainColor(1, QRectF(8.5, 2, 5, 0.85)), QColor(255, 0, 0));
    EXPECT_EQ(pages.MainColor(1, QRectF(1.15, 3.15, 11, 0.7)), QColor(0, 0, 0));
    EXPECT_NEAR(pages.Find(1, QStringLiteral("Sunday")).Place.height() /
                    pages.Find(1, QStringLiteral("Anna's")).Place.height(),
                14.0 / 18, 0.01);
}

TEST_F(PrintChartTest, BoxRunsFromOneToTwentyOnWholeGridRowsOverAllRowsOfItsDay) {
    MakeChart(Jobs(QStringLiteral("Wed"), 3));
    const PrintedPages pages = Print();
    // The header at 5.1 is less than 0.7 high, so that its lower edge and 0.3 round to 6.
    const QRectF box = pages.Ink(1, QRectF(0, 5.9, 21, 10));
    const double halfWidth = 20 * 72.0 / 1200 / pages.UnitPoints().width();
    EXPECT_NEAR(box.left(), 1 - halfWidth, Near);
    EXPECT_NEAR(box.right(), 20 + halfWidth, Near);
    EXPECT_NEAR(box.top(), 6 - halfWidth, Near);
    EXPECT_NEAR(box.bottom(), 9 + halfWidth, Near);
}

TEST_F(PrintChartTest, HeightOfTheDaysNameDecidesTheBoxesTop) {
    class LowPaper : public PrintTarget {
    public:
        LowPaper(QString path, double height) : path_(std::move(path)), height_(height) {}
        std::unique_ptr<QPagedPaintDevice> Open() override {
            auto device = std::make_unique<QPdfWriter>(path_);
            device->setPageSize(QPageSize(QSizeF(595, height_), QPageSize::Point));
            return device;
        }
        void Sent(const QString&) override {}

    private:
        QString path_;
        double height_;
    };
    MakeChart(Jobs(QStringLiteral("Sun"), 2));
    const auto expectBox = [this](double paperHeight, double top) {
        LowPaper paper(Path(QStringLiteral("low.pdf")), paperHeight);
        SetPrintTarget(&paper);
        Database().PrintChart(Chart, false, Kid, QString());
        SetPrintTarget(&Paper);
        const PrintedPages pages(Path(QStringLiteral("low.pdf")));
        const QRectF edge = pages.Ink(1, QRectF(0.8, 0, 0.3, 30));
        EXPECT_NEAR(edge.top(), top, 0.2) << paperHeight;
        EXPECT_NEAR(edge.bottom(), top + 2, 0.2) << paperHeight;
        EXPECT_NEAR(pages.Find(1, QStringLiteral("Sunjob1")).Place.top(), 3.2, Near);
    };
    // The name at 2.1 takes 1.05 grid rows: 3.15 and 0.3 round to 3.
    expectBox(483, 3);
    // It takes 1.2: 3.3 and 0.3 round to 4.
    expectBox(431, 4);
}

TEST_F(PrintChartTest, BoxLineIsFortyDotsWideAndTheRulesOne) {
    MakeChart(Jobs(QStringLiteral("Sun"), 4));
    const PrintedPages pages = Print();
    const double unit = pages.UnitPoints().width();
    EXPECT_NEAR(pages.Ink(1, QRectF(0.5, 4.5, 0.6, 0.2)).width() * unit, 40 * 72.0 / 1200, 0.6);
    EXPECT_LT(pages.Ink(1, QRectF(12.8, 4.5, 0.4, 0.2)).width() * unit, 1);
    EXPECT_LT(pages.Ink(1, QRectF(17.8, 4.5, 0.4, 0.2)).width() * unit, 1);
}

TEST_F(PrintChartTest, BlackRulesPartPointsAndMarksOverTheBoxesHeight) {
    MakeChart(Jobs(QStringLiteral("Sun"), 3));
    const PrintedPages pages = Print();
    for (const double x : {13.0, 18.0}) {
        const QRectF rule = pages.Ink(1, QRectF(x - 0.1, 2.9, 0.2, 4));
        EXPECT_NEAR(rule.top(), 3, 0.1);
        EXPECT_NEAR(rule.bottom(), 6, 0.1);
        EXPECT_EQ(pages.MainColor(1, QRectF(x - 0.1, 4.2, 0.2, 0.6)), QColor(0, 0, 0));
    }
}

TEST_F(PrintChartTest, RowsArePartedByRulesExceptAboveTheFirst) {
    MakeChart(Jobs(QStringLiteral("Sun"), 3));
    const PrintedPages pages = Print();
    for (const double y : {4.0, 5.0}) {
        EXPECT_EQ(pages.MainColor(1, QRectF(15, y - 0.08, 1.5, 0.16)), QColor(0, 0, 0));
        const QRectF rule = pages.Ink(1, QRectF(0, y - 0.08, 21, 0.16));
        EXPECT_NEAR(rule.left(), 1, 0.1);
        EXPECT_NEAR(rule.right(), 20, 0.1);
    }
}

TEST_F(PrintChartTest, LinesOfADayAreItsTwoColumnsAndOneRuleBetweenEachTwoRows) {
    // A rule above the first row would hide in the box's own edge: every line counts.
    MakeChart(Jobs(QStringLiteral("Sun"), 3) + Jobs(QStringLiteral("Mon"), 1) +
              Jobs(QStringLiteral("Sat"), 2));
    const QList<RecordedPage> pages = Record();
    ASSERT_EQ(pages.size(), 1);
    using LineEnds = QPair<QPointF, QPointF>;
    const QList<LineEnds> expected = {
        {{13, 3}, {13, 6}},   {{18, 3}, {18, 6}},   {{1, 4}, {20, 4}},
        {{1, 5}, {20, 5}},    {{13, 7}, {13, 8}},   {{18, 7}, {18, 8}},
        {{13, 13}, {13, 15}}, {{18, 13}, {18, 15}}, {{1, 14}, {20, 14}},
    };
    QList<LineEnds> drawn;
    for (const RecordedPage::Stroke& stroke : pages.first().Strokes) {
        drawn.append({Rounded(stroke.From), Rounded(stroke.To)});
        EXPECT_EQ(stroke.Color, qRgb(0, 0, 0));
        EXPECT_EQ(stroke.Width, 1);
    }
    EXPECT_EQ(drawn, expected);
}

TEST_F(PrintChartTest, RulesEndInsideTheBox) {
    MakeChart(Jobs(QStringLiteral("Sun"), 3));
    const PrintedPages pages = Print();
    const QColor box = BoxColor(pages, 1, 4, 5);
    for (const double x : {1.0, 20.0})
        EXPECT_EQ(pages.MainColor(1, QRectF(x - 0.01, 3.97, 0.02, 0.06)), box) << x;
    for (const double x : {13.0, 18.0})
        EXPECT_EQ(pages.MainColor(1, QRectF(x - 0.03, 2.99, 0.06, 0.02)), BoxColor(pages, 1, 3, 4))
            << x;
}

TEST_F(PrintChartTest, EveryBoxHasOneOfSevenColoursAndAllOfThemComeUp) {
    QList<PlainRow> jobs;
    for (const char* day : {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"})
        jobs.append({QStringLiteral("job"), QLatin1String(day)});
    MakeChart(jobs);
    const QSet<QRgb> allowed = {qRgb(0, 128, 0), qRgb(255, 255, 0), qRgb(40, 200, 255),
                                qRgb(128, 0, 0), qRgb(255, 179, 5), qRgb(222, 0, 183),
                                qRgb(0, 0, 128)};
    QSet<QRgb> seen;
    bool pageHadSeveral = false;
    // 210 boxes: the chance that one of seven colours never comes is below one in ten billion.
    for (int sheet = 0; sheet < 30; ++sheet) {
        const PrintedPages pages = Print();
        QSet<QRgb> onPage;
        for (int day = 0; day < 7; ++day)
            onPage += BoxColor(pages, 1, 3 + 2 * day, 4 + 2 * day).rgb();
        pageHadSeveral = pageHadSeveral || onPage.size() > 1;
        seen += onPage;
    }
    EXPECT_EQ(seen, allowed);
    EXPECT_TRUE(pageHadSeveral);
}

TEST_F(PrintChartTest, TwoPrintsOfOneChartHaveTheSameText) {
    MakeChart(Jobs(QStringLiteral("Sun"), 3) + Jobs(QStringLiteral("Sat"), 2));
    const QString once = PdfPrintTarget::TextOf((Print(), Paper.LastFile()));
    const QString again = PdfPrintTarget::TextOf((Print(), Paper.LastFile()));
    EXPECT_EQ(once, again);
}

// The rows.

TEST_F(PrintChartTest, RowHoldsNumberJobAndPointsIn10Points) {
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Sun"), 3},
               {QStringLiteral("Beds"), QStringLiteral("Sun"), -12}});
    const PrintedPages pages = Print();
    EXPECT_EQ(pages.LineAt(1, 3.2), QStringLiteral("1. Dishes 3 Points"));
    EXPECT_EQ(pages.LineAt(1, 4.2), QStringLiteral("2. Beds -12 Points"));
    const QRectF number = pages.Find(1, QStringLiteral("1.")).Place;
    EXPECT_NEAR(number.left(), 1.2, Near);
    EXPECT_NEAR(number.top(), 3.2, Near);
    const QRectF points = pages.Find(1, QStringLiteral("3")).Place;
    EXPECT_NEAR(points.left(), 14, Near);
    EXPECT_NEAR(points.top(), 3.2, Near);
    EXPECT_NEAR(number.height() / pages.Find(1, QStringLiteral("Anna's")).Place.height(), 10.0 / 18,
                0.01);
    EXPECT_EQ(pages.MainColor(1, QRectF(13.9, 3.2, 3.9, 0.6)), QColor(0, 0, 255));
    EXPECT_EQ(pages.MainColor(1, QRectF(1.2, 4.2, 11, 0.6)), QColor(0, 0, 0));
}

TEST_F(PrintChartTest, JobStands29BlanksBehindItsNumber) {
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Sun")}});
    const PrintedPages pages = Print();
    QPdfWriter device(Path(QStringLiteral("metrics.pdf")));
    const QString before = QStringLiteral("1.") + QString(29, QLatin1Char(' '));
    const double gap =
        QFontMetricsF(PaperFont(10), &device).horizontalAdvance(before) * 21 / device.width();
    EXPECT_NEAR(pages.Find(1, QStringLiteral("Dishes")).Place.left(), 1.2 + gap, Near);
}

TEST_F(PrintChartTest, NothingOfUsualLengthIsCutOnAnyPaper) {
    const QString kid = QString::fromUtf8("Zo\u00eb O'Neil");
    const QString job = QStringLiteral("Take the recycling out and rinse the bins");
    MakeChart({{job, QStringLiteral("Sun"), 12345}}, QStringLiteral("Printed"));
    for (const auto size : {QPageSize::A4, QPageSize::Letter, QPageSize::A5}) {
        Paper.Size = QPageSize(size);
        Database().PrintChart(QStringLiteral("Printed"), true, kid, QString());
        const PrintedPages pages(Paper.LastFile());
        EXPECT_EQ(pages.LineAt(1, 1),
                  kid + QStringLiteral("'s Printed Dutygrid from 3/4/2001 to 3/10/2001"));
        EXPECT_LE(pages.Find(1, QStringLiteral("3/10/2001")).Place.right(), 21);
        EXPECT_LE(pages.Find(1, QStringLiteral("bins")).Place.right(), 13);
        EXPECT_LE(pages.Find(1, QStringLiteral("Points")).Place.right(), 18);
    }
}

TEST_F(PrintChartTest, TheTitleOfAnOrdinaryChartHasItsFullSizeOnA4) {
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Sun")}}, QStringLiteral("Printed"));
    Database().PrintChart(QStringLiteral("Printed"), true, QStringLiteral("Anna"), QString());
    const PrintedPages pages(Paper.LastFile());
    QPdfWriter device(Path(QStringLiteral("metrics.pdf")));
    const QString title = QStringLiteral("Anna's Printed Dutygrid from 3/4/2001 to 3/10/2001");
    EXPECT_NEAR(
        pages.Find(1, QStringLiteral("3/10/2001")).Place.right() - 4,
        QFontMetricsF(PaperFont(18), &device).horizontalAdvance(title) * 21 / device.width(), Near);
}

TEST_F(PrintChartTest, JobThatIsTooLongEndsInDotsBeforeItsPoints) {
    MakeChart({{QStringLiteral("Wash ").repeated(40), QStringLiteral("Sun"), 3}});
    const PrintedPages pages = Print();
    const QList<PrintedPages::Word>& words = pages.Words(1);
    const PrintedPages::Word last = EntryOf(words, words.size() - 3);
    EXPECT_TRUE(last.Text.endsWith(QLatin1String("..."))) << last.Text.toStdString();
    EXPECT_LT(last.Place.right(), 13);
    EXPECT_TRUE(pages.Ink(1, QRectF(12.9, 3.1, 0.05, 0.8)).isEmpty());
}

// The names by which sheets are kept.

TEST_F(PrintChartTest, SheetIsCalledByChildChartAndFirstDay) {
    const QString table = QStringLiteral("Chores Anna");
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Sun")}}, table);
    Database().PrintChart(table, false, Kid, QString());
    Database().PrintChart(table, false, QString(), QString());
    Database().PrintChart(table, false, QStringLiteral("Ann"), QString());
    Database().PrintChart(table, true, Kid, QString(), QStringLiteral("Garden Anna"));
    EXPECT_EQ(Paper.Names(), (QStringList{QStringLiteral("Anna - Chores - 2001-03-04"),
                                          QStringLiteral("Chores Anna - 2001-03-04"),
                                          QStringLiteral("Ann - Chores Anna - 2001-03-04"),
                                          QStringLiteral("Anna - Garden - 2001-03-04")}));
}

// Many charts at once.

TEST_F(PrintChartTest, ChartsOfSeveralChildrenAreOneJobWithEmptyBoxesChildAfterChild) {
    for (const QString& kid : {QStringLiteral("Anna"), QStringLiteral("Mary Ann")})
        MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Mon"), 5, true}},
                  QStringLiteral("Chores ") + kid);
    Database().PrintChartsOf({{QStringLiteral("Chores Mary Ann"), QStringLiteral("Mary Ann")},
                              {QStringLiteral("Chores Anna"), QStringLiteral("Anna")}});
    ASSERT_EQ(Paper.Files().size(), 1);
    const PrintedPages pages(Paper.LastFile());
    ASSERT_EQ(pages.Count(), 2);
    EXPECT_EQ(pages.LineAt(1, 1),
              QStringLiteral("Mary Ann's Chores Dutygrid from 3/4/2001 to 3/10/2001"));
    EXPECT_EQ(pages.LineAt(2, 1),
              QStringLiteral("Anna's Chores Dutygrid from 3/4/2001 to 3/10/2001"));
    for (const int page : {1, 2}) {
        EXPECT_EQ(pages.LineAt(page, 3.1), QStringLiteral("Monday"));
        EXPECT_EQ(pages.LineAt(page, 4.2), QStringLiteral("1. Dishes 5 Points"));
        EXPECT_TRUE(HasEmptyBox(pages, page, 4)) << "whatever has been ticked";
    }
    EXPECT_EQ(Paper.Names(), QStringList(QStringLiteral("Chores - 2001-03-04")));
}

TEST_F(PrintChartTest, ChartOfOneChildAloneIsCalledByTheChild) {
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Mon")}}, QStringLiteral("Chores Anna"));
    Database().PrintChartsOf({{QStringLiteral("Chores Anna"), QStringLiteral("Anna")}});
    EXPECT_EQ(Paper.Names(), QStringList(QStringLiteral("Anna - Chores - 2001-03-04")));
}

TEST_F(PrintChartTest, NoneOfManyChartsIsPrintedIfOneFails) {
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Mon")}}, QStringLiteral("Chores Anna"));
    EXPECT_ERROR(3078,
                 Database().PrintChartsOf({{QStringLiteral("Chores Anna"), QStringLiteral("Anna")},
                                           {QStringLiteral("Chores Ben"), QStringLiteral("Ben")}}));
    EXPECT_TRUE(Paper.Files().isEmpty());
}

TEST_F(PrintChartTest, RowsStandInTheTablesOrderUnderTheirDaysInTheWeeksOrder) {
    MakeChart({{QStringLiteral("d"), QStringLiteral("Tue")},
               {QStringLiteral("c"), QStringLiteral("Sun")},
               {QStringLiteral("b"), QStringLiteral("Tue")},
               {QStringLiteral("a"), QStringLiteral("Sun")}});
    const PrintedPages pages = Print();
    EXPECT_EQ(pages.LineAt(1, 2.1), QStringLiteral("Sunday"));
    EXPECT_EQ(pages.LineAt(1, 3.2), QStringLiteral("1. c 5 Points"));
    EXPECT_EQ(pages.LineAt(1, 4.2), QStringLiteral("2. a 5 Points"));
    // Two rows of Sunday, an empty Monday, then Tuesday.
    EXPECT_EQ(pages.LineAt(1, 6.1), QStringLiteral("Tuesday"));
    EXPECT_EQ(pages.LineAt(1, 7.2), QStringLiteral("1. d 5 Points"));
    EXPECT_EQ(pages.LineAt(1, 8.2), QStringLiteral("2. b 5 Points"));
}

TEST_F(PrintChartTest, RangeRowsArePrintedUnderAllSevenDaysWithNumbersOfTheirOwn) {
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Sun-Sat")},
               {QStringLiteral("Beds"), QStringLiteral("Mon-Fri")},
               {QStringLiteral("Bins"), QStringLiteral("Mon")}});
    const PrintedPages pages = Print();
    ASSERT_EQ(pages.Count(), 1);
    EXPECT_EQ(pages.FindAll(1, QStringLiteral("Dishes")).size(), 7);
    EXPECT_EQ(pages.FindAll(1, QStringLiteral("Beds")).size(), 7);
    EXPECT_EQ(pages.FindAll(1, QStringLiteral("1.")).size(), 7);
    EXPECT_EQ(pages.FindAll(1, QStringLiteral("2.")).size(), 7);
    EXPECT_EQ(pages.FindAll(1, QStringLiteral("3.")).size(), 1);
    EXPECT_EQ(pages.LineAt(1, 8.2), QStringLiteral("3. Bins 5 Points"));
}

TEST_F(PrintChartTest, RowsWithoutADayOrOfAnotherCaseArePrintedNowhere) {
    MakeChart({{QStringLiteral("Nowhere"), QStringLiteral(" ")},
               {QStringLiteral("Lower"), QStringLiteral("sun")},
               {QStringLiteral("Whole"), QStringLiteral("Sunday")}});
    const PrintedPages pages = Print();
    ASSERT_EQ(pages.Count(), 1);
    EXPECT_EQ(pages.Words(1).size(), 8) << "the title alone";
}

TEST_F(PrintChartTest, EmptyJobTextsAndOddLettersAreNoTrouble) {
    MakeChart({{QStringLiteral(" "), QStringLiteral("Sun"), 0},
               {QString::fromUtf8("L\u00e4rm \"aus\" 100% %1"), QStringLiteral("Sun"), 99999}});
    const PrintedPages pages = Print();
    EXPECT_EQ(pages.LineAt(1, 3.2), QStringLiteral("1. 0 Points"));
    EXPECT_EQ(pages.LineAt(1, 4.2), QString::fromUtf8("2. L\u00e4rm \"aus\" 100% %1 99999 Points"));
}

} // namespace

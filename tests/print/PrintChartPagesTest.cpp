#include "store/ChartFields.h"
#include "tests/common/SpoiledRows.h"
#include "tests/print/PrintChartTest.h"

#include <QFile>

namespace {

// The marks.

TEST_F(PrintChartTest, BlankChartHasAnEmptyBoxOnEveryRowCompletedOrNot) {
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Sun"), 5, true},
               {QStringLiteral("Beds"), QStringLiteral("Sun"), 5, false}});
    const PrintedPages pages = Print(true);
    EXPECT_TRUE(HasEmptyBox(pages, 1, 3));
    EXPECT_TRUE(HasEmptyBox(pages, 1, 4));
    const QRectF box = pages.Ink(1, MarkCell(3));
    EXPECT_NEAR(box.left(), 19, Near);
    EXPECT_GT(box.top(), 3.1);
    // A capital letter of 18 points, of a font whose capitals take 0.688 of its size.
    EXPECT_NEAR(box.height() * pages.UnitPoints().height(), 0.688 * 18, 1);
    EXPECT_NEAR(box.width() * pages.UnitPoints().width(), 0.688 * 18, 1);
    EXPECT_EQ(pages.MainColor(1, MarkCell(3)), QColor(0, 0, 0));
}

TEST_F(PrintChartTest, FilledChartHasTheCheckPictureOnCompletedRowsAndNothingOnOthers) {
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Sun"), 5, true},
               {QStringLiteral("Beds"), QStringLiteral("Sun"), 5, false}});
    const PrintedPages pages = Print();
    EXPECT_TRUE(HasCheck(pages, 1, 3));
    EXPECT_TRUE(pages.Ink(1, MarkCell(4)).isEmpty());
}

TEST_F(PrintChartTest, OpenMarkStandsOnOpenRowsOnlyAndChecksStayAsTheyAre) {
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Sun"), 5, true},
               {QStringLiteral("Beds"), QStringLiteral("Sun"), 5, false}});
    const PrintedPages pages = Print(false, EmptyBoxText);
    EXPECT_TRUE(HasCheck(pages, 1, 3));
    EXPECT_FALSE(HasEmptyBox(pages, 1, 3));
    EXPECT_TRUE(HasEmptyBox(pages, 1, 4));
}

TEST_F(PrintChartTest, OpenMarkIsPrintedAsTextOf18PointsAtTheMarkColumn) {
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Sun")}});
    const PrintedPages pages = Print(false, QStringLiteral("o"));
    const QRectF mark = pages.Find(1, QStringLiteral("o")).Place;
    EXPECT_NEAR(mark.left(), 19, Near);
    EXPECT_NEAR(mark.top(), 3.1, Near);
    EXPECT_NEAR(mark.height(), pages.Find(1, QStringLiteral("Anna's")).Place.height(), 0.01);
}

TEST_F(PrintChartTest, CheckPictureFillsHalfAUnitBesideTheMarkPosition) {
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(QColor(200, 30, 90));
    const QString file = Path(QStringLiteral("Images/CheckWhite.jpg"));
    QFile::remove(file);
    ASSERT_TRUE(picture.save(file, "PNG"));
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Sun"), 5, true}});
    const PrintedPages pages = Print();
    const QRectF check = pages.Ink(1, MarkCell(3));
    EXPECT_NEAR(check.left(), 19, Near);
    EXPECT_NEAR(check.top(), 3.2, Near);
    EXPECT_NEAR(check.right(), 19.5, Near);
    EXPECT_NEAR(check.bottom(), 3.7, Near);
    EXPECT_EQ(pages.At(1, 19.25, 3.45), QColor(200, 30, 90));
}

// Page breaks.

TEST_F(PrintChartTest, DayThatEndsOnRow27StaysOnThePage) {
    MakeChart(Jobs(QStringLiteral("Sun"), 26)); // 26 and line 1 are 27
    const PrintedPages pages = Print();
    ASSERT_EQ(pages.Count(), 1);
    EXPECT_EQ(pages.LineAt(1, 2.1), QStringLiteral("Sunday"));
    EXPECT_EQ(pages.LineAt(1, 28.2), QStringLiteral("26. Sunjob26 26 Points"));
}

TEST_F(PrintChartTest, DayThatWouldEndOnRow28StartsANewPageEvenBelowTheTitleAlone) {
    MakeChart(Jobs(QStringLiteral("Sun"), 27)); // 27 and line 1 are 28
    const PrintedPages pages = Print();
    ASSERT_EQ(pages.Count(), 2);
    EXPECT_EQ(pages.LineAt(1, 1), QStringLiteral("Anna's Job List - from 3/4/2001 to 3/10/2001"));
    EXPECT_EQ(pages.Words(1).size(), 8);
    EXPECT_TRUE(pages.FindAll(2, QStringLiteral("Anna's")).isEmpty());
    EXPECT_NEAR(pages.Find(2, QStringLiteral("Sunday")).Place.top(), 1.1, Near);
    EXPECT_NEAR(pages.Find(2, QStringLiteral("Sunjob1")).Place.top(), 2.2, Near);
    EXPECT_NEAR(pages.Find(2, QStringLiteral("Sunjob27")).Place.top(), 28.2, Near);
}

TEST_F(PrintChartTest, LineOfALaterDayCountsTowardsItsBreak) {
    // Monday begins at line 12; with 15 rows it ends on row 27, with 16 it moves on.
    MakeChart(Jobs(QStringLiteral("Sun"), 10) + Jobs(QStringLiteral("Mon"), 15));
    EXPECT_EQ(Print().Count(), 1);
    MakeChart(Jobs(QStringLiteral("Sun"), 10) + Jobs(QStringLiteral("Mon"), 16));
    const PrintedPages pages = Print();
    ASSERT_EQ(pages.Count(), 2);
    EXPECT_EQ(pages.FindAll(1, QStringLiteral("Sunday")).size(), 1);
    EXPECT_TRUE(pages.FindAll(1, QStringLiteral("Monday")).isEmpty());
    EXPECT_NEAR(pages.Find(2, QStringLiteral("Monday")).Place.top(), 1.1, Near);
}

TEST_F(PrintChartTest, DaysBehindABreakGoOnBelowIt) {
    MakeChart(Jobs(QStringLiteral("Sun"), 27) + Jobs(QStringLiteral("Tue"), 1));
    const PrintedPages pages = Print();
    // Line 27 after Sunday, 28 at Monday, 29 at Tuesday: a third page.
    ASSERT_EQ(pages.Count(), 3);
    EXPECT_NEAR(pages.Find(3, QStringLiteral("Tuesday")).Place.top(), 1.1, Near);
    MakeChart(Jobs(QStringLiteral("Sun"), 20) + Jobs(QStringLiteral("Mon"), 8) +
              Jobs(QStringLiteral("Tue"), 3));
    const PrintedPages second = Print();
    ASSERT_EQ(second.Count(), 2);
    EXPECT_NEAR(second.Find(2, QStringLiteral("Monday")).Place.top(), 1.1, Near);
    EXPECT_NEAR(second.Find(2, QStringLiteral("Tuesday")).Place.top(), 10.1, Near);
}

TEST_F(PrintChartTest, ContinuedPageHoldsItsDaysAndNothingElse) {
    MakeChart(Jobs(QStringLiteral("Sun"), 20) + Jobs(QStringLiteral("Mon"), 8) +
              Jobs(QStringLiteral("Sat"), 1));
    const QList<RecordedPage> pages = Record();
    ASSERT_EQ(pages.size(), 2);
    QStringList expected = {QStringLiteral("Monday")};
    const QString blanks(29, QLatin1Char(' '));
    for (int number = 1; number <= 8; ++number)
        expected += {QStringLiteral("%1.%2Monjob%1").arg(number).arg(blanks),
                     QStringLiteral("%1 Points").arg(number)};
    expected += {QStringLiteral("Saturday"), QStringLiteral("1.%1Satjob1").arg(blanks),
                 QStringLiteral("1 Points")};
    QStringList words;
    for (const RecordedPage::Text& text : pages[1].Texts)
        words += text.Words;
    EXPECT_EQ(words, expected);
    EXPECT_EQ(pages[1].Strokes.size(), 2 + 7 + 2) << "columns and rules of the two days";
    EXPECT_TRUE(Print().Ink(2, QRectF(0, 0, 21, 1.1)).isEmpty());
}

TEST_F(PrintChartTest, DayOf30RowsRunsOffTheBottomOfItsOwnPage) {
    MakeChart(Jobs(QStringLiteral("Wed"), 30));
    const PrintedPages pages = Print();
    ASSERT_EQ(pages.Count(), 2);
    EXPECT_NEAR(pages.Find(2, QStringLiteral("Wednesday")).Place.top(), 1.1, Near);
    EXPECT_NEAR(pages.Find(2, QStringLiteral("Wedjob28")).Place.top(), 29.2, Near);
    EXPECT_TRUE(pages.FindAll(2, QStringLiteral("Wedjob30")).isEmpty());
    // The box is open at the bottom, as its lower edge lies beyond the paper.
    EXPECT_FALSE(pages.Ink(2, QRectF(0.9, 29.5, 0.2, 0.4)).isEmpty());
    EXPECT_TRUE(pages.Ink(2, QRectF(1.2, 29.92, 11, 0.05)).isEmpty());
}

TEST_F(PrintChartTest, ColumnsStandOnLaterPagesAsOnTheFirst) {
    MakeChart(Jobs(QStringLiteral("Sun"), 27));
    const PrintedPages pages = Print(true);
    EXPECT_TRUE(HasEmptyBox(pages, 2, 2));
    EXPECT_TRUE(HasEmptyBox(pages, 2, 28));
    EXPECT_NE(BoxColor(pages, 2, 2, 29), QColor(255, 255, 255));
}

// What goes wrong, and what is left then.

TEST_F(PrintChartTest, ChartWithoutRowsRaises3021BeforeAnythingReachesThePrinter) {
    MakeChart({});
    EXPECT_ERROR(3021, Send());
    SetPrintTarget(nullptr);
    EXPECT_ERROR(3021, Send()) << "not the missing printer's error";
    EXPECT_TRUE(Paper.Files().isEmpty());
}

TEST_F(PrintChartTest, ChartThatDoesNotExistRaises3078) {
    EXPECT_ERROR(3078, Send());
    EXPECT_TRUE(Paper.Files().isEmpty());
}

TEST_F(PrintChartTest, MissingCheckPictureRaises53AndSendsNothing) {
    QFile::remove(Path(QStringLiteral("Images/CheckWhite.jpg")));
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Sun"), 5, false},
               {QStringLiteral("Beds"), QStringLiteral("Mon"), 5, true}});
    EXPECT_ERROR(53, Send());
    EXPECT_TRUE(Paper.Files().isEmpty());
    // A blank chart needs no picture, and nothing of the former job is on it.
    const PrintedPages pages = Print(true);
    EXPECT_EQ(pages.Count(), 1);
    EXPECT_EQ(pages.FindAll(1, QStringLiteral("Anna's")).size(), 1);
}

TEST_F(PrintChartTest, CheckPictureThatIsNoneRaises481AndSendsNothing) {
    QFile file(Path(QStringLiteral("Images/CheckWhite.jpg")));
    file.remove();
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no picture");
    file.close();
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Sun"), 5, true}});
    EXPECT_ERROR(481, Send());
    EXPECT_TRUE(Paper.Files().isEmpty());
}

TEST_F(PrintChartTest, ChartWithoutCompletedRowsNeedsNoCheckPicture) {
    QFile::remove(Path(QStringLiteral("Images/CheckWhite.jpg")));
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Sun")}});
    Send();
    EXPECT_EQ(Paper.Files().size(), 1);
}

TEST_F(PrintChartTest, CheckPictureIsLoadedAfreshForEveryPrint) {
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Sun"), 5, true}});
    Send();
    QFile::remove(Path(QStringLiteral("Images/CheckWhite.jpg")));
    EXPECT_ERROR(53, Send());
}

TEST_F(PrintChartTest, NullInInstructionsRaises94AndSendsNothing) {
    MakeChart(Jobs(QStringLiteral("Sun"), 2));
    SetNull(Chart, 1, ChartField::Instructions);
    EXPECT_ERROR(94, Send());
    EXPECT_TRUE(Paper.Files().isEmpty());
}

TEST_F(PrintChartTest, NullMarkCountsAsNotCompleted) {
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Sun"), 5, true},
               {QStringLiteral("Beds"), QStringLiteral("Sun"), 5, true}});
    Spoil(Chart, QStringLiteral("Completed = NULL"), QStringLiteral("Instructions = 'Dishes'"));
    const PrintedPages pages = Print(false, EmptyBoxText);
    EXPECT_TRUE(HasEmptyBox(pages, 1, 3));
    EXPECT_TRUE(HasCheck(pages, 1, 4));
}

TEST_F(PrintChartTest, AModeThatIsNeitherTrueNorFalsePrintsNeitherTitleNorMarks) {
    MakeChart({{QStringLiteral("Sweep"), QStringLiteral("Wed")},
               {QStringLiteral("Mop"), QStringLiteral("Wed"), 5, true}});
    Database().PrintChart(Chart, Mode(1), Kid, QStringLiteral("open"));
    const QString text = PdfPrintTarget::TextOf(Paper.LastFile());
    EXPECT_TRUE(text.contains(QStringLiteral("Sweep")));
    EXPECT_FALSE(text.contains(QStringLiteral("from")));
    EXPECT_FALSE(text.contains(QStringLiteral("open")));
    const PrintedPages pages(Paper.LastFile());
    for (const int row : {6, 7})
        EXPECT_TRUE(pages.Ink(1, MarkCell(row)).isEmpty()) << row;
}

TEST_F(PrintChartTest, NullInTheFirstRowsDatesRaises94) {
    MakeChart(Jobs(QStringLiteral("Sun"), 2));
    SetNull(Chart, 0, ChartField::LastDate);
    EXPECT_ERROR(94, Send());
    EXPECT_TRUE(Paper.Files().isEmpty());
}

TEST_F(PrintChartTest, MissingPrinterRaises482) {
    MakeChart(Jobs(QStringLiteral("Sun"), 2));
    SetPrintTarget(nullptr);
    EXPECT_ERROR(482, Send());
    SetNull(Chart, 0, ChartField::LastDate);
    EXPECT_ERROR(482, Send()) << "the page is set up before the dates are read";
}

TEST_F(PrintChartTest, DeviceThatRefusesRaises482AndTheNextPrintIsWhole) {
    MakeChart(Jobs(QStringLiteral("Sun"), 2));
    PdfPrintTarget nowhere(Path(QStringLiteral("no-such-folder")));
    SetPrintTarget(&nowhere);
    EXPECT_ERROR(482, Send());
    EXPECT_TRUE(nowhere.Files().isEmpty());
    SetPrintTarget(&Paper);
    EXPECT_EQ(Print().FindAll(1, QStringLiteral("Anna's")).size(), 1);
}

TEST_F(PrintChartTest, PrintingChangesNothingInTheChart) {
    MakeChart({{QStringLiteral("Dishes"), QStringLiteral("Sun"), 5, true},
               {QStringLiteral("Beds"), QStringLiteral("Mon-Fri"), 5, false}});
    const QStringList before = Rows(Chart);
    Print();
    Print(true);
    EXPECT_EQ(Rows(Chart), before);
    EXPECT_EQ(Paper.Files().size(), 2);
}

} // namespace

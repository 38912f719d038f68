#include "tests/platform/printing/PrinterTest.h"
#include "tests/common/Errors.h"

#include <QFontMetricsF>
#include <QPdfWriter>

namespace {

TEST_F(PrinterTest, TextStandsWithItsTopLeftCornerAtTheDrawingPosition) {
    printer_.SetFontSize(18);
    PrintAt(4, 10, QStringLiteral("HHH"));
    const PrintedPages pages = Send();
    const QRectF place = pages.Find(1, QStringLiteral("HHH")).Place;
    EXPECT_NEAR(place.left(), 4, Near);
    EXPECT_NEAR(place.top(), 10, Near);
    const QRectF ink = pages.Ink(1, QRectF(0, 0, 21, 30));
    EXPECT_GT(ink.top(), 10);
    EXPECT_LT(ink.bottom(), place.bottom());
}

TEST_F(PrinterTest, PrintReturnsToTheLeftEdgeOneLineOfTheFontLower) {
    printer_.SetFontSize(18);
    PrintAt(4, 10, QStringLiteral("text"));
    QPdfWriter device(folder_.filePath(QStringLiteral("metrics.pdf")));
    const double line = QFontMetricsF(PaperFont(18), &device).lineSpacing() * 30 / device.height();
    EXPECT_EQ(printer_.CurrentX(), 0);
    EXPECT_FLOAT_EQ(printer_.CurrentY(), static_cast<float>(10 + line));
    printer_.SetFontSize(9);
    PrintAt(4, 10, QStringLiteral("text"));
    EXPECT_NEAR(printer_.CurrentY(), 10 + line / 2, 0.001);
}

TEST_F(PrinterTest, TextsPrintedOneAfterTheOtherStandBelowEachOtherAtTheLeftEdge) {
    printer_.SetFontSize(20);
    PrintAt(5, 2, QStringLiteral("first"));
    printer_.Print(QStringLiteral("second"));
    const PrintedPages pages = Send();
    const QRectF second = pages.Find(1, QStringLiteral("second")).Place;
    EXPECT_NEAR(second.left(), 0, Near);
    EXPECT_NEAR(second.top(), pages.Find(1, QStringLiteral("first")).Place.bottom(), Near);
}

TEST_F(PrinterTest, AnEmptyTextDrawsNothingAndMovesOneLineDown) {
    PrintAt(4, 10, QString());
    EXPECT_EQ(printer_.CurrentX(), 0);
    EXPECT_GT(printer_.CurrentY(), 10.2F);
    EXPECT_TRUE(Send().Words(1).isEmpty());
}

TEST_F(PrinterTest, DrawingPositionIsKeptInSinglePrecision) {
    printer_.SetCurrentX(1.2);
    printer_.SetCurrentY(5.1);
    EXPECT_EQ(printer_.CurrentX(), 1.2F);
    EXPECT_EQ(printer_.CurrentY(), 5.1F);
    EXPECT_NE(static_cast<double>(printer_.CurrentY()), 5.1);
}

TEST_F(PrinterTest, GridSpansThePrintableAreaOfAnyPaper) {
    const QString file = folder_.filePath(QStringLiteral("landscape.pdf"));
    MadeByTest landscape;
    landscape.Make = [file] {
        auto device = std::make_unique<QPdfWriter>(file);
        device->setPageSize(QPageSize(QPageSize::Letter));
        device->setPageOrientation(QPageLayout::Landscape);
        device->setResolution(300);
        return device;
    };
    PrinterObject printer(landscape);
    printer.SetScaleWidth(21);
    printer.SetScaleHeight(30);
    printer.SetCurrentX(4);
    printer.SetCurrentY(7);
    printer.Print(QStringLiteral("H"));
    printer.SetDrawWidth(3);
    printer.Box(1, 1, 20, 29, Red);
    printer.EndDoc();
    const PrintedPages pages(file);
    EXPECT_GT(pages.UnitPoints().width(), pages.UnitPoints().height());
    EXPECT_NEAR(pages.Find(1, QStringLiteral("H")).Place.left(), 4, Near);
    EXPECT_NEAR(pages.Find(1, QStringLiteral("H")).Place.top(), 7, Near);
    const QRectF box = pages.Ink(1, QRectF(0, 0, 21, 30));
    EXPECT_NEAR(box.left(), 1, Near);
    EXPECT_NEAR(box.top(), 1, Near);
    EXPECT_NEAR(box.right(), 20, Near);
    EXPECT_NEAR(box.bottom(), 29, Near);
}

TEST_F(PrinterTest, ScaleSetsTheUnitsOfThePage) {
    printer_.SetScaleWidth(42);
    printer_.SetScaleHeight(60);
    PrintAt(8, 20, QStringLiteral("H"));
    const QRectF place = Send().Find(1, QStringLiteral("H")).Place;
    EXPECT_NEAR(place.left(), 4, Near);
    EXPECT_NEAR(place.top(), 10, Near);
}

TEST_F(PrinterTest, FontSizeIsInPoints) {
    for (const int points : {10, 14, 18}) {
        printer_.SetFontSize(points);
        PrintAt(2, points, QStringLiteral("H%1").arg(points));
    }
    const PrintedPages pages = Send();
    // A capital letter of the test's font is 0.729 of the font's size high.
    for (const int points : {10, 14, 18}) {
        const QRectF capital = pages.Ink(1, QRectF(0, points, 21, 1));
        EXPECT_NEAR(capital.height() * pages.UnitPoints().height(), 0.729 * points, 1.2);
    }
}

TEST_F(PrinterTest, TextColourHasRedInTheLowByteAndBlackIsTheDefault) {
    printer_.SetFontSize(18);
    PrintAt(1, 1, QStringLiteral("HHH"));
    printer_.SetForeColor(Red);
    PrintAt(1, 3, QStringLiteral("HHH"));
    printer_.SetForeColor(Blue);
    PrintAt(1, 5, QStringLiteral("HHH"));
    printer_.SetForeColor(0x0a6432);
    PrintAt(1, 7, QStringLiteral("HHH"));
    const PrintedPages pages = Send();
    EXPECT_EQ(pages.MainColor(1, QRectF(0, 1, 21, 1)), QColor(0, 0, 0));
    EXPECT_EQ(pages.MainColor(1, QRectF(0, 3, 21, 1)), QColor(255, 0, 0));
    EXPECT_EQ(pages.MainColor(1, QRectF(0, 5, 21, 1)), QColor(0, 0, 255));
    EXPECT_EQ(pages.MainColor(1, QRectF(0, 7, 21, 1)), QColor(0x32, 0x64, 0x0a));
}

TEST_F(PrinterTest, LineWidthIsInDeviceDotsWithFlatEnds) {
    printer_.SetDrawWidth(120); // a tenth of an inch at the PDF's 1200 dots
    printer_.Line(5, 10, 15, 10, Green);
    const PrintedPages pages = Send();
    const QRectF ink = pages.Ink(1, QRectF(0, 0, 21, 30));
    EXPECT_NEAR(ink.height() * pages.UnitPoints().height(), 7.2, 0.5);
    EXPECT_NEAR(ink.left(), 5, Near);
    EXPECT_NEAR(ink.right(), 15, Near);
    EXPECT_EQ(pages.At(1, 10, 10), QColor(0, 255, 0));
}

TEST_F(PrinterTest, BoxIsAnOutlineWithSquareCornersAndNothingFilled) {
    printer_.SetDrawWidth(120);
    printer_.Box(15, 20, 5, 10, Red);
    const PrintedPages pages = Send();
    EXPECT_EQ(pages.At(1, 10, 10), QColor(255, 0, 0));
    EXPECT_EQ(pages.At(1, 10, 20), QColor(255, 0, 0));
    EXPECT_EQ(pages.At(1, 5, 15), QColor(255, 0, 0));
    EXPECT_EQ(pages.At(1, 15, 15), QColor(255, 0, 0));
    const QRectF ink = pages.Ink(1, QRectF(0, 0, 20, 30));
    const double tip = 0.1 * (5 - ink.left());
    EXPECT_EQ(pages.At(1, ink.left() + tip, ink.top() + tip), QColor(255, 0, 0))
        << "a round corner has no tip";
    EXPECT_TRUE(pages.Ink(1, QRectF(6, 11, 8, 8)).isEmpty());
}

TEST_F(PrinterTest, PictureIsScaledIntoItsRectangle) {
    QImage picture(2, 2, QImage::Format_RGB32);
    picture.fill(QColor(20, 120, 220));
    printer_.PaintPicture(picture, 3, 4, 5, 2.5);
    const PrintedPages pages = Send();
    const QRectF ink = pages.Ink(1, QRectF(0, 0, 21, 30));
    EXPECT_NEAR(ink.left(), 3, Near);
    EXPECT_NEAR(ink.top(), 4, Near);
    EXPECT_NEAR(ink.right(), 8, Near);
    EXPECT_NEAR(ink.bottom(), 6.5, Near);
    EXPECT_EQ(pages.At(1, 5, 5), QColor(20, 120, 220));
}

TEST_F(PrinterTest, EmptyPictureRaises481) {
    EXPECT_ERROR(481, printer_.PaintPicture(QImage(), 1, 1, 1, 1));
}

TEST_F(PrinterTest, BoxTextIsAnEmptySquareAsHighAsCapitalLetters) {
    printer_.SetFontSize(18);
    PrintAt(2, 10, QStringLiteral("H"));
    PrintAt(6, 10, QString(QChar(0x19)));
    EXPECT_EQ(printer_.CurrentX(), 0);
    EXPECT_GT(printer_.CurrentY(), 10.5F);
    const PrintedPages pages = Send();
    EXPECT_EQ(pages.Words(1).size(), 1) << "the box is no text";
    const QRectF capital = pages.Ink(1, QRectF(2, 9, 2, 3));
    const QRectF box = pages.Ink(1, QRectF(5, 9, 4, 3));
    EXPECT_NEAR(box.left(), 6, Near);
    EXPECT_NEAR(box.top(), capital.top(), Near);
    EXPECT_NEAR(box.bottom(), capital.bottom(), Near);
    EXPECT_NEAR(box.width() * pages.UnitPoints().width(),
                box.height() * pages.UnitPoints().height(), 1);
    EXPECT_TRUE(pages.Ink(1, box.adjusted(0.1, 0.1, -0.1, -0.1)).isEmpty());
    EXPECT_EQ(pages.MainColor(1, QRectF(5, 9, 4, 3)), QColor(0, 0, 0));
}

TEST_F(PrinterTest, ThickSidesOfALargeBoxTextEndWhereItBegins) {
    printer_.SetFontSize(144);
    PrintAt(1, 10, QStringLiteral("H"));
    PrintAt(10, 10, EmptyBoxText);
    const PrintedPages pages = Send();
    const QRectF capital = pages.Ink(1, QRectF(0, 10, 9, 10));
    const QRectF box = pages.Ink(1, QRectF(9, 10, 12, 10));
    EXPECT_NEAR(box.left(), 10, Near);
    EXPECT_NEAR(box.top(), capital.top(), Near);
    EXPECT_NEAR(box.bottom(), capital.bottom(), Near);
}

TEST_F(PrinterTest, BoxTextHasTheTextColourAndGrowsWithTheFont) {
    printer_.SetForeColor(Red);
    printer_.SetFontSize(36);
    PrintAt(2, 2, EmptyBoxText);
    printer_.SetFontSize(18);
    PrintAt(2, 10, EmptyBoxText);
    const PrintedPages pages = Send();
    EXPECT_EQ(pages.MainColor(1, QRectF(1, 1, 5, 5)), QColor(255, 0, 0));
    EXPECT_NEAR(pages.Ink(1, QRectF(1, 1, 5, 5)).width(),
                2 * pages.Ink(1, QRectF(1, 9, 5, 5)).width(), 2 * Near);
}

TEST_F(PrinterTest, TextIsMadeSmallerUntilItFitsAndKeepsItsPlace) {
    printer_.SetFontSize(18);
    const QString text = QStringLiteral("Hxp").repeated(12);
    PrintAt(2, 5, QStringLiteral("Hxp"));
    printer_.SetCurrentX(2);
    printer_.SetCurrentY(10);
    printer_.Print(text, {.End = 12});
    const float next = printer_.CurrentY();
    PrintAt(2, 15, QStringLiteral("Hxp"));
    EXPECT_FLOAT_EQ(next - 10, printer_.CurrentY() - 15) << "lines stay as high as they were";
    const PrintedPages pages = Send();
    const QRectF fitted = pages.Find(1, text).Place;
    EXPECT_NEAR(fitted.left(), 2, Near);
    EXPECT_NEAR(fitted.right(), 12, 0.15);
    // On the line on which it would have stood.
    const QRectF asked = pages.Ink(1, QRectF(0, 5, 21, 1.5));
    const QRectF smaller = pages.Ink(1, QRectF(0, 10, 21, 1.5));
    EXPECT_LT(smaller.height(), asked.height());
    EXPECT_NEAR(fitted.height() / pages.Find(1, QStringLiteral("Hxp")).Place.height(),
                smaller.height() / asked.height(), 0.1);
}

TEST_F(PrinterTest, TextThatWouldBeTooSmallToReadEndsInDots) {
    printer_.SetFontSize(10);
    printer_.SetCurrentX(2);
    printer_.SetCurrentY(10);
    printer_.Print(QStringLiteral("H").repeated(100), {.End = 8});
    const PrintedPages pages = Send();
    ASSERT_EQ(pages.Words(1).size(), 1);
    const PrintedPages::Word word = pages.Words(1).value(0);
    EXPECT_TRUE(word.Text.endsWith(QLatin1String("..."))) << word.Text.toStdString();
    EXPECT_TRUE(word.Text.startsWith(QStringLiteral("HHHHHHHHHH")));
    EXPECT_NEAR(word.Place.right(), 8, 0.4);
    EXPECT_LE(word.Place.right(), 8);
    EXPECT_NEAR(word.Place.height() * pages.UnitPoints().height(), 7 * 1.149, 0.3);
}

TEST_F(PrinterTest, BeginningOfATextThatIsMadeToFitStaysAsItIs) {
    printer_.SetFontSize(10);
    const QString number = QStringLiteral("12.        ");
    const auto print = [&](double top, const QString& text) {
        printer_.SetCurrentX(2);
        printer_.SetCurrentY(top);
        printer_.Print(number + text, {.End = 10, .Lead = number.size()});
    };
    print(10, QStringLiteral("short"));
    print(12, QStringLiteral("H").repeated(30));
    const PrintedPages pages = Send();
    const QList<PrintedPages::Word> numbers = pages.FindAll(1, QStringLiteral("12."));
    ASSERT_EQ(numbers.size(), 2);
    EXPECT_NEAR(numbers[0].Place.width(), numbers[1].Place.width(), 0.01);
    const QRectF fitted = pages.Find(1, QStringLiteral("H").repeated(30)).Place;
    EXPECT_NEAR(fitted.left(), pages.Find(1, QStringLiteral("short")).Place.left(), Near);
    EXPECT_NEAR(fitted.right(), 10, 0.15);
    EXPECT_LT(fitted.height(), numbers[1].Place.height());
}

TEST_F(PrinterTest, TextEndsAtThePagesEdgeWhereNothingElseIsSaid) {
    printer_.SetFontSize(18);
    PrintAt(4, 1, QStringLiteral("H").repeated(45));
    const PrintedPages pages = Send();
    EXPECT_NEAR(pages.Find(1, QStringLiteral("H").repeated(45)).Place.right(), 21, 0.15);
}

TEST_F(PrinterTest, PaperHasAFontOfTheWidthsThatThePagesAreLaidOutFor) {
    PrintAt(1, 1, QStringLiteral("text"));
    printer_.EndDoc();
    const QByteArray listed = OutputOf(QStringLiteral("pdffonts"), {target_.LastFile()});
    EXPECT_TRUE(listed.contains("LiberationSans")) << listed.toStdString();
}

TEST_F(PrinterTest, BoxesLieOverTheLinesThatEndAtThem) {
    printer_.SetDrawWidth(40);
    printer_.Box(2, 2, 10, 8, Red);
    printer_.SetDrawWidth(10);
    printer_.Line(2, 5, 10, 5, Black);
    const PrintedPages pages = Send();
    EXPECT_EQ(pages.At(1, 6, 5), QColor(0, 0, 0));
    for (const double edge : {2.0, 10.0})
        EXPECT_EQ(pages.At(1, edge, 5), QColor(255, 0, 0)) << edge;
}

} // namespace

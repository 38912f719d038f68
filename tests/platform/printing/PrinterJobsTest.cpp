#include "platform/runtime/RuntimeError.h"
#include "tests/common/RuntimeTest.h"
#include "tests/platform/printing/PrinterTest.h"

#include <QFile>
#include <QPdfWriter>
#include <memory>

namespace {

/// Paper with a printable area of so many dots.
class SmallPaper : public QPdfWriter {
public:
    SmallPaper(const QString& path, const QSize& dots) : QPdfWriter(path), dots_(dots) {}

protected:
    int metric(PaintDeviceMetric id) const override {
        return id == PdmWidth    ? dots_.width()
               : id == PdmHeight ? dots_.height()
                                 : QPdfWriter::metric(id);
    }

private:
    QSize dots_;
};

class OnePagePaper : public QPdfWriter {
public:
    using QPdfWriter::QPdfWriter;
    bool newPage() override { return false; }
};

TEST_F(PrinterTest, ASheetOfItsOwnBeginsOnTheFrontWherePaperHasTwoSides) {
    const auto print = [this] {
        PrintAt(1, 1, QStringLiteral("one"));
        printer_.NewSheet();
        PrintAt(1, 1, QStringLiteral("two"));
        printer_.NewPage();
        PrintAt(1, 1, QStringLiteral("three"));
        printer_.NewSheet();
        PrintAt(1, 1, QStringLiteral("four"));
        const PrintedPages pages = Send();
        QStringList words;
        for (int page = 1; page <= pages.Count(); ++page)
            words += pages.Words(page).value(0).Text;
        return words.join(QLatin1Char(','));
    };
    EXPECT_EQ(print(), QStringLiteral("one,two,three,four"));
    target_.BothSides = true;
    EXPECT_EQ(print(), QStringLiteral("one,,two,three,four"));
}

TEST_F(PrinterTest, NameOfAJobGoesWithItAndNoFurther) {
    printer_.SetDocName(QStringLiteral("first"));
    PrintAt(1, 1, QStringLiteral("x"));
    printer_.EndDoc();
    PrintAt(1, 1, QStringLiteral("x"));
    printer_.EndDoc();
    EXPECT_EQ(target_.Names(), (QStringList{QStringLiteral("first"), QString()}));
}

TEST_F(PrinterTest, NewPageStartsAtTheTopLeftOfTheNextPage) {
    PrintAt(4, 10, QStringLiteral("one"));
    printer_.SetCurrentX(5);
    printer_.NewPage();
    EXPECT_EQ(printer_.CurrentX(), 0);
    EXPECT_EQ(printer_.CurrentY(), 0);
    printer_.Print(QStringLiteral("two"));
    const PrintedPages pages = Send();
    ASSERT_EQ(pages.Count(), 2);
    EXPECT_EQ(pages.Words(1).size(), 1);
    EXPECT_EQ(pages.Words(2).size(), 1);
    EXPECT_NEAR(pages.Find(2, QStringLiteral("two")).Place.top(), 0, Near);
}

TEST_F(PrinterTest, NewPageKeepsScaleFontAndColour) {
    printer_.SetFontSize(18);
    printer_.SetForeColor(Blue);
    PrintAt(4, 10, QStringLiteral("HHH"));
    printer_.NewPage();
    PrintAt(4, 10, QStringLiteral("HHH"));
    const PrintedPages pages = Send();
    const QRectF area(0, 9, 21, 3);
    EXPECT_EQ(pages.Ink(1, area), pages.Ink(2, area));
    EXPECT_EQ(pages.MainColor(2, area), QColor(0, 0, 255));
}

TEST_F(PrinterTest, LastPageWithoutADrawingIsNotSentButOneInTheMiddleIs) {
    PrintAt(1, 1, QStringLiteral("one"));
    printer_.NewPage();
    printer_.NewPage();
    PrintAt(1, 1, QStringLiteral("three"));
    printer_.NewPage();
    const PrintedPages pages = Send();
    ASSERT_EQ(pages.Count(), 3);
    EXPECT_TRUE(pages.Words(2).isEmpty());
    EXPECT_EQ(pages.LineAt(3, 1), QStringLiteral("three"));
}

TEST_F(PrinterTest, DrawingOutsideThePageIsLostWithoutAnError) {
    PrintAt(1, 31, QStringLiteral("below"));
    PrintAt(1, 1, QStringLiteral("inside"));
    const PrintedPages pages = Send();
    EXPECT_EQ(pages.Count(), 1);
    EXPECT_EQ(pages.LineAt(1, 1), QStringLiteral("inside"));
}

TEST_F(PrinterTest, WhatReachesBeyondThePrintableAreaIsCutAtItsEdgeOnEveryPage) {
    for (int page = 1; page <= 2; ++page) {
        PrintAt(-0.3, 1, QStringLiteral("left"));
        PrintAt(20.5, 2, QStringLiteral("right"));
        PrintAt(5, -0.2, QStringLiteral("top"));
        PrintAt(5, 29.8, QStringLiteral("bottom"));
        printer_.Line(-1, 15, 22, 15, Black);
        printer_.NewPage();
    }
    const PrintedPages pages = Send();
    ASSERT_EQ(pages.Count(), 2);
    for (const int page : {1, 2}) {
        EXPECT_FALSE(pages.HasInkInMargins(page));
        EXPECT_NEAR(pages.Ink(page, QRectF(0, 14.9, 21, 0.2)).width(), 21, 0.1);
        EXPECT_FALSE(pages.Ink(page, QRectF(5, 29.8, 2, 0.2)).isEmpty()) << "the part within stays";
    }
}

TEST_F(PrinterTest, EndDocWithoutADrawingSendsNothing) {
    printer_.SetFontSize(18);
    printer_.EndDoc();
    EXPECT_TRUE(target_.Files().isEmpty());
}

TEST_F(PrinterTest, NothingIsSentBeforeEndDoc) {
    PrintAt(1, 1, QStringLiteral("text"));
    EXPECT_TRUE(target_.Files().isEmpty());
    EXPECT_FALSE(QFile::exists(folder_.filePath(QStringLiteral("Job1.pdf"))));
    printer_.EndDoc();
    EXPECT_EQ(target_.Files().size(), 1);
}

TEST_F(PrinterTest, NextJobStartsCleanOnItsFirstPage) {
    printer_.SetForeColor(Red);
    printer_.SetDrawWidth(120);
    PrintAt(1, 1, QStringLiteral("first"));
    printer_.NewPage();
    PrintAt(1, 1, QStringLiteral("job"));
    printer_.EndDoc();
    EXPECT_EQ(printer_.CurrentX(), 0);
    EXPECT_EQ(printer_.CurrentY(), 0);
    PrintAt(1, 1, QStringLiteral("HHH"));
    printer_.Line(1, 10, 20, 10, Black);
    const PrintedPages pages = Send();
    ASSERT_EQ(pages.Count(), 1);
    EXPECT_EQ(pages.MainColor(1, QRectF(0, 1, 21, 1)), QColor(0, 0, 0));
    EXPECT_LT(pages.Ink(1, QRectF(0, 9, 21, 2)).height(), 0.1);
}

TEST_F(PrinterTest, WhatWasSetForAJobReachesNoFurther) {
    PrinterObject untouched(target_);
    untouched.Print(QStringLiteral("Hxp"));
    untouched.EndDoc();
    printer_.SetScaleWidth(42);
    printer_.SetScaleHeight(60);
    printer_.SetFontSize(36);
    PrintAt(1, 1, QStringLiteral("first"));
    printer_.SetCurrentX(5);
    printer_.EndDoc();
    EXPECT_EQ(printer_.CurrentX(), 0);
    EXPECT_EQ(printer_.CurrentY(), 0);
    printer_.Print(QStringLiteral("Hxp"));
    const PrintedPages pages = Send();
    const PrintedPages expected(target_.Files().value(0));
    EXPECT_EQ(pages.Ink(1, QRectF(0, 0, 21, 30)), expected.Ink(1, QRectF(0, 0, 21, 30)));
}

TEST_F(PrinterTest, GuardDropsTheJobThatAnErrorLeftUnfinished) {
    EXPECT_ERROR(94, {
        const PrintJobGuard job(printer_);
        PrintAt(1, 1, QStringLiteral("lost"));
        printer_.NewPage();
        throw RuntimeError(ErrorNumber::InvalidUseOfNull);
    });
    printer_.EndDoc();
    EXPECT_TRUE(target_.Files().isEmpty());
    PrintAt(1, 1, QStringLiteral("kept"));
    const PrintedPages pages = Send();
    EXPECT_EQ(pages.Count(), 1);
    EXPECT_EQ(pages.LineAt(1, 1), QStringLiteral("kept"));
}

TEST_F(PrinterTest, GuardDropsWhatWasLeftFromBeforeAndKeepsAFinishedJob) {
    PrintAt(1, 1, QStringLiteral("before"));
    {
        const PrintJobGuard job(printer_);
        PrintAt(1, 1, QStringLiteral("kept"));
        printer_.EndDoc();
    }
    ASSERT_EQ(target_.Files().size(), 1);
    EXPECT_EQ(PrintedPages(target_.Files().value(0)).Words(1).size(), 1);
}

TEST_F(PrinterTest, PrinterThatIsNotThereRaises482AtTheFirstDrawing) {
    MadeByTest none;
    none.Make = []() -> std::unique_ptr<QPagedPaintDevice> {
        throw RuntimeError(ErrorNumber::PrinterError);
    };
    PrinterObject printer(none);
    printer.SetFontSize(18);
    EXPECT_ERROR(482, printer.Print(QStringLiteral("x")));
    EXPECT_ERROR(482, printer.Line(1, 1, 2, 2, Black));
    none.Make = [] { return std::unique_ptr<QPagedPaintDevice>(); };
    EXPECT_ERROR(482, printer.Print(QStringLiteral("x")));
    EXPECT_EQ(none.SentJobs, 0);
}

TEST_F(PrinterTest, PaperWithoutAPrintableAreaRaises482) {
    for (const QSize& dots : {QSize(0, 1000), QSize(1000, 0)}) {
        MadeByTest narrow;
        narrow.Make = [&] {
            return std::make_unique<SmallPaper>(folder_.filePath(QStringLiteral("none.pdf")), dots);
        };
        PrinterObject printer(narrow);
        EXPECT_ERROR(482, printer.Print(QStringLiteral("x"))) << dots.width();
    }
}

TEST_F(PrinterTest, DeviceThatCannotBeginRaises482AndTheJobIsGone) {
    MadeByTest refusing;
    refusing.Make = [this] {
        return std::make_unique<QPdfWriter>(folder_.filePath(QStringLiteral("missing/Job.pdf")));
    };
    PrinterObject printer(refusing);
    printer.Print(QStringLiteral("lost"));
    EXPECT_ERROR(482, printer.EndDoc());
    EXPECT_EQ(refusing.SentJobs, 0);

    const QString file = folder_.filePath(QStringLiteral("next.pdf"));
    refusing.Make = [file] { return std::make_unique<QPdfWriter>(file); };
    printer.EndDoc();
    EXPECT_EQ(refusing.SentJobs, 0) << "nothing is left of the refused job";
    printer.Print(QStringLiteral("next"));
    printer.EndDoc();
    EXPECT_EQ(refusing.SentJobs, 1);
    EXPECT_EQ(PrintedPages(file).LineAt(1, 0), QStringLiteral("next"));
}

TEST_F(PrinterTest, DeviceThatRefusesASecondPageRaises482) {
    MadeByTest onePage;
    onePage.Make = [this] {
        return std::make_unique<OnePagePaper>(folder_.filePath(QStringLiteral("one.pdf")));
    };
    PrinterObject printer(onePage);
    printer.Print(QStringLiteral("one"));
    printer.NewPage();
    printer.Print(QStringLiteral("two"));
    EXPECT_ERROR(482, printer.EndDoc());
    EXPECT_EQ(onePage.SentJobs, 0);
}

class PrinterOfTheProgram : public RuntimeTest {};

TEST_F(PrinterOfTheProgram, Raises482WithoutATarget) {
    EXPECT_ERROR(482, Printer());
}

TEST_F(PrinterOfTheProgram, PrintsOnTheTargetSet) {
    const QTemporaryDir folder;
    PdfPrintTarget target(folder.path());
    SetPrintTarget(&target);
    Printer().Print(QStringLiteral("text"));
    Printer().EndDoc();
    EXPECT_EQ(target.Files().size(), 1);
}

} // namespace

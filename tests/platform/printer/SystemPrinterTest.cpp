#include "platform/printer/SystemPrinter.h"
#include "tests/common/PrintedPages.h"
#include "tests/common/TestWorld.h"

#include <QDir>
#include <QPrinter>
#include <QPrinterInfo>

namespace {

class SystemPrinterTest : public ProgramTest {
protected:
    static QStringList Printouts() {
        return QDir(Path(QStringLiteral("Printouts"))).entryList(QDir::Files);
    }
};

/// The system's printing on a file instead of a printer.
class PrinterOnFile : public PrintTarget {
public:
    explicit PrinterOnFile(QString path) : path_(std::move(path)) {}

    std::unique_ptr<QPagedPaintDevice> Open() override {
        auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setOutputFileName(path_);
        return printer;
    }
    void Sent(const QString&) override { sent_ = true; }
    bool IsSent() const { return sent_; }

private:
    QString path_;
    bool sent_ = false;
};

TEST_F(SystemPrinterTest, WithoutAPrinterTheListOfAccountsBecomesAPrintoutThatIsOpened) {
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        GTEST_SKIP() << "a printer is installed, and no test uses up its paper";
    SystemPrinter target;
    SetPrintTarget(&target);
    Database().AddUser(QStringLiteral("Anna"), QStringLiteral("cat"), QStringLiteral("Student"),
                       QString());
    Database().PrintUsersPasswords();

    ASSERT_EQ(Printouts().size(), 1);
    const QString file = Path(QStringLiteral("Printouts/") + Printouts().value(0));
    EXPECT_TRUE(PdfPrintTarget::TextOf(file).contains(QStringLiteral("User Name Is: Anna")));
    EXPECT_EQ(DesktopCalls.Opened, QStringList(QStringLiteral("open %1 0").arg(file)));
}

TEST_F(SystemPrinterTest, TheSystemsPrintingKeepsPlacesBreaksAndColours) {
    const QString file = Path(QStringLiteral("system.pdf"));
    PrinterOnFile target(file);
    PrinterObject printer(target);
    printer.SetScaleWidth(21);
    printer.SetScaleHeight(30);
    printer.SetFontSize(18);
    printer.SetCurrentX(4);
    printer.SetCurrentY(10);
    printer.SetForeColor(255);
    printer.Print(QStringLiteral("HHH"));
    printer.NewPage();
    printer.SetCurrentY(29);
    printer.Print(QStringLiteral("below"));
    printer.EndDoc();
    EXPECT_TRUE(target.IsSent());

    const PrintedPages pages(file);
    ASSERT_EQ(pages.Count(), 2);
    EXPECT_NEAR(pages.Find(1, QStringLiteral("HHH")).Place.left(), 4, 0.1);
    EXPECT_NEAR(pages.Find(1, QStringLiteral("HHH")).Place.top(), 10, 0.1);
    EXPECT_EQ(pages.MainColor(1, QRectF(0, 9, 21, 3)), QColor(255, 0, 0));
    EXPECT_NEAR(pages.Find(2, QStringLiteral("below")).Place.top(), 29, 0.1);
}

TEST_F(SystemPrinterTest, LooksAfterJobsComeEverMoreSeldomUpToHalfAMinute) {
    QList<int> pauses;
    for (std::chrono::seconds pause{}; pauses.size() < 8;) {
        pause = SystemPrinter::PauseAfter(pause);
        pauses += static_cast<int>(pause.count());
    }
    EXPECT_EQ(pauses, QList<int>({1, 2, 4, 8, 16, 30, 30, 30}));
}

TEST_F(SystemPrinterTest, PrinterThatDoesNotBeginRaises482) {
    PrinterOnFile target(Path(QStringLiteral("no-such-folder/system.pdf")));
    SetPrintTarget(&target);
    EXPECT_ERROR(482, Database().PrintUsersPasswords());
    EXPECT_FALSE(target.IsSent());
}

} // namespace

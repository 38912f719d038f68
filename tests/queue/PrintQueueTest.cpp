#include "platform/printer/PrintQueues.h"
#include "platform/printer/SystemPrinter.h"
#include "platform/printing/PrintNews.h"
#include "platform/runtime/Actions.h"
#include "tests/common/EnvironmentVariable.h"
#include "tests/common/PrintedPages.h"
#include "tests/common/TestWorld.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <chrono>
#include <functional>
#include <future>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Printing on the queues of tests/queue/with-queues.
class PrintQueueTest : public ProgramTest {
protected:
    using JobState = PrintQueues::JobState;

    PrintQueueTest() {
        for (const QString& name : QDir(Out()).entryList(QDir::Files))
            QFile::remove(Out() + name);
        SetPrintTarget(&target_);
        SetPrintNews([this](const PrintNews& news) { News += news; });
    }
    ~PrintQueueTest() override { SetPrintNews({}); }

    /// Prints the list of accounts on a queue, by the name under which it then comes out.
    static void PrintOn(const QString& queue) {
        qputenv("LPDEST", queue.toUtf8());
        Database().PrintUsersPasswords();
    }
    const QString SheetName = u"List of users - 2001-03-07"_s;

    static QString Out() { return qEnvironmentVariable("DUTYGRID_QUEUES") + u"/out/"_s; }
    static QString Text(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
    /// What has come out of a queue; waits until all of it has.
    static QString PaperOf(const QString& queue) {
        const QString path = Out() + queue + u".pdf"_s;
        EXPECT_TRUE(QTest::qWaitFor(
            [&path] {
                QFile file(path);
                return file.open(QIODevice::ReadOnly) && file.readAll().endsWith("%%EOF\n");
            },
            Patience))
            << "nothing comes out of " << queue.toStdString();
        return path;
    }
    static bool WaitFor(const std::function<bool()>& condition) {
        return QTest::qWaitFor(condition, Patience);
    }
    /// What becomes of a job by what another server says, which another thread alone asks.
    static JobState StateByServer(const QString& server) {
        const EnvironmentVariable anotherServer("CUPS_SERVER", server.toUtf8());
        auto state = std::async(std::launch::async, [] { return PrintQueues().StateOf({}, 1); });
        EXPECT_TRUE(WaitFor([&state] {
            return state.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
        }));
        return state.get();
    }
    static QStringList Printouts() { return QDir(Path(u"Printouts"_s)).entryList(QDir::Files); }
    static QString KeptAt(const QString& file) {
        return u"\n\nThey are kept as a PDF file:\n"_s + Path(u"Printouts/"_s + file);
    }

    QList<PrintNews> News;

private:
    // Longer than the first four looks after a job take.
    static constexpr int Patience = 30000;
    EnvironmentVariable queue_{"LPDEST"};
    SystemPrinter target_;
};

class OwnPaperTest : public PrintQueueTest,
                     public testing::WithParamInterface<std::pair<const char*, QSize>> {};

TEST_P(OwnPaperTest, PagesHaveThePaperOfThePrinter) {
    const QString queue = QString::fromLatin1(GetParam().first);
    PrintOn(queue);
    const PrintedPages pages(PaperOf(queue));
    EXPECT_EQ(pages.Count(), 1);
    EXPECT_EQ(pages.SheetPoints(), GetParam().second);
    EXPECT_EQ(Printouts(), QStringList()) << "a page that is printed is not kept as well";
    // What the server counts as printed there.
    const auto log = [] { return Text(qEnvironmentVariable("DUTYGRID_QUEUES") + u"/log/page"_s); };
    const QRegularExpression line(u"^%1 [0-9]+ total 1$"_s.arg(queue),
                                  QRegularExpression::MultilineOption);
    EXPECT_TRUE(WaitFor([&] { return line.match(log()).hasMatch(); })) << log().toStdString();
}

INSTANTIATE_TEST_SUITE_P(Papers, OwnPaperTest,
                         testing::Values(std::pair("Letter", QSize(612, 792)),
                                         std::pair("A4", QSize(595, 842)),
                                         std::pair("A5", QSize(420, 595))));

TEST_F(PrintQueueTest, PagesFillWhatThePrinterReaches) {
    SystemPrinter target;
    PrinterObject printer(target);
    qputenv("LPDEST", "A4");
    printer.Print(u"H"_s);
    printer.EndDoc();
    const PrintedPages pages(PaperOf(u"A4"_s));
    // As the queue says: 12 points from each edge of the paper.
    const double unit = pages.UnitPoints().width();
    const double margin = (pages.SheetPoints().width() - 21 * unit) / 2;
    EXPECT_NEAR(margin + pages.Find(1, u"H"_s).Place.left() * unit, 12, 1.5);
}

TEST_F(PrintQueueTest, ThePrintersOwnSettingsStand) {
    PrintOn(u"A5"_s);
    PaperOf(u"A5"_s);
    const QString options = Text(Out() + u"A5.options"_s);
    EXPECT_TRUE(options.contains(u" ColorModel=Gray"_s)) << options.toStdString();
    for (const QString& setting : {u"media"_s, u"PageSize"_s, u"sides"_s, u"Duplex"_s, u"RGB"_s})
        EXPECT_FALSE(options.contains(setting)) << options.toStdString();
}

TEST_F(PrintQueueTest, AJobIsCalledByWhatItShows) {
    PrintOn(u"A4"_s);
    PaperOf(u"A4"_s);
    EXPECT_EQ(Text(Out() + u"A4.title"_s), SheetName);
}

TEST_F(PrintQueueTest, ThePrinterThatHasThePagesIsTold) {
    PrintOn(u"Letter"_s);
    ASSERT_EQ(News.size(), 1);
    EXPECT_EQ(News.first().Printer, u"Letter"_s);
    EXPECT_FALSE(News.first().IsWaiting);
    EXPECT_EQ(News.first().File, QString());
    PaperOf(u"Letter"_s);
}

TEST_F(PrintQueueTest, PagesThatAPrinterRefusesAreKeptAndTold) {
    Boxes.Expect(u"The printer Refusing does not take the pages: "
                 u"Destination \"Refusing\" is not accepting jobs."_s +
                 KeptAt(SheetName + u".pdf"_s));
    PrintOn(u"Refusing"_s);
    Boxes.VerifyAllShown();
    EXPECT_EQ(Printouts(), QStringList(SheetName + u".pdf"_s));
    const QString file = Path(u"Printouts/"_s + SheetName + u".pdf"_s);
    EXPECT_EQ(PrintedPages(file).SheetPoints(), QSize(595, 842));
    ASSERT_EQ(News.size(), 1);
    EXPECT_EQ(News.first().File, file);
    EXPECT_EQ(News.first().Printer, QString());
    EXPECT_EQ(DesktopCalls.Opened, QStringList()) << "the button opens it";
}

TEST_F(PrintQueueTest, PagesThatAPrinterLosesAreKeptAndTold) {
    bool isTold = false;
    Boxes.Expect(u"The printer Losing has given up the pages."_s + KeptAt(SheetName + u".pdf"_s),
                 PromptAnswer::Ok, [&isTold] { isTold = true; });
    PrintOn(u"Losing"_s);
    EXPECT_TRUE(WaitFor([&isTold] { return isTold; }));
    EXPECT_EQ(Printouts(), QStringList(SheetName + u".pdf"_s));
    EXPECT_TRUE(WaitFor([this] { return News.size() == 2; }));
    EXPECT_EQ(News.value(0).Printer, u"Losing"_s);
    EXPECT_EQ(News.value(1).File, Path(u"Printouts/"_s + SheetName + u".pdf"_s));
}

TEST_F(PrintQueueTest, WhereLostPagesCannotBeKeptThoseOfLaterJobsAreStillLookedAfter) {
    QFile inTheWay(Path(u"Printouts"_s));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    const QString text = u"The folder %1 cannot be made"_s.arg(Path(u"Printouts"_s));
    // The printer may have lost the first of them already when it is asked for the first time.
    constexpr int jobs = 3;
    for (int job = 0; job < jobs; ++job)
        Boxes.ExpectError(ErrorNumber::PrinterError, text);
    for (int job = 0; job < jobs; ++job)
        RunAction([] { PrintOn(u"Losing"_s); });
    EXPECT_TRUE(WaitFor([this] { return Boxes.Shown().size() == jobs; }));
    Boxes.VerifyAllShown();
}

TEST_F(PrintQueueTest, PagesBegunAndGivenUpAreOnNoOtherPaper) {
    qputenv("LPDEST", "A4");
    SystemPrinter printer;
    const auto linesTo = [](const std::unique_ptr<QPagedPaintDevice>& pages, int count) {
        QPainter painter(pages.get());
        for (int line = 0; line < count; ++line)
            painter.drawText(100, 100 + 30 * line, u"Line %1"_s.arg(line));
    };
    linesTo(printer.Open(), 200);
    linesTo(printer.Open(), 1);
    printer.Sent(u"List"_s);
    QFile file(PaperOf(u"A4"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().count("%%EOF"), 1);
}

TEST_F(PrintQueueTest, PagesThatWaitAtAPrinterStandingStillAreToldToWait) {
    PrintOn(u"Stopped"_s);
    ASSERT_EQ(News.size(), 2);
    EXPECT_EQ(News.value(1).Printer, u"Stopped"_s);
    EXPECT_TRUE(News.value(1).IsWaiting);
    EXPECT_EQ(Printouts(), QStringList());
}

TEST_F(PrintQueueTest, AJobThatWaitsIsAskedForAloneAndEverMoreSeldom) {
    const auto log = [] {
        return Text(qEnvironmentVariable("DUTYGRID_QUEUES") + u"/log/access"_s);
    };
    const qsizetype before = log().size();
    const auto asked = [&] {
        return log().mid(before).count(u" Get-Job-Attributes successful-ok"_s);
    };
    QElapsedTimer since;
    since.start();
    PrintOn(u"Stopped"_s);
    EXPECT_EQ(asked(), 1);
    EXPECT_TRUE(WaitFor([&] { return asked() == 3; })) << log().mid(before).toStdString();
    // At once, a second later, and two seconds after that; timers may be a twentieth early.
    EXPECT_GE(since.elapsed(), 2850);
    EXPECT_FALSE(log().mid(before).contains(u"Get-Jobs"_s)) << log().mid(before).toStdString();
}

TEST_F(PrintQueueTest, AJobIsGoneWhenItIsPrintedOrNobodyKnowsIt) {
    const PrintQueues queues;
    const PrintQueues::Answer answer = queues.Send(u"A4"_s, u"List"_s, "%PDF-1.4\n%%EOF\n");
    ASSERT_NE(answer.Job, 0) << answer.Refusal.toStdString();
    EXPECT_TRUE(WaitFor([&] { return queues.StateOf(u"A4"_s, answer.Job) == JobState::Gone; }));
    EXPECT_EQ(queues.StateOf(u"A4"_s, answer.Job + 1000), JobState::Gone);
}

TEST_F(PrintQueueTest, AJobIsUnderWayWhileTheServerIsNotThere) {
    EXPECT_EQ(StateByServer(Out() + u"nowhere"_s), JobState::UnderWay);
}

TEST_F(PrintQueueTest, AJobIsUnderWayWhileTheServerHasNoTimeForTheQuestion) {
    // Version 2.0, server-error-busy, the number of the question, the end.
    const QByteArray busy("\x02\x00\x05\x07\x00\x00\x00\x01\x03", 9);
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    int answers = 0;
    QObject::connect(&server, &QTcpServer::newConnection, &server, [&] {
        QTcpSocket* asking = server.nextPendingConnection();
        QObject::connect(asking, &QTcpSocket::readyRead, asking, [&answers, &busy, asking] {
            const QByteArray question = asking->peek(asking->bytesAvailable());
            if (!question.contains("job-state\x03")) {
                // The rest comes when it is asked for.
                asking->write("HTTP/1.1 100 Continue\r\n\r\n");
                return;
            }
            asking->readAll();
            asking->write("HTTP/1.1 200 OK\r\nContent-Type: application/ipp\r\n"
                          "Content-Length: 9\r\n\r\n" +
                          busy);
            ++answers;
        });
    });
    EXPECT_EQ(StateByServer(u"127.0.0.1:%1"_s.arg(server.serverPort())), JobState::UnderWay);
    EXPECT_EQ(answers, 1);
}

TEST_F(PrintQueueTest, OnAPrinterOfBothSidesEachChildBeginsOnASheetOfItsOwn) {
    SystemPrinter target;
    PrinterObject printer(target);
    qputenv("LPDEST", "A5");
    printer.Print(u"one"_s);
    printer.NewSheet();
    printer.Print(u"two"_s);
    printer.EndDoc();
    const PrintedPages pages(PaperOf(u"A5"_s));
    ASSERT_EQ(pages.Count(), 3);
    EXPECT_EQ(pages.Words(1).value(0).Text, u"one"_s);
    EXPECT_TRUE(pages.Words(2).isEmpty()) << "the back of the first child's sheet";
    EXPECT_EQ(pages.Words(3).value(0).Text, u"two"_s);
}

} // namespace

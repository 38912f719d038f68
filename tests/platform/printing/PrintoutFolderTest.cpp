#include "platform/printing/PrintoutFolder.h"
#include "tests/common/PrintedPages.h"
#include "tests/common/RuntimeTest.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QPageSize>
#include <QRegularExpression>
#include <cstdlib>
#include <utility>

namespace {

class PrintoutFolderTest : public RuntimeTest {
protected:
    void PrintJob(const QString& text) {
        printer_.Print(text);
        printer_.EndDoc();
    }

    static QString PrintoutsPath() { return Path(QStringLiteral("Printouts")); }
    static QStringList Files() {
        return QDir(PrintoutsPath()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }
    /// Where a job of this process is painted before it gets its name.
    static QString Draft() {
        return QStringLiteral("%1/unfinished-%2.tmp")
            .arg(PrintoutsPath())
            .arg(QCoreApplication::applicationPid());
    }

    PrintoutFolder target_;
    PrinterObject printer_{target_};
};

TEST_F(PrintoutFolderTest, JobBecomesAPdfNamedByDateAndTimeInAFolderMadeForIt) {
    PrintJob(QStringLiteral("chart"));
    ASSERT_EQ(Files().size(), 1);
    const QRegularExpression pattern(QStringLiteral("^2001-03-07 \\d\\d-\\d\\d-\\d\\d\\.pdf$"));
    EXPECT_TRUE(pattern.match(Files().value(0)).hasMatch()) << Files().value(0).toStdString();
    const PrintedPages pages(QDir(PrintoutsPath()).filePath(Files().value(0)));
    EXPECT_EQ(pages.LineAt(1, 0), QStringLiteral("chart"));
}

TEST_F(PrintoutFolderTest, JobIsOpenedInTheViewerOfTheDesktop) {
    PrintJob(QStringLiteral("chart"));
    ASSERT_EQ(Files().size(), 1);
    EXPECT_EQ(DesktopCalls.Opened,
              QStringList(QStringLiteral("open %1/%2 0").arg(PrintoutsPath(), Files().value(0))));
}

TEST_F(PrintoutFolderTest, JobsOfOneMomentNeverWriteOverEachOther) {
    for (int job = 1; job <= 5; ++job)
        PrintJob(QStringLiteral("job%1").arg(job));
    EXPECT_EQ(Files().size(), 5);
    QStringList texts;
    for (const QString& file : Files())
        texts += PrintedPages(QDir(PrintoutsPath()).filePath(file)).LineAt(1, 0);
    texts.sort();
    EXPECT_EQ(texts.join(QLatin1Char(' ')), QStringLiteral("job1 job2 job3 job4 job5"));
}

TEST_F(PrintoutFolderTest, JobOfATakenMomentGetsANumberBehind) {
    const QDateTime now = QDateTime::currentDateTime();
    for (int second = 0; second < 60; ++second)
        WriteFile(
            QStringLiteral("%1/2001-03-07 %2.pdf")
                .arg(PrintoutsPath(), now.addSecs(second).toString(QStringLiteral("HH-mm-ss"))),
            "taken");
    PrintJob(QStringLiteral("chart"));
    ASSERT_EQ(DesktopCalls.Opened.size(), 1);
    const QRegularExpression pattern(
        QStringLiteral("^open .*/2001-03-07 \\d\\d-\\d\\d-\\d\\d \\(2\\)\\.pdf 0$"));
    EXPECT_TRUE(pattern.match(DesktopCalls.Opened.value(0)).hasMatch())
        << DesktopCalls.Opened.value(0).toStdString();
    EXPECT_EQ(Files().size(), 61);
}

TEST_F(PrintoutFolderTest, PaperIsThatOfTheUsersCountry) {
    // A process learns at its start where it is.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const QByteArray former = qgetenv("LC_ALL");
    for (const auto& [country, paper] :
         {std::pair("en_US.UTF-8", QPageSize::Letter), {"en_GB.UTF-8", QPageSize::A4}}) {
        qputenv("LC_ALL", country);
        const auto print = [this, size = QPageSize::sizePoints(paper)] {
            PrintJob(QStringLiteral("chart"));
            const PrintedPages pages(QDir(PrintoutsPath()).filePath(Files().value(0)));
            const bool isRight = pages.SheetPoints() == size;
            QDir(Path(QString())).removeRecursively();
            return isRight ? 0 : 1;
        };
        EXPECT_EXIT(std::_Exit(print()), testing::ExitedWithCode(0), "") << country;
    }
    former.isNull() ? qunsetenv("LC_ALL") : qputenv("LC_ALL", former);
}

TEST_F(PrintoutFolderTest, ForgottenJobLeavesNoFileAndOpensNothing) {
    printer_.Print(QStringLiteral("lost"));
    printer_.KillDoc();
    EXPECT_TRUE(Files().isEmpty());
    EXPECT_TRUE(DesktopCalls.Opened.isEmpty());
}

TEST_F(PrintoutFolderTest, FolderThatCannotBeMadeRaises482) {
    WriteFile(PrintoutsPath(), "kept");
    EXPECT_ERROR(482, PrintJob(QStringLiteral("lost")));
    EXPECT_EQ(ReadFile(PrintoutsPath()), "kept");
    EXPECT_TRUE(DesktopCalls.Opened.isEmpty());
}

TEST_F(PrintoutFolderTest, FileThatCannotBeOpenedRaises482AndTheNextJobIsPrinted) {
    ASSERT_TRUE(QDir().mkpath(Draft()));
    EXPECT_ERROR(482, PrintJob(QStringLiteral("lost")));
    EXPECT_TRUE(DesktopCalls.Opened.isEmpty());
    ASSERT_TRUE(QDir().rmdir(Draft()));
    PrintJob(QStringLiteral("next"));
    EXPECT_EQ(Files().size(), 1);
}

TEST_F(PrintoutFolderTest, FullDiskRaises482AndLeavesNoHalfFile) {
    ASSERT_TRUE(QDir().mkpath(PrintoutsPath()));
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/full"), Draft()));
    EXPECT_ERROR(482, PrintJob(QStringLiteral("lost")));
    EXPECT_TRUE(Files().isEmpty());
    EXPECT_TRUE(DesktopCalls.Opened.isEmpty());
    PrintJob(QStringLiteral("next"));
    EXPECT_EQ(Files().size(), 1);
}

} // namespace

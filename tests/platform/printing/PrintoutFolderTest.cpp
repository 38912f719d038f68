#include "platform/printing/PrintoutFolder.h"
#include "tests/common/PrintedPages.h"
#include "tests/common/RuntimeTest.h"

#include <QCoreApplication>
#include <QRegularExpression>

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
    EXPECT_TRUE(pattern.match(Files().first()).hasMatch()) << Files().first().toStdString();
    const PrintedPages pages(QDir(PrintoutsPath()).filePath(Files().first()));
    EXPECT_EQ(pages.LineAt(1, 0), QStringLiteral("chart"));
}

TEST_F(PrintoutFolderTest, JobIsOpenedInTheViewerOfTheDesktop) {
    PrintJob(QStringLiteral("chart"));
    ASSERT_EQ(Files().size(), 1);
    EXPECT_EQ(DesktopCalls.Opened,
              QStringList(QStringLiteral("open %1/%2 0").arg(PrintoutsPath(), Files().first())));
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

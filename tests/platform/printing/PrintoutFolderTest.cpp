#include "platform/printing/PrintoutFolder.h"
#include "platform/printing/PrintNews.h"
#include "tests/common/EnvironmentVariable.h"
#include "tests/common/FileModes.h"
#include "tests/common/FullDisk.h"
#include "tests/common/OrdinaryUser.h"
#include "tests/common/PrintedPages.h"
#include "tests/common/RuntimeTest.h"

#include <QDateTime>
#include <QPageSize>
#include <QProcess>
#include <QRegularExpression>
#include <QScopeGuard>
#include <cstdlib>
#include <sys/stat.h>
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
    static mode_t ModeOf(const QString& path) {
        struct stat status = {};
        EXPECT_EQ(::lstat(QFile::encodeName(path).constData(), &status), 0);
        return status.st_mode & 0777;
    }
    /// Takes the names that a job of now and of the seconds to come would have.
    template <class Make>
    static void TakeNames(Make&& make) {
        QDir().mkpath(PrintoutsPath());
        const QDateTime now = QDateTime::currentDateTime();
        for (int second = 0; second < 60; ++second)
            make(QStringLiteral("%1/2001-03-07 %2.pdf")
                     .arg(PrintoutsPath(),
                          now.addSecs(second).toString(QStringLiteral("HH-mm-ss"))));
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

TEST_F(PrintoutFolderTest, JobIsNamedByWhatItShowsAndNumberedWhenThatIsTaken) {
    const QString name = QString::fromUtf8("Zo\u00eb - Chores - 2026-03-08");
    for (int job = 1; job <= 3; ++job) {
        printer_.SetDocName(name);
        PrintJob(QStringLiteral("job%1").arg(job));
    }
    EXPECT_EQ(Files(),
              (QStringList{name + QStringLiteral(" (2).pdf"), name + QStringLiteral(" (3).pdf"),
                           name + QStringLiteral(".pdf")}));
    EXPECT_EQ(PrintedPages(PrintoutsPath() + QStringLiteral("/%1 (2).pdf").arg(name)).LineAt(1, 0),
              QStringLiteral("job2"));
    // The name was that job's.
    PrintJob(QStringLiteral("another"));
    EXPECT_TRUE(Files().value(0).startsWith(QStringLiteral("2001-03-07 ")))
        << Files().value(0).toStdString();
}

TEST_F(PrintoutFolderTest, NamesAreLegalOnEverySystem) {
    const std::pair<const char*, const char*> names[] = {
        {"Anna - Chores - 2001-03-04", "Anna - Chores - 2001-03-04"},
        {"Zoe\u0308/Ben", "Zo\u00eb-Ben"},
        {"../../etc", "-..-etc"},
        {".hidden. ", "hidden"},
        {"a\\b:c*d?e\"f<g>h|i", "a-b-c-d-e-f-g-h-i"},
        {"tab\tand\nline", "tab-and-line"},
        {"two  blanks", "two blanks"},
        {"...", ""},
        {"", ""}};
    for (const auto& [words, name] : names)
        EXPECT_EQ(PrintoutName(QString::fromUtf8(words)), QString::fromUtf8(name)) << words;
    const QString full = PrintoutName(QString(300, QChar(0xe9)));
    EXPECT_EQ(full, QString(115, QChar(0xe9))) << "230 bytes leave room for a number";
    const QString smile = QString::fromUtf8("\U0001f600");
    EXPECT_EQ(PrintoutName(smile.repeated(100)), smile.repeated(57)) << "no letter is cut in two";
}

TEST_F(PrintoutFolderTest, WhereThePagesLieIsTold) {
    QList<PrintNews> told;
    SetPrintNews([&told](const PrintNews& news) { told += news; });
    const auto untold = qScopeGuard([] { SetPrintNews({}); });
    printer_.SetDocName(QStringLiteral("Chores"));
    PrintJob(QStringLiteral("chart"));
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told.first().File, PrintoutsPath() + QStringLiteral("/Chores.pdf"));
    EXPECT_EQ(told.first().Printer, QString());
}

TEST_F(PrintoutFolderTest, PagesOfAPrinterAreKeptWholeAndNotOpened) {
    const QByteArray pdf = "%PDF-1.4 some pages of another device\n%%EOF\n";
    const QString path = target_.Keep(pdf, QStringLiteral("Chores"));
    EXPECT_EQ(path, PrintoutsPath() + QStringLiteral("/Chores.pdf"));
    EXPECT_EQ(ReadFile(path), pdf);
    EXPECT_EQ(ModeOf(path), 0600U);
    EXPECT_TRUE(DesktopCalls.Opened.isEmpty());
    EXPECT_ERROR(482, target_.Keep("%PDF-1.4 cut off", QStringLiteral("Chores")));
    EXPECT_EQ(Files(), QStringList(QStringLiteral("Chores.pdf")));
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
    TakeNames([](const QString& path) { WriteFile(path, "taken"); });
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
    for (const auto& [country, paper] :
         {std::pair("en_US.UTF-8", QPageSize::Letter), {"en_GB.UTF-8", QPageSize::A4}}) {
        const EnvironmentVariable language("LC_ALL", country);
        const auto print = [this, size = QPageSize::sizePoints(paper)] {
            PrintJob(QStringLiteral("chart"));
            const PrintedPages pages(QDir(PrintoutsPath()).filePath(Files().value(0)));
            const bool isRight = pages.SheetPoints() == size;
            QDir(Path(QString())).removeRecursively();
            return isRight ? 0 : 1;
        };
        EXPECT_EXIT(std::_Exit(print()), testing::ExitedWithCode(0), "") << country;
    }
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

TEST_F(PrintoutFolderTest, FolderThatMayNotBeWrittenRaises482AndTheNextJobIsPrinted) {
    WriteFile(Path(QStringLiteral("Printouts/kept")), "kept");
    {
        const FileMode top(Path(QString()), 0555);
        const FileMode printouts(PrintoutsPath(), 0555);
        const OrdinaryUser user;
        EXPECT_ERROR(482, PrintJob(QStringLiteral("lost")));
    }
    EXPECT_TRUE(DesktopCalls.Opened.isEmpty());
    EXPECT_EQ(Files(), QStringList(QStringLiteral("kept")));
    PrintJob(QStringLiteral("next"));
    EXPECT_EQ(Files().size(), 2);
}

TEST_F(PrintoutFolderTest, FullDiskRaises482AndLeavesNoHalfFile) {
    for (const qint64 room : {0, 1, 500}) {
        const FullDisk disk(room);
        EXPECT_ERROR(482, PrintJob(QStringLiteral("lost"))) << room;
        EXPECT_EQ(Files(), QStringList()) << room;
    }
    EXPECT_TRUE(DesktopCalls.Opened.isEmpty());
    PrintJob(QStringLiteral("next"));
    EXPECT_EQ(Files().size(), 1);
}

TEST_F(PrintoutFolderTest, OnlyTheOwnerMayReadAPrintout) {
    const Umask open(0);
    PrintJob(QStringLiteral("passwords"));
    // As the package sets it up: what is made there is the group's, whatever the umask is.
    const QByteArray folder = QFile::encodeName(PrintoutsPath());
    QProcess lists;
    lists.start(QStringLiteral("setfacl"),
                {QStringLiteral("-d"), QStringLiteral("-m"), QStringLiteral("u::rwx,g::rwx,o::rwx"),
                 QString::fromLocal8Bit(folder)});
    ASSERT_TRUE(lists.waitForFinished() && lists.exitCode() == 0)
        << lists.readAllStandardError().toStdString();
    PrintJob(QStringLiteral("passwords"));
    // While it is painted as well.
    printer_.Print(QStringLiteral("passwords"));
    ASSERT_EQ(Files().size(), 3);
    for (const QString& file : Files())
        EXPECT_EQ(ModeOf(PrintoutsPath() + QLatin1Char('/') + file), 0600U) << file.toStdString();
}

TEST_F(PrintoutFolderTest, NoPrintoutIsWrittenThroughALink) {
    const QString target = Path(QStringLiteral("elsewhere/file"));
    WriteFile(target, "precious");
    const QString nothing = Path(QStringLiteral("elsewhere/nothing"));
    for (const QString& to : {target, nothing, Path(QStringLiteral("elsewhere"))}) {
        QDir(PrintoutsPath()).removeRecursively();
        TakeNames([&](const QString& path) { ASSERT_TRUE(QFile::link(to, path)); });
        DesktopCalls.Opened.clear();
        PrintJob(QStringLiteral("chart"));
        ASSERT_EQ(DesktopCalls.Opened.size(), 1);
        EXPECT_TRUE(DesktopCalls.Opened.first().endsWith(QLatin1String(" (2).pdf 0")))
            << DesktopCalls.Opened.first().toStdString();
        EXPECT_EQ(QDir(Path(QStringLiteral("elsewhere"))).entryList(QDir::Files | QDir::System),
                  QStringList(QStringLiteral("file")));
        EXPECT_EQ(ReadFile(target), "precious");
        // The links, and one file.
        EXPECT_EQ(QDir(PrintoutsPath())
                      .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
                      .size(),
                  61);
    }
}

TEST_F(PrintoutFolderTest, WhatAKilledJobHasLeftIsRemovedAndNothingElse) {
    const QString left = Path(QStringLiteral("Printouts/unfinished-4711.tmp"));
    const QString ofNow = Path(QStringLiteral("Printouts/unfinished-0123456789abcdef.tmp"));
    const QString another = Path(QStringLiteral("Printouts/finished.tmp"));
    for (const QString& path : {left, ofNow, another})
        WriteFile(path, "half");
    for (const QString& path : {left, another}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(-2 * 3600),
                                     QFileDevice::FileModificationTime));
    }
    PrintJob(QStringLiteral("next"));
    EXPECT_FALSE(QFile::exists(left));
    EXPECT_TRUE(QFile::exists(ofNow)) << "another copy of the program may be writing it";
    EXPECT_TRUE(QFile::exists(another));
    EXPECT_EQ(Files().size(), 3);
}

} // namespace

#include "tests/bench/BenchTest.h"
#include "tests/bench/PaintWatch.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QDir>
#include <QFile>
#include <ctime>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// One start of a program.
struct Start {
    double ToPaint = 0;    ///< milliseconds from its making to the awaited paint
    double PeakMemory = 0; ///< megabytes, up to then
};

double Now() {
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

enum class Until { FormPainted, AccountsPainted };

Start StartOf(const char* program, const QString& argument, Until until) {
    int ends[2];
    EXPECT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    QByteArray path(program);
    QByteArray folder = QFile::encodeName(argument);
    QByteArray second("accounts");
    char* arguments[] = {path.data(), folder.data(),
                         until == Until::AccountsPainted ? second.data() : nullptr, nullptr};
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    pid_t process = -1;
    const double begin = Now();
    EXPECT_EQ(::posix_spawn(&process, program, &actions, nullptr, arguments, environ), 0);
    ::posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);
    Painted painted;
    EXPECT_EQ(::read(ends[0], &painted, sizeof painted), ssize_t{sizeof painted}) << program;
    ::close(ends[0]);
    int status = -1;
    ::waitpid(process, &status, 0);
    EXPECT_EQ(status, 0) << program;
    return {static_cast<double>(painted.Moment) / 1e6 - begin,
            static_cast<double>(painted.PeakMemory) / 1024};
}

/// A bench of starts on the test's program folder.
class StartBench : public BenchTest {
protected:
    void AddAccount() {
        MakeAccount(QStringLiteral("Anna"), QStringLiteral("pw"), QStringLiteral("Student"));
        ResetSession();
    }

    static bool CopyRoom(const QString& room, const QString& to) {
        const QDir from(Path(room));
        bool isCopied = QDir().mkpath(to + QLatin1Char('/') + room);
        for (const QString& file : from.entryList(QDir::Files))
            isCopied = isCopied && QFile::copy(from.filePath(file),
                                               QStringLiteral("%1/%2/%3").arg(to, room, file));
        return isCopied;
    }

    BenchTest::Medians Compare(double Start::*figure, Until until = Until::FormPainted) {
        return Measure([&] { return StartOf(START_WINDOW, Path(QString()), until).*figure; },
                       [&] { return StartOf(FLOOR_WINDOW, Path(QString()), until).*figure; });
    }

    void ExpectQuickAndSmallStart() {
        ExpectRatio("start to the accounts painted", 2.2,
                    [&] { return Compare(&Start::ToPaint, Until::AccountsPainted); });
        ExpectRatio(
            "peak memory of a start", 1.5,
            [&] { return Compare(&Start::PeakMemory, Until::AccountsPainted); }, "MB");
    }

    /// Nine more tables for each one there is.
    static void MultiplyTables() {
        SQLite::Database database(PresentFile().toStdString(), SQLite::OPEN_READWRITE);
        database.exec("BEGIN");
        for (int copy = 1; copy < 10; ++copy) {
            const std::string name = " || ' no " + std::to_string(copy) + "'";
            // Identities rise with the names' order, tenfold apart.
            database.exec(
                "INSERT INTO Catalogue(Name, FoldedName, Shape)"
                " SELECT Name" +
                name + ", FoldedName" + name +
                ", Shape FROM Catalogue WHERE Name <> 'USERS' AND Name NOT LIKE '% no _'");
        }
        database.exec("INSERT INTO Rows2 SELECT (fresh.Id << 32) + (Key & 0xffffffff),"
                      " Instructions, DayOfWeek, AdultResponsable, Difficuly, Points, Completed,"
                      " FirstDate, LastDate, UserName, AutoCreate FROM Catalogue AS fresh"
                      " JOIN Catalogue AS old ON fresh.Name LIKE '% no _' AND"
                      " old.FoldedName = substr(fresh.FoldedName, 1, length(fresh.FoldedName) - 5)"
                      " JOIN Rows2 ON Key BETWEEN old.Id << 32 AND (old.Id << 32) + 7");
        database.exec("COMMIT");
    }
};

TEST_F(StartBench, StartToTheLogInForm) {
    AddAccount();
    ExpectQuickAndSmallStart();
}

// Years of use change nothing: the start reads the accounts and no other table.
TEST_F(StartBench, StartWithALargeDatabaseBesideANearlyEmptyOne) {
    AddAccount();
    const QString small = Path(QStringLiteral("Small"));
    for (const char* room : {"Database", "Settings", "Jobs", "UsersPictures"})
        ASSERT_TRUE(CopyRoom(QLatin1String(room), small));
    const auto expect = [&](const char* what) {
        ExpectRatio(what, 1.05, [&] {
            return Measure(
                [&] {
                    return StartOf(START_WINDOW, Path(QString()), Until::AccountsPainted).ToPaint;
                },
                [&] { return StartOf(START_WINDOW, small, Until::AccountsPainted).ToPaint; });
        });
    };
    OpenLargeDatabase();
    ResetSession();
    expect("start with 6,000 tables, to nearly none");
    MultiplyTables();
    expect("start with 60,000 tables, to nearly none");
}

TEST_F(StartBench, StartToTheLogInFormWithALargeDatabase) {
    OpenLargeDatabase();
    ResetSession();
    ExpectQuickAndSmallStart();
}

} // namespace

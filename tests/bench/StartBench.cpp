#include "tests/bench/BenchTest.h"
#include "tests/bench/PaintWatch.h"

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

    BenchTest::Medians Compare(double Start::*figure, Until until = Until::FormPainted) {
        return Measure([&] { return StartOf(START_WINDOW, Path(QString()), until).*figure; },
                       [&] { return StartOf(FLOOR_WINDOW, Path(QString()), until).*figure; });
    }

    void ExpectQuickAndSmallStart() {
        ExpectRatio("start to the log-in form painted", 3,
                    [&] { return Compare(&Start::ToPaint); });
        ExpectRatio("start to the accounts painted in it", 4,
                    [&] { return Compare(&Start::ToPaint, Until::AccountsPainted); });
        ExpectRatio(
            "peak memory of a start", 2,
            [&] { return Compare(&Start::PeakMemory, Until::AccountsPainted); }, "MB");
    }
};

TEST_F(StartBench, StartToTheLogInForm) {
    AddAccount();
    ExpectQuickAndSmallStart();
}

// The engine reads the declarations of all tables before its first statement. With a table a chart
// and a week that alone takes longer than the empty window.
TEST_F(StartBench, StartToTheLogInFormWithALargeDatabase) {
    OpenLargeDatabase();
    ResetSession();
    ExpectQuickAndSmallStart();
}

} // namespace

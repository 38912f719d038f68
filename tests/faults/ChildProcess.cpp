#include "tests/faults/ChildProcess.h"

#include <QByteArrayList>
#include <QCoreApplication>
#include <QFile>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

/// As the system wants them: pointers to the texts, and nothing at the end.
std::vector<char*> PointersTo(QByteArrayList& texts) {
    std::vector<char*> pointers;
    for (QByteArray& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

} // namespace

ChildProcess::ChildProcess(const QStringList& arguments, const QStringList& environment) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    QByteArrayList texts{QFile::encodeName(QCoreApplication::applicationFilePath())};
    for (const QString& argument : arguments)
        texts += QFile::encodeName(argument);
    const std::vector<char*> argumentPointers = PointersTo(texts);
    QByteArrayList variables;
    for (const QString& variable : environment)
        variables += QFile::encodeName(variable);
    for (char** variable = environ; *variable != nullptr; ++variable)
        variables += *variable;
    const std::vector<char*> variablePointers = PointersTo(variables);

    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    const int failure = ::posix_spawn(&process_, argumentPointers.front(), &actions, nullptr,
                                      argumentPointers.data(), variablePointers.data());
    ::posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);
    reports_ = ends[0];
    if (failure != 0) {
        process_ = -1;
        ::close(reports_);
        throw std::runtime_error("no child process");
    }
}

ChildProcess::~ChildProcess() {
    Kill();
    ::close(reports_);
}

std::optional<qint32> ChildProcess::NextReport() {
    qint32 number = 0;
    // Numbers are written whole, and a pipe hands such small pieces on whole.
    return ::read(reports_, &number, sizeof number) == sizeof number ? std::optional(number)
                                                                     : std::nullopt;
}

bool ChildProcess::Kill() {
    if (process_ < 0)
        return false;
    ::kill(process_, SIGKILL);
    int status = 0;
    ::waitpid(process_, &status, 0);
    process_ = -1;
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

int ChildProcess::WaitForExit() {
    while (NextReport())
        continue;
    int status = 0;
    ::waitpid(process_, &status, 0);
    process_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void ReportToParent(qint32 number) {
    if (::write(STDOUT_FILENO, &number, sizeof number) != sizeof number)
        std::_Exit(4);
}

void EndWithParent() {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
}

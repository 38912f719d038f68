#include "tests/faults/CallKill.h"

#include <csignal>
#include <stdexcept>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

bool KilledAtCall(int calls, const std::function<void()>& work) {
    const pid_t child = ::fork();
    if (child < 0)
        throw std::runtime_error("no child process");
    if (child == 0) {
        ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        ::raise(SIGSTOP);
        int exitCode = 0;
        try {
            work();
        } catch (...) {
            exitCode = 1;
        }
        ::_exit(exitCode);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    for (int call = 0; call < calls && WIFSTOPPED(status); ++call) {
        ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        ::waitpid(child, &status, 0);
    }
    if (WIFSTOPPED(status)) {
        ::kill(child, SIGKILL);
        ::waitpid(child, &status, 0);
    }
    if (WIFEXITED(status) && WEXITSTATUS(status) != 0)
        throw std::runtime_error("the work failed by itself");
    return WIFSIGNALED(status);
}

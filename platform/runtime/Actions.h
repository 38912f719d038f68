#pragma once

#include "platform/runtime/RuntimeError.h"

#include <functional>
#include <optional>
#include <vector>

/// One user action is one durable commit. Event handlers run inside RunAction; the outermost end
/// of an action, and every moment at which the program waits for a person or runs another action,
/// commits what has been written so far. A fault of the database, or an exception that is no
/// RuntimeError, undoes what has not been committed, and the action writes nothing more, however
/// its handler goes on; the user is told once.

/// What commits: set once by the owner of the database, empty while there is none.
void SetCommitHook(std::function<void()> commit);

/// Commits what the action under way has written. Raises what the commit raises, and the fault
/// that has undone the action.
void CommitAction();

/// What the database was at when a fault came.
enum class FaultAt {
    Reading, ///< The action can go on without what was not read, but must not write any more.
    Writing  ///< What the action had not committed is undone.
};

/// Told by the database: the action under way has met a fault. Outside of actions it is nobody's.
void NoteFault(const RuntimeError& fault, FaultAt at);

/// Asked by the database before it reads or writes: raises the fault that the action under way has
/// met, if it forbids that.
void RefuseAfterFault(FaultAt at);

/// Runs a step once what the action under way has written is committed, at once outside of
/// actions; not at all if it is undone. Errors of the step are dropped.
void AfterCommit(std::function<void()> step);

/// Runs a step before the user is told that a fault has undone what the action under way has
/// written; not at all once it is committed. Errors of the step are dropped.
void IfUndone(std::function<void()> step);

namespace Detail {
struct Fault {
    RuntimeError Error;
    FaultAt At;
    bool IsTold = false;
};

/// The action under way; while there is none its depth is 0.
struct Action {
    int Depth = 0;
    std::optional<struct Fault> Fault{};
    std::vector<std::function<void()>> AfterCommit{};
    std::vector<std::function<void()>> IfUndone{};
};
} // namespace Detail

/// Stands for a wait inside an action (a message box, a dialog): commits, and lets the
/// handlers that run during the wait be actions of their own. Raises what the commit raises.
class WaitScope {
public:
    WaitScope();
    ~WaitScope();
    WaitScope(const WaitScope&) = delete;
    WaitScope& operator=(const WaitScope&) = delete;

private:
    Detail::Action outer_;
};

/// While the user is told of the fault that the action under way has met: it stands in nobody's
/// way, and is told by nobody else afterwards.
class FaultTold {
public:
    FaultTold();
    ~FaultTold();
    FaultTold(const FaultTold&) = delete;
    FaultTold& operator=(const FaultTold&) = delete;

private:
    std::optional<Detail::Fault> fault_;
};

/// Lets pending events run. The action under way stays whole unless another action runs among
/// them: then what it has written so far is committed before that one.
void DoEvents();

/// Ends the process as soon as the event loops unwind; commits first. Nothing of the program's
/// own runs after it: a caller returns at once.
void EndProcess(int exitCode = 0);

/// True once the process has been told to end: a loop that waits for the user must stop then.
bool IsProcessEnding();

/// Puts something else in the place of ending the process; for tests. Empty restores.
void SetEndProcess(std::function<void(int)> end);

namespace Detail {
void EnterAction();
void LeaveAction();
void ReportAtEdge(const RuntimeError& error);
} // namespace Detail

/// Runs an event handler's body. No exception leaves it: a RuntimeError is reported to the user,
/// the operation ends there, and what it had written stands unless it was a fault of the database
/// or another exception.
template <class Body>
void RunAction(Body&& body) {
    Detail::EnterAction();
    try {
        body();
    } catch (const RuntimeError& error) {
        Detail::ReportAtEdge(error);
    } catch (const std::exception& error) {
        Detail::ReportAtEdge(
            RuntimeError(ErrorNumber::EngineFault, QString::fromUtf8(error.what())));
    }
    Detail::LeaveAction();
}

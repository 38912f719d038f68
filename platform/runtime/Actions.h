#pragma once

#include "platform/runtime/RuntimeError.h"

#include <functional>

/// One user action is one durable commit. Event handlers run inside RunAction; the outermost end
/// of an action, and every moment at which the program waits for a person or runs another action,
/// commits what has been written so far.

/// What commits: set once by the owner of the database, empty while there is none.
void SetCommitHook(std::function<void()> commit);

/// Commits what the action under way has written. Raises what the commit raises.
void CommitAction();

/// Stands for a wait inside an action (a message box, a dialog): commits, and lets the
/// handlers that run during the wait be actions of their own. Raises what the commit raises.
class WaitScope {
public:
    WaitScope();
    ~WaitScope();
    WaitScope(const WaitScope&) = delete;
    WaitScope& operator=(const WaitScope&) = delete;

private:
    int outerDepth_;
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
/// the operation ends there and what it had written stands.
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

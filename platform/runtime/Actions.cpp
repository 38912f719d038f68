#include "platform/runtime/Actions.h"

#include "platform/runtime/Prompts.h"

#include <QCoreApplication>
#include <utility>

namespace {

struct ActionState {
    int depth = 0;
    /// True while an action lets events run and none of them has begun an action yet.
    bool yielding = false;
    bool ending = false;
    std::function<void()> commit;
    std::function<void(int)> end;
};

ActionState& State() {
    static ActionState state;
    return state;
}

} // namespace

void SetCommitHook(std::function<void()> commit) {
    State().commit = std::move(commit);
}

void CommitAction() {
    if (State().commit)
        State().commit();
}

WaitScope::WaitScope() : outerDepth_(State().depth) {
    CommitAction();
    State().depth = 0;
}

WaitScope::~WaitScope() {
    State().depth = outerDepth_;
}

void DoEvents() {
    const int outerDepth = std::exchange(State().depth, 0);
    State().yielding = outerDepth > 0;
    QCoreApplication::processEvents();
    State().yielding = false;
    State().depth = outerDepth;
}

void EndProcess(int exitCode) {
    try {
        CommitAction();
    } catch (const RuntimeError& error) {
        ShowRuntimeError(error);
    }
    State().ending = true;
    if (State().end)
        State().end(exitCode);
    else
        QCoreApplication::exit(exitCode);
}

bool IsProcessEnding() {
    return State().ending;
}

void SetEndProcess(std::function<void(int)> end) {
    State().end = std::move(end);
    State().ending = false;
}

void Detail::EnterAction() {
    if (State().depth++ > 0 || !std::exchange(State().yielding, false))
        return;
    try {
        CommitAction();
    } catch (const RuntimeError& error) {
        ReportAtEdge(error);
    }
}

void Detail::LeaveAction() {
    if (--State().depth > 0)
        return;
    try {
        CommitAction();
    } catch (const RuntimeError& error) {
        ReportAtEdge(error);
    }
}

void Detail::ReportAtEdge(const RuntimeError& error) {
    ShowRuntimeError(error);
    if (error.EndsRun())
        EndProcess(1);
}

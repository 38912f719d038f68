#include "platform/runtime/Actions.h"

#include "platform/runtime/Prompts.h"

#include <QCoreApplication>
#include <utility>

namespace {

struct ActionState {
    int depth = 0;
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
    const WaitScope wait;
    QCoreApplication::processEvents();
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
    ++State().depth;
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

#include "platform/runtime/Actions.h"

#include "platform/runtime/Prompts.h"

#include <QCoreApplication>
#include <exception>
#include <new>
#include <utility>

namespace {

using Steps = std::vector<std::function<void()>>;

struct ActionsState {
    Detail::Action underWay;
    /// The action that lets events run, while none of them has begun an action yet.
    Detail::Action* yielding = nullptr;
    bool ending = false;
    std::function<void()> commit;
    std::function<void(int)> end;
};

ActionsState& State() {
    static ActionsState state;
    return state;
}

std::optional<Detail::Fault>& CurrentFault() {
    return State().underWay.Fault;
}

void Run(const Steps& steps) {
    for (const std::function<void()>& step : steps)
        WithErrorsSkipped(step);
}

/// The error being handled, where it is none of the program's own: memory that has run out, or what
/// nobody has thought of.
std::optional<RuntimeError> UnforeseenError() {
    constexpr int outOfMemory = 7;
    try {
        std::rethrow_exception(std::current_exception());
    } catch (const RuntimeError&) {
        return {};
    } catch (const std::bad_alloc&) {
        return RuntimeError(outOfMemory, QStringLiteral("Out of memory"));
    } catch (const std::exception& error) {
        return RuntimeError(ErrorNumber::EngineFault, QString::fromUtf8(error.what()));
    }
}

/// The end of an action, or of its part before another one.
void CommitOrReport() {
    try {
        CommitAction();
    } catch (const RuntimeError& error) {
        Detail::ReportAtEdge(error);
    }
}

} // namespace

void SetCommitHook(std::function<void()> commit) {
    State().commit = std::move(commit);
}

void CommitAction() {
    Detail::Action& action = State().underWay;
    try {
        RefuseAfterFault(FaultAt::Reading);
        if (State().commit)
            State().commit();
    } catch (const RuntimeError& fault) {
        NoteFault(fault, FaultAt::Writing);
        action.AfterCommit.clear();
        Run(std::exchange(action.IfUndone, {}));
        throw;
    }
    action.IfUndone.clear();
    Run(std::exchange(action.AfterCommit, {}));
}

void NoteFault(const RuntimeError& fault, FaultAt at) {
    std::optional<Detail::Fault>& met = CurrentFault();
    // The first one counts, unless it has spared what was written and this one has not.
    if (State().underWay.Depth > 0 && (!met || met->At < at))
        met = Detail::Fault{fault, at};
}

void RefuseAfterFault(FaultAt at) {
    std::optional<Detail::Fault>& met = CurrentFault();
    if (!met || (met->At == FaultAt::Reading && at == FaultAt::Reading))
        return;
    // What is not written now is missing: from here on the user has to hear of it.
    met->At = FaultAt::Writing;
    throw RuntimeError(met->Error);
}

void AfterCommit(std::function<void()> step) {
    if (State().underWay.Depth > 0)
        State().underWay.AfterCommit.push_back(std::move(step));
    else
        Run({std::move(step)});
}

void IfUndone(std::function<void()> step) {
    if (State().underWay.Depth > 0)
        State().underWay.IfUndone.push_back(std::move(step));
}

WaitScope::WaitScope() {
    CommitAction();
    outer_ = std::exchange(State().underWay, {});
}

WaitScope::~WaitScope() {
    State().underWay = std::move(outer_);
}

FaultTold::FaultTold() : fault_(std::exchange(CurrentFault(), {})) {
    if (fault_)
        fault_->IsTold = true;
}

FaultTold::~FaultTold() {
    CurrentFault() = fault_;
}

void DoEvents() {
    Detail::Action outer = std::exchange(State().underWay, {});
    State().yielding = outer.Depth > 0 ? &outer : nullptr;
    QCoreApplication::processEvents();
    State().yielding = nullptr;
    State().underWay = std::move(outer);
}

void EndProcess(int exitCode) {
    CommitOrReport();
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
    Action& action = State().underWay;
    if (action.Depth == 0)
        if (Action* outer = std::exchange(State().yielding, nullptr)) {
            std::swap(action, *outer);
            CommitOrReport();
            std::swap(action, *outer);
        }
    ++action.Depth;
}

void Detail::LeaveAction() {
    Action& action = State().underWay;
    if (action.Depth > 1) {
        --action.Depth;
        return;
    }
    CommitOrReport();
    action = {};
}

void Detail::ReportAtEdge(const RuntimeError& met) {
    const std::optional<RuntimeError> unforeseen = UnforeseenError();
    // It may have come in the middle of anything.
    if (unforeseen)
        NoteFault(*unforeseen, FaultAt::Writing);
    const RuntimeError& error = unforeseen ? *unforeseen : met;
    std::optional<Fault>& fault = CurrentFault();
    const bool isFault = fault && fault->Error.Text() == error.Text();
    // The handler has ended by it: what it had begun is undone, on the screen as well.
    if (isFault)
        fault->At = FaultAt::Writing;
    if (!fault || !fault->IsTold) {
        ShowRuntimeError(error);
    } else if (!isFault) {
        const FaultTold told;
        ShowRuntimeError(error);
    }
    if (isFault)
        fault->IsTold = true;
    if (error.EndsRun())
        EndProcess(1);
}

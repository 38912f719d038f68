#include "platform/runtime/Desktop.h"

#include "platform/runtime/Actions.h"

namespace {

Desktop*& ActiveDesktop() {
    static Desktop* desktop = nullptr;
    return desktop;
}

} // namespace

void SetDesktop(Desktop* desktop) {
    ActiveDesktop() = desktop;
}

Desktop& CurrentDesktop() {
    if (ActiveDesktop() == nullptr)
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    return *ActiveDesktop();
}

std::optional<QString> AskForFile(const QString& initialFolder) {
    const WaitScope wait;
    return CurrentDesktop().OpenFile(initialFolder);
}

std::optional<qint32> AskForColor(qint32 initial) {
    const WaitScope wait;
    return CurrentDesktop().ChooseColor(initial);
}

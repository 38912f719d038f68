#include "platform/runtime/Prompts.h"

#include "platform/runtime/Actions.h"

#include <QDebug>

namespace {

Prompts*& ActivePrompts() {
    static Prompts* prompts = nullptr;
    return prompts;
}

} // namespace

void SetPrompts(Prompts* prompts) {
    ActivePrompts() = prompts;
}

PromptAnswer ShowPrompt(const Prompt& prompt) {
    if (ActivePrompts() == nullptr)
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    const WaitScope wait;
    return ActivePrompts()->Show(prompt);
}

void Tell(const QString& text, PromptIcon icon) {
    Prompt prompt;
    prompt.Text = text;
    prompt.Icon = icon;
    ShowPrompt(prompt);
}

namespace {

bool AskYesNo(const QString& text, bool beginsOnNo) {
    Prompt prompt;
    prompt.Text = text;
    prompt.Buttons = PromptButtons::YesNo;
    prompt.BeginsOnNo = beginsOnNo;
    return ShowPrompt(prompt) == PromptAnswer::Yes;
}

} // namespace

bool Ask(const QString& text) {
    return AskYesNo(text, false);
}

bool AskBeforeLoss(const QString& text) {
    return AskYesNo(text, true);
}

void ShowRuntimeError(const RuntimeError& error) noexcept {
    try {
        Prompt prompt;
        prompt.Text = error.Report();
        prompt.Icon = PromptIcon::Critical;
        try {
            ShowPrompt(prompt);
        } catch (const RuntimeError& failure) {
            // A fault has undone what the failed operation had written: this error itself, one
            // that was skipped on the way to it, or the commit before the box.
            if (failure.Text() != error.Text())
                prompt.Text += QLatin1String("\n\n") + failure.Report();
            const FaultTold told;
            ShowPrompt(prompt);
        }
    } catch (const std::exception& failure) {
        // There is nothing to show it with: the console is the last place left.
        qCritical() << error.what() << failure.what();
    }
}

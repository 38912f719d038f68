#pragma once

#include "platform/runtime/RuntimeError.h"

#include <QCoreApplication>
#include <QString>

enum class PromptButtons { Ok, YesNo };
enum class PromptIcon { None, Exclamation, Critical };
enum class PromptAnswer { Ok, Yes, No };

/// A question or message to the user.
struct Prompt {
    QString Text;
    QString Title = QCoreApplication::applicationName();
    PromptButtons Buttons = PromptButtons::Ok;
    PromptIcon Icon = PromptIcon::None;
    /// True where the forms behind the box stay usable while it stands.
    bool LeavesFormsReachable = false;
    /// True where the keyboard begins on No.
    bool BeginsOnNo = false;
};

/// Message boxes. The windows provide the real ones, tests a scripted list of answers.
class Prompts {
public:
    virtual ~Prompts() = default;
    /// Shows the box and waits for its answer. A box that is closed in another way answers Ok
    /// where that is its only button, and No otherwise.
    virtual PromptAnswer Show(const Prompt& prompt) = 0;
};

/// Sets what shows message boxes; must outlive its use. Null is an error at the next prompt.
void SetPrompts(Prompts* prompts);

/// Commits the action under way, shows the box and waits.
PromptAnswer ShowPrompt(const Prompt& prompt);

/// A message with an Ok button.
void Tell(const QString& text, PromptIcon icon = PromptIcon::None);

/// A question with Yes and No; true for Yes.
bool Ask(const QString& text);

/// The same where a Yes cannot be taken back: the keyboard begins on No.
bool AskBeforeLoss(const QString& text);

/// The report of a run-time error at the edge of a handler. Never raises.
void ShowRuntimeError(const RuntimeError& error) noexcept;

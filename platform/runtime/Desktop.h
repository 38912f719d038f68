#pragma once

#include <QString>
#include <QtGlobal>
#include <optional>

/// What the program asks of the desktop around it. The windows provide the real one, tests a
/// scripted one.
class Desktop {
public:
    virtual ~Desktop() = default;

    /// The open-file dialog. `initialFolder` "" starts where the dialog was last. Nothing if
    /// cancelled.
    virtual std::optional<QString> OpenFile(const QString& initialFolder) = 0;

    /// The colour dialog, 32-bit colour values with red in the low byte. Nothing if cancelled.
    virtual std::optional<qint32> ChooseColor(qint32 initial) = 0;

    /// Opens a web page or a file with the program that the desktop has for it.
    /// `showState`: 0 as the caller leaves it, 3 maximised.
    virtual void ShellExecute(const QString& verb, const QString& target, int showState) = 0;

    /// Shows the help file. `command` 9 is "force file".
    virtual void ShowHelp(const QString& helpFile, int command) = 0;

    /// Starts to play a wave file and returns at once; a new sound cuts off the one playing.
    /// A file that is missing or no whole sound stays silent. `flags`: 1 asynchronous, 0x20000 the
    /// name is a file's.
    virtual void PlaySoundA(const QString& waveFile, quint32 flags) = 0;

    /// True if the person has asked the desktop for less motion: nothing then moves on its own.
    virtual bool WantsLessMotion() = 0;
};

/// Sets the desktop; must outlive its use.
void SetDesktop(Desktop* desktop);

/// The desktop in use. Raises 91 if there is none.
Desktop& CurrentDesktop();

/// The open-file and colour dialogs behind a commit of the action under way.
std::optional<QString> AskForFile(const QString& initialFolder);
std::optional<qint32> AskForColor(qint32 initial);

#pragma once

#include <QImage>
#include <QString>

/// The forms that the settings show in, made where they do not exist yet.
class SettingsForms {
public:
    virtual ~SettingsForms() = default;

    /// Selects the school's or the home's version in the log-in form.
    virtual void SelectVersion(bool school) = 0;
    /// Those of the main window.
    virtual qint32 BackColor() const = 0;
    virtual void SetBackColor(qint32 color) = 0;
    virtual void SetPicture(const QImage& picture) = 0;
    virtual void SetSoundMark(bool on) = 0;
};

/// Set by whoever registers the forms.
void SetSettingsForms(SettingsForms* forms);

/// The settings file Settings/Settings.txt, shared by all accounts of the installation: five
/// lines, always rewritten as a whole. Line 3 is the colour that the main window has when the
/// file is written, not BackgroundColor.

/// Reads the file into the session's variables and applies it to the log-in form and the main
/// window, which come into being, hidden, where they do not exist yet. A file that is missing,
/// short or malformed, or a background picture that cannot be loaded, ends the run. A picture of a
/// folder "Backgrounds" that is not there any more is taken from the program folder's own, if that
/// has one of the name; BackgroundPicture keeps the path that was read.
///
/// Selecting the school version in a log-in form just loaded runs that option's handler, and so
/// WriteSettings, before the main window takes the colour read.
void ReadSettings();

/// Whether all users of the machine who share the settings may read the picture: for whoever may
/// not, a start would end at it.
bool IsSeenByAllUsers(const QString& picture);

/// Writes the file from the present state. Raises 76 if its folder is missing, 75 if it cannot be
/// written.
void WriteSettings();

#pragma once

#include "authoring/ChartEditor.h"
#include "shell/LogIn.h"
#include "shell/LoginWindow.h"
#include "shell/MainForm.h"
#include "tests/common/FormTest.h"
#include "widgets/HeadedList.h"

#include <QColor>

/// A fixture for the windows of the shell, with the settings file within reach.
class ShellTest : public FormTest {
protected:
    /// Writes the settings file with one line for each text.
    static void PutSettings(const QStringList& lines);
    /// A settings file of the home or the school version with a background colour.
    static void PutSettings(bool school, qint32 color);
    /// Lets the settings file be read as before and not be written, whatever rights the user has.
    static void MakeSettingsReadOnly();
    /// The settings file as it stands, and its lines without their line ends.
    static QByteArray SettingsBytes();
    static QStringList SettingsLines();

    /// Waits until a form shown is in front and has been activated, however slow the machine is.
    template <class FormClass>
    static FormClass& InFront(FormClass& form) {
        WaitForActive(form);
        return form;
    }
    static void WaitForActive(QWidget& form);

    /// Shows the log-in form and waits for its activation.
    static LogIn& ShowLogIn();
    static HeadedList& Teachers();
    static HeadedList& Students();
    static QStringList Names(const HeadedList& list);

    /// From the log-in form to the one for a new account, and back without one.
    static void OpenNewUser();
    static void BackFromNewUser();

    /// The password form, opened for an account by the log-in form.
    static LoginWindow& OpenLoginWindow(HeadedList& list, int row);
    /// Goes through both log-in windows into a session.
    static MainForm& LogInAs(HeadedList& list, int row, const QString& password);

    static LoginWindow& PasswordForm();
    static MainForm& MainWindow();
    static bool IsShown(const QString& form);

    /// Triggers a menu entry or a toolbar button as a click on it does, then Settle.
    static void Choose(QLatin1String menuEntry);
    static void Push(QLatin1String toolbarKey);

    /// A chart editor for a new chart, opened as an adult opens it.
    static ChartEditor& OpenEditor(const QString& chart);

    /// The colour in the middle of a label's picture.
    static QColor ColorOfLabel(const QWidget& form, const QString& name);
};

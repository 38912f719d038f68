#pragma once

#include "platform/forms/DefaultForms.h"
#include "tests/common/TestWorld.h"
#include "tests/common/WindowsAtRest.h"

#include <QWidget>
#include <stdexcept>

/// A fixture for windows: all forms of the program registered, none shown, the activation tracker
/// at work. Needs a display with a window manager.
class FormTest : public ProgramTest {
protected:
    FormTest();
    ~FormTest() override;

    /// Lets events run until the windows have come to rest and activations have been delivered,
    /// however slow the window manager is. What a hand did before is committed then.
    static void Settle(Keyboard keyboard = Keyboard::InTheProgram);

    /// Adds an account with a picture straight to the store. State: "Teacher" or "Student".
    static void MakeAccount(const QString& name, const QString& password, const QString& state);

    /// Opens a session without the log-in windows: sets the session's account and shows MainForm.
    static void StartSession(const QString& user, const QString& state);

    /// The control of that object name on a form. Fails the test hard if there is none.
    template <class Control = QWidget>
    static Control& Find(const QWidget& form, const QString& name) {
        auto* control = form.findChild<Control*>(name);
        if (control == nullptr)
            throw std::runtime_error("no control " + name.toStdString());
        return *control;
    }

    /// A click in the middle of a control by the mouse, then Settle.
    static void Click(QWidget& control);
    static void DoubleClick(QWidget& control);
    /// Makes a window so large, then Settle.
    static void SizeWindow(QWidget& window, const QSize& size);
    /// Makes the main window, no longer maximised, so large, then Settle.
    static void SizeMainWindow(const QSize& size);
    /// Lays the mouse on the middle of a control, then Settle.
    static void MouseTo(const QWidget& control);
    /// A click or double click in the middle of a list's row.
    static void ClickRow(QWidget& list, int row);
    static void DoubleClickRow(QWidget& list, int row);
    /// A click or a double click below the last row of a list.
    static void ClickEmptyPart(QWidget& list);
    static void DoubleClickEmptyPart(QWidget& list);
    /// Replaces a text box's or combo box's text by typed keys.
    static void Type(QWidget& control, const QString& text);
    /// Types keys where the text box's cursor stands.
    static void TypeOn(QWidget& control, const QString& text);
    /// A key press and release on a control; what the key did is committed then.
    static void Press(QWidget& control, Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    /// The same in a window, which hands it to its control that has the focus.
    static void KeyToWindow(const QWidget& window, Qt::Key key,
                            Qt::KeyboardModifiers modifiers = {});
    /// The same on the control that has the focus. Fails the test hard if none has.
    static void KeyToFocus(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    /// The control that has the focus. Fails the test hard if none has.
    static QWidget& Focused();

    /// What a tool tip shows, as far as it is text.
    static QString ShownTip(const QString& toolTip);
    /// The title that the window system shows for a form's window.
    static QString ShownTitle(const QWidget& form);

    /// Compares what is seen of a window with its picture of that name.
    static void LookAt(QWidget& seen, const QString& name);
};

#pragma once

#include "platform/forms/Form.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

/// Tells forms that they have come to the front.
///
/// Window systems report focus in bursts, with false reports among them: a message box or another
/// program takes it and gives it back, a window that closes hands it through several others. So
/// reports only schedule a look at the windows once all pending events have been handled, and a
/// form is activated when the form in front then differs from the one before. Message boxes,
/// dialogs, menus, help and other programs are no forms and change nothing.
class ActivationTracker : public QObject {
    Q_OBJECT

public:
    static ActivationTracker& Instance();

    /// Asks for a look when the event queue is empty.
    void Schedule();

    /// Forgets what was in front; for the end of a test.
    void Reset();

private:
    ActivationTracker();
    void Look();
    static void Activate(Form& form);

    QTimer timer_;
    QPointer<QWidget> topLevel_;
    QPointer<QWidget> front_;
};

#pragma once

#include "platform/forms/Form.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWindow>

class QMouseEvent;

/// Tells forms that they have come to the front.
///
/// Window systems report focus in bursts, with false reports among them: a message box or another
/// program takes it and gives it back, a window that closes hands it through several others. So
/// reports only schedule a look at the windows once all pending events have been handled, and a
/// form is activated when the form in front then differs from the one before. Message boxes,
/// dialogs, menus, help and other programs are no forms and change nothing.
///
/// A press of the mouse does not wait for that look: the form that it goes to comes to the front,
/// and has been activated, before the press is delivered to what then stands there.
class ActivationTracker : public QObject {
    Q_OBJECT

public:
    static ActivationTracker& Instance();

    /// Asks for a look when the event queue is empty.
    void Schedule();

    /// Whether the last press has brought its form to the front, or came so soon after the form did
    /// that who pressed cannot have seen what the activation has left there. A double click is one
    /// press in this.
    bool IsPressOnNewFront() const { return pressOnNewFront_; }

    /// In milliseconds, how soon nobody sees a page and presses on it. For tests on a machine that
    /// may be slower than that.
    static void SetReactionTime(int milliseconds);
    static constexpr int UsualReactionTime = 200; // milliseconds

    /// Forgets what was in front; for the end of a run.
    void Reset();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    ActivationTracker();
    void NoteFocus(QWindow* now);
    bool HasFocusGone() const;
    void Look();
    void LookForLostFocus();
    QWidget* ActiveTopLevel();
    bool CompleteActivation(QWidget& topLevel);
    bool ActivateFront(QWidget& topLevel);
    bool HasJustActivated() const;
    void TakeAsUnseen(const QMouseEvent& press);
    bool TakeAsInFront(const Form& form);
    bool TakePress(QWindow& window, const QMouseEvent& press);
    static void Activate(Form& form);

    static int reactionTime_; // milliseconds
    QTimer timer_;
    QTimer afterHide_;
    QPointer<QWidget> topLevel_;
    QPointer<QWidget> front_;
    /// The active window that a press has left for another. The window system may go on naming it
    /// for a while.
    QPointer<QWidget> left_;
    /// The window of ours that had the focus last.
    QPointer<QWindow> focus_;
    /// Another program has taken the focus, and may keep it.
    bool focusIsElsewhere_ = false;
    QElapsedTimer sinceActivation_;
    bool pressOnNewFront_ = false;
    /// In milliseconds of the events' clock.
    quint64 doubleClickEnds_ = 0;
};

#include "platform/forms/ActivationTracker.h"

#include "platform/forms/FormFrame.h"
#include "platform/forms/MainWindowArea.h"
#include "platform/runtime/Actions.h"

#include <QApplication>
#include <QMdiArea>
#include <QMouseEvent>
#include <QStyleHints>

namespace {

/// In milliseconds. So long a window manager may take to hand the focus on by itself.
constexpr int UsualHandingOn = 150;

QPointer<QMdiArea>& Area() {
    static QPointer<QMdiArea> area;
    return area;
}

/// The form in front inside the main window, active or not; null if none is shown there.
QWidget* FrontSubWindow(const QWidget& topLevel) {
    if (Area().isNull() || Area()->window() != &topLevel)
        return nullptr;
    auto* frame = dynamic_cast<FormFrame*>(Area()->currentSubWindow());
    return frame == nullptr || frame->isHidden() ? nullptr : frame->widget();
}

/// The form that a press at this place goes to, null if the window is none of ours.
Form* FormAt(QWidget& topLevel, const QPoint& place) {
    for (QWidget* at = topLevel.childAt(place); at != nullptr; at = at->parentWidget())
        if (const auto* frame = dynamic_cast<FormFrame*>(at))
            return dynamic_cast<Form*>(frame->widget());
    return dynamic_cast<Form*>(&topLevel);
}

bool IsBoxOrMenuUp() {
    return QApplication::activeModalWidget() != nullptr ||
           QApplication::activePopupWidget() != nullptr;
}

} // namespace

int ActivationTracker::reactionTime_ = UsualReactionTime;

void SetMainWindowArea(QMdiArea* area) {
    Area() = area;
    if (area != nullptr)
        QObject::connect(area, &QMdiArea::subWindowActivated, &ActivationTracker::Instance(),
                         &ActivationTracker::Schedule);
}

QMdiArea* MainWindowArea() {
    return Area();
}

ActivationTracker& ActivationTracker::Instance() {
    // Belongs to the application: it must be gone before the application is.
    static QPointer<ActivationTracker> tracker;
    if (tracker.isNull()) {
        tracker = new ActivationTracker;
        tracker->setParent(qApp);
    }
    return *tracker;
}

ActivationTracker::ActivationTracker() {
    timer_.setSingleShot(true);
    timer_.setInterval(0);
    connect(&timer_, &QTimer::timeout, this, &ActivationTracker::Look);
    afterHide_.setSingleShot(true);
    afterHide_.setInterval(UsualHandingOn);
    connect(&afterHide_, &QTimer::timeout, this, &ActivationTracker::LookForLostFocus);
    connect(qApp, &QGuiApplication::focusWindowChanged, this, &ActivationTracker::NoteFocus);
    connect(qApp, &QGuiApplication::applicationStateChanged, this, &ActivationTracker::Schedule);
    qApp->installEventFilter(this);
}

void ActivationTracker::SetReactionTime(int milliseconds) {
    reactionTime_ = milliseconds;
}

void ActivationTracker::Schedule() {
    timer_.start();
}

void ActivationTracker::NoteFocus(QWindow* now) {
    focusIsElsewhere_ = now == nullptr && !HasFocusGone();
    if (now != nullptr)
        focus_ = now;
    Schedule();
}

/// The window of ours that had the focus last is there no more.
bool ActivationTracker::HasFocusGone() const {
    return focus_.isNull() || !focus_->isVisible();
}

void ActivationTracker::Reset() {
    timer_.stop();
    topLevel_ = nullptr;
    front_ = nullptr;
    left_ = nullptr;
    sinceActivation_.invalidate();
    pressOnNewFront_ = false;
    doubleClickEnds_ = 0;
}

// At the window, before the toolkit looks for the control under the mouse: the activation may
// exchange it.
bool ActivationTracker::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide && watched->isWindowType())
        afterHide_.start();
    const bool isPress =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (!isPress || !watched->isWindowType() || IsBoxOrMenuUp())
        return false;
    return !TakePress(static_cast<QWindow&>(*watched), static_cast<const QMouseEvent&>(*event));
}

/// Completes the activation of what the press goes to. False if nothing is left to deliver the
/// press to.
bool ActivationTracker::TakePress(QWindow& window, const QMouseEvent& press) {
    const QPointer<QWidget> topLevel = QWidget::find(window.winId());
    if (topLevel.isNull())
        return true;
    pressOnNewFront_ = press.timestamp() < doubleClickEnds_;
    // A window manager may hand on the focus a while before the press that it gave it for.
    if (!pressOnNewFront_ && HasJustActivated())
        TakeAsUnseen(press);
    // The activation may end or hide the form: then the one beneath gets the press.
    for (Form* form = FormAt(*topLevel, press.position().toPoint());
         form != nullptr && TakeAsInFront(*form);
         form = FormAt(*topLevel, press.position().toPoint())) {
        // A box that the activation has shown has taken the release that belongs to this press.
        const bool isHeld = QGuiApplication::mouseButtons().testFlag(press.button());
        if (topLevel.isNull() || !topLevel->isVisible() || !isHeld)
            return false;
        TakeAsUnseen(press);
    }
    return true;
}

bool ActivationTracker::HasJustActivated() const {
    return sinceActivation_.isValid() && !sinceActivation_.hasExpired(reactionTime_);
}

void ActivationTracker::TakeAsUnseen(const QMouseEvent& press) {
    pressOnNewFront_ = true;
    const int interval = QGuiApplication::styleHints()->mouseDoubleClickInterval();
    doubleClickEnds_ = press.timestamp() + static_cast<quint64>(interval);
}

/// Takes the form for the one in front, which the window system makes it in its own time. True if
/// forms have been activated by it.
bool ActivationTracker::TakeAsInFront(const Form& form) {
    QWidget& topLevel = *form.Widget().window();
    QWidget* active = QApplication::activeWindow();
    left_ = active == &topLevel ? nullptr : active;
    if (form.FormPlace() == Form::Place::InMainWindow)
        Area()->setActiveSubWindow(static_cast<FormFrame*>(&form.Frame()));
    return CompleteActivation(topLevel);
}

void ActivationTracker::Look() {
    if (IsBoxOrMenuUp())
        return;
    QWidget* topLevel = ActiveTopLevel();
    if (topLevel == nullptr || !topLevel->isVisible() || topLevel->isMinimized() ||
        dynamic_cast<Form*>(topLevel) == nullptr)
        return;
    // A box or the help has closed, and no window manager hands the focus on.
    if (QApplication::activeWindow() == nullptr && HasFocusGone() && !focusIsElsewhere_)
        topLevel->activateWindow();
    CompleteActivation(*topLevel);
}

/// The toolkit takes a window for active as soon as it has asked for it. If the window closes
/// before the window manager has come to that, the focus has never left the one before, nothing
/// tells the toolkit so, and no key would get there any more.
void ActivationTracker::LookForLostFocus() {
    if (QApplication::activeWindow() == nullptr)
        Look();
}

/// Where the toolkit names none, since another program has the focus or no window manager hands it
/// round, the last one is still the one in front of the program's own.
QWidget* ActivationTracker::ActiveTopLevel() {
    QWidget* active = QApplication::activeWindow();
    if (active == nullptr || active == left_)
        return topLevel_;
    left_ = nullptr;
    return active;
}

/// Activates the form in front in this window if it has not been so far. True if it did.
bool ActivationTracker::CompleteActivation(QWidget& topLevel) {
    if (!ActivateFront(topLevel))
        return false;
    sinceActivation_.start();
    return true;
}

bool ActivationTracker::ActivateFront(QWidget& topLevel) {
    QWidget* inside = FrontSubWindow(topLevel);
    QWidget* front = inside != nullptr ? inside : &topLevel;
    const bool otherTopLevel = topLevel_ != &topLevel;
    const bool otherFront = front_ != front;
    topLevel_ = &topLevel;
    front_ = front;
    if (!otherFront && (inside == nullptr || !otherTopLevel))
        return false;

    if (inside == nullptr) {
        Activate(dynamic_cast<Form&>(topLevel));
        return true;
    }
    // A main window that comes back is activated before the form inside it. Its handler may end
    // that form.
    const QPointer<QWidget> guarded = inside;
    if (otherTopLevel)
        Activate(dynamic_cast<Form&>(topLevel));
    if (otherFront && !guarded.isNull())
        Activate(dynamic_cast<Form&>(*guarded));
    return true;
}

void ActivationTracker::Activate(Form& form) {
    if (!form.IsUnloaded())
        RunAction([&form] { form.Activate(); });
}

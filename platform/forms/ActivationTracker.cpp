#include "platform/forms/ActivationTracker.h"

#include "platform/forms/FormFrame.h"
#include "platform/forms/MainWindowArea.h"
#include "platform/runtime/Actions.h"

#include <QApplication>
#include <QMdiArea>
#include <QWindow>

namespace {

QPointer<QMdiArea>& Area() {
    static QPointer<QMdiArea> area;
    return area;
}

/// The form in front inside the main window, null if none is shown there.
QWidget* FrontSubWindow(const QWidget& topLevel) {
    if (Area().isNull() || Area()->window() != &topLevel)
        return nullptr;
    auto* frame = dynamic_cast<FormFrame*>(Area()->activeSubWindow());
    return frame == nullptr || frame->isHidden() ? nullptr : frame->widget();
}

} // namespace

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
    connect(qApp, &QGuiApplication::focusWindowChanged, this, &ActivationTracker::Schedule);
    connect(qApp, &QGuiApplication::applicationStateChanged, this, &ActivationTracker::Schedule);
}

void ActivationTracker::Schedule() {
    timer_.start();
}

void ActivationTracker::Reset() {
    timer_.stop();
    topLevel_ = nullptr;
    front_ = nullptr;
}

void ActivationTracker::Look() {
    if (QApplication::activeModalWidget() != nullptr ||
        QApplication::activePopupWidget() != nullptr)
        return;
    QWidget* topLevel = QApplication::activeWindow();
    if (topLevel == nullptr || !topLevel->isVisible() || topLevel->isMinimized() ||
        dynamic_cast<Form*>(topLevel) == nullptr)
        return;

    QWidget* inside = FrontSubWindow(*topLevel);
    QWidget* front = inside != nullptr ? inside : topLevel;
    const bool otherTopLevel = topLevel_ != topLevel;
    const bool otherFront = front_ != front;
    topLevel_ = topLevel;
    front_ = front;

    if (inside == nullptr) {
        if (otherFront)
            Activate(dynamic_cast<Form&>(*topLevel));
        return;
    }
    // A main window that comes back is activated before the form inside it. Its handler may end
    // that form.
    const QPointer<QWidget> guarded = inside;
    if (otherTopLevel)
        Activate(dynamic_cast<Form&>(*topLevel));
    if (otherFront && !guarded.isNull())
        Activate(dynamic_cast<Form&>(*guarded));
}

void ActivationTracker::Activate(Form& form) {
    if (!form.IsUnloaded())
        RunAction([&form] { form.Activate(); });
}

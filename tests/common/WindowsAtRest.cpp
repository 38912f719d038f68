#include "tests/common/WindowsAtRest.h"

#include "tests/common/TestRun.h"

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <QtGui/qguiapplication_platform.h>
#include <cstdint>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <string_view>
#include <xcb/xcb.h>

namespace {

xcb_connection_t* ToDisplay() {
    return qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
}

xcb_window_t RootWindow(xcb_connection_t* display) {
    return xcb_setup_roots_iterator(xcb_get_setup(display)).data->root;
}

xcb_atom_t Atom(xcb_connection_t* display, std::string_view name) {
    xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(
        display, xcb_intern_atom(display, 0, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr);
    const auto atom = reply == nullptr ? xcb_atom_t{XCB_ATOM_NONE} : reply->atom;
    std::free(reply);
    return atom;
}

/// A window that is never shown. A window manager answers the question how wide its frame would be
/// by a property of the window, in turn with everything else that it is asked.
class UnseenWindow : public QAbstractNativeEventFilter {
public:
    explicit UnseenWindow(xcb_connection_t* display)
        : display_(display), window_(xcb_generate_id(display)),
          question_(Atom(display, "_NET_REQUEST_FRAME_EXTENTS")) {
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(display, XCB_COPY_FROM_PARENT, window_, RootWindow(display), -10, -10, 1,
                          1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT,
                          XCB_CW_EVENT_MASK, &events);
        qGuiApp->installNativeEventFilter(this);
    }

    /// Runs events until the answer has come, or it is too late for it.
    void Ask(const QDeadlineTimer& latest) {
        xcb_client_message_event_t question = {};
        question.response_type = XCB_CLIENT_MESSAGE;
        question.format = 32;
        question.window = window_;
        question.type = question_;
        xcb_send_event(display_, 0, RootWindow(display_),
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<const char*>(&question));
        xcb_flush(display_);
        QTimer patience;
        patience.callOnTimeout(&answer_, &QEventLoop::quit);
        patience.start(static_cast<int>(latest.remainingTime()));
        answer_.exec();
    }

    bool nativeEventFilter(const QByteArray& /*kind*/, void* message,
                           qintptr* /*result*/) override {
        const auto* event = static_cast<const xcb_property_notify_event_t*>(message);
        if ((event->response_type & 0x7F) == XCB_PROPERTY_NOTIFY && event->window == window_)
            answer_.quit();
        return false;
    }

private:
    xcb_connection_t* display_;
    xcb_window_t window_;
    xcb_atom_t question_;
    QEventLoop answer_;
};

/// Runs events until all that was asked of the display before has been done, as far as that can be
/// known where there is no window manager, or one that is part of a Wayland compositor.
void RunUntilAllIsDone(const QDeadlineTimer& latest) {
    constexpr int usuallyLongEnough = 15; // milliseconds
    static const bool answers = QGuiApplication::platformName() == QLatin1String("xcb") &&
                                qgetenv("DUTYGRID_WINDOW_MANAGER") != "none";
    if (!answers) {
        QTest::qWait(usuallyLongEnough);
    } else {
        static UnseenWindow window(ToDisplay());
        window.Ask(latest);
    }
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// Notes what tells that windows are still on their way: a window that comes, goes, moves or is
/// drawn afresh, and focus that travels.
class WindowUnrest : public QObject {
public:
    WindowUnrest() { qApp->installEventFilter(this); }

    /// Since the last of them, in milliseconds.
    qint64 Age() const {
        return last_.isValid() ? last_.elapsed() : std::numeric_limits<qint64>::max();
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
        case QEvent::WindowActivate:
        case QEvent::WindowDeactivate:
        case QEvent::ApplicationStateChange:
        case QEvent::WindowStateChange:
        case QEvent::FocusIn:
        case QEvent::FocusOut:
        case QEvent::Show:
        case QEvent::Hide:
            last_.start();
            break;
        case QEvent::Expose:
        case QEvent::Move:
        case QEvent::Resize:
            if (watched->isWindowType())
                last_.start();
            break;
        default:
            break;
        }
        return false;
    }

private:
    QElapsedTimer last_;
};

/// True while a window is shown that is not drawn yet, or none of those shown has the focus though
/// one is meant to: the window manager has not come to it.
bool WindowManagerIsBehind(Keyboard keyboard) {
    if (QApplication::activeModalWidget() != nullptr)
        return false;
    bool anyShown = false;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        const bool takesFocus =
            window->windowType() == Qt::Window || window->windowType() == Qt::Dialog;
        if (!takesFocus || !window->isVisible() || window->isMinimized())
            continue;
        anyShown = true;
        if (window->windowHandle() == nullptr || !window->windowHandle()->isExposed())
            return true;
    }
    return anyShown && keyboard == Keyboard::InTheProgram &&
           QApplication::activeWindow() == nullptr;
}

} // namespace

void LetWindowsRest(Keyboard keyboard) {
    const QDeadlineTimer latest(Patience);
    // A window manager may put off what it is asked, and a window that goes within a few
    // milliseconds of its coming may leave the focus to nobody.
    constexpr int calm = 20; // milliseconds
    constexpr int soon = 5;  // milliseconds
    constexpr int calmRounds = 2;
    static const WindowUnrest unrest;
    for (int rounds = 0; rounds < calmRounds;) {
        if (latest.hasExpired()) {
            ADD_FAILURE() << "the windows do not come to rest";
            return;
        }
        RunUntilAllIsDone(latest);
        const qint64 age = unrest.Age();
        const bool isCalm = age >= calm && !WindowManagerIsBehind(keyboard);
        rounds = isCalm ? rounds + 1 : 0;
        // No look costs the processor what tells nothing yet.
        if (!isCalm)
            QTest::qWait(age < calm ? static_cast<int>(calm - age) : soon);
    }
}

#include "tests/common/RealInput.h"

#include "tests/common/TestRun.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QProcess>
#include <QScopeGuard>
#include <QStyleHints>
#include <QTest>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

void Run(const QStringList& hand, bool isBusy = false) {
    QProcess xdotool;
    xdotool.start(QStringLiteral("xdotool"), hand);
    ASSERT_TRUE(xdotool.waitForStarted()) << "xdotool is not installed";
    if (isBusy)
        xdotool.waitForFinished();
    ASSERT_TRUE(QTest::qWaitFor([&] { return xdotool.state() == QProcess::NotRunning; }, Patience));
}

QStringList MoveTo(const QWidget& widget, const QPoint& place) {
    const QPoint at = widget.mapToGlobal(place);
    return {QStringLiteral("mousemove"), QString::number(at.x()), QString::number(at.y())};
}

struct FormerClick {
    QElapsedTimer since;
    QPoint at;
};

FormerClick& Former() {
    static FormerClick former;
    return former;
}

/// Lets the time pass in which a press here would be taken for the second one of a double click.
void LetTheFormerClickRest(const QPoint& at) {
    constexpr int spare = 100; // milliseconds
    const QStyleHints& hints = *QGuiApplication::styleHints();
    if (!Former().since.isValid() ||
        (at - Former().at).manhattanLength() > 2 * hints.mouseDoubleClickDistance())
        return;
    const qint64 rest = hints.mouseDoubleClickInterval() + spare - Former().since.elapsed();
    QTest::qWait(static_cast<int>(std::max<qint64>(rest, 0)));
}

/// A press on something else that lies above would tell nothing of the widget.
bool IsInSight(const QWidget& widget, const QPoint& place) {
    const QWidget* top = QApplication::widgetAt(widget.mapToGlobal(place));
    return top == &widget || (top != nullptr && widget.isAncestorOf(top));
}

void SendOneClick(const QWidget& widget, const QPoint& place, const RealPress& press) {
    const QPoint at = widget.mapToGlobal(place);
    EXPECT_TRUE(IsInSight(widget, place)) << widget.objectName().toStdString();
    Run(MoveTo(widget, place) + QStringList{QStringLiteral("mousedown"), QStringLiteral("1"),
                                            QStringLiteral("sleep"),
                                            QString::number(press.heldMs / 1000.0),
                                            QStringLiteral("mouseup"), QStringLiteral("1")},
        press.isBusy);
    Former().since.start();
    Former().at = at;
}

/// True if keys go to the window that the toolkit takes for the active one. It does so as soon as
/// it has asked for it.
bool DisplayAgreesOnTheFocus() {
    QProcess xdotool;
    xdotool.start(QStringLiteral("xdotool"),
                  {QStringLiteral("getwindowfocus"), QStringLiteral("-f")});
    const QWindow* focus = QGuiApplication::focusWindow();
    return xdotool.waitForFinished() && focus != nullptr &&
           xdotool.readAllStandardOutput().trimmed().toULongLong() == focus->winId();
}

} // namespace

RealInput::RealInput() {
    qApp->installEventFilter(this);
}

void RealInput::Click(const QWidget& widget, const RealPress& press) {
    ClickAt(widget, widget.rect().center(), press);
}

void RealInput::ClickAt(const QWidget& widget, const QPoint& place, const RealPress& press) {
    LetTheFormerClickRest(widget.mapToGlobal(place));
    const auto restore = qScopeGuard([usual = QApplication::doubleClickInterval()] {
        QApplication::setDoubleClickInterval(usual);
    });
    isDouble_ = press.count > 1;
    buttonReleases_ = 0;
    // A window manager may lose a press that comes while it still holds the one before.
    for (int click = 1; click <= press.count; ++click) {
        SendOneClick(widget, place, press);
        EXPECT_TRUE(QTest::qWaitFor([&] { return buttonReleases_ >= click; }, Patience));
    }
    isDouble_ = false;
}

void RealInput::SendClick(const QWidget& widget, const RealPress& press) {
    const QPoint place = widget.rect().center();
    LetTheFormerClickRest(widget.mapToGlobal(place));
    SendOneClick(widget, place, press);
}

void RealInput::WheelDown(const QWidget& widget) {
    wheels_ = 0;
    Run(MoveTo(widget, widget.rect().center()) +
        QStringList{QStringLiteral("click"), QStringLiteral("5")});
    EXPECT_TRUE(QTest::qWaitFor([&] { return wheels_ > 0; }, Patience));
}

void RealInput::Key(const QString& name) {
    EXPECT_TRUE(QTest::qWaitFor(DisplayAgreesOnTheFocus, Patience));
    keyReleases_ = 0;
    Run({QStringLiteral("key"), name});
    EXPECT_TRUE(QTest::qWaitFor([&] { return keyReleases_ > 0; }, Patience));
}

bool RealInput::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWindowType())
        return false;
    // However late the second press comes on a busy machine, it is that of a double click.
    if (isDouble_ && event->type() == QEvent::MouseButtonPress)
        QApplication::setDoubleClickInterval(Patience);
    buttonReleases_ += event->type() == QEvent::MouseButtonRelease ? 1 : 0;
    keyReleases_ += event->type() == QEvent::KeyRelease ? 1 : 0;
    wheels_ += event->type() == QEvent::Wheel ? 1 : 0;
    return false;
}

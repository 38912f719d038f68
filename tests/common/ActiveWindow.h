#pragma once

#include "tests/common/TestRun.h"

#include <QGuiApplication>
#include <QProcess>
#include <QTest>
#include <QWidget>

/// Waits until a window has the focus, which the toolkit's own wait does not under Wayland.
inline bool BecomesActive(const QWidget& window) {
    return QTest::qWaitFor([&window] { return window.isActiveWindow(); }, Patience);
}

/// Starts another program, with a window that takes the focus. False if it is not installed.
inline bool StartAnotherProgram(QProcess& program) {
    if (QGuiApplication::platformName() == QLatin1String("wayland"))
        program.start(QStringLiteral("weston-simple-shm"), {});
    else
        program.start(QStringLiteral("xmessage"), {QStringLiteral("Another program")});
    return program.waitForStarted();
}

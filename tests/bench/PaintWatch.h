#pragma once

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QWidget>
#include <ctime>
#include <functional>
#include <unistd.h>

/// What a PaintWatch writes to the standard output.
struct Painted {
    qint64 Moment = 0;     ///< CLOCK_MONOTONIC, nanoseconds
    qint64 PeakMemory = 0; ///< of the process so far, kilobytes
};

/// The peak memory of this process; the figure that its parent gets at its end may be the parent's
/// own, taken along at its making.
inline qint64 PeakMemory() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (status.open(QIODevice::ReadOnly))
        for (const QByteArray& line : status.readAll().split('\n'))
            if (line.startsWith("VmHWM:"))
                return line.mid(6, line.size() - 9).trimmed().toLongLong();
    return 0;
}

/// An application that reports when a widget it waits for has been painted, and ends then.
class PaintWatch : public QApplication {
public:
    PaintWatch(int& argc, char** argv, std::function<bool(const QWidget&)> isAwaited)
        : QApplication(argc, argv), isAwaited_(std::move(isAwaited)) {}

    bool notify(QObject* receiver, QEvent* event) override {
        const bool isPaint = event->type() == QEvent::Paint && receiver->isWidgetType();
        const bool result = QApplication::notify(receiver, event);
        if (isPaint && !isReported_ && isAwaited_(*static_cast<QWidget*>(receiver)))
            Report();
        return result;
    }

private:
    void Report() {
        isReported_ = true;
        timespec now{};
        ::clock_gettime(CLOCK_MONOTONIC, &now);
        const Painted painted{qint64{now.tv_sec} * 1'000'000'000 + now.tv_nsec, PeakMemory()};
        if (::write(STDOUT_FILENO, &painted, sizeof painted) != sizeof painted)
            std::abort();
        QMetaObject::invokeMethod(
            this, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
    }

    std::function<bool(const QWidget&)> isAwaited_;
    bool isReported_ = false;
};

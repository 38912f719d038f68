#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>

class QTimerEvent;

/// A short movement that a widget shows when something has been done. It only tells how far the
/// movement has come: the widget passes on its timer events and paints. It dies with the widget.
class Movement {
public:
    /// False if the person has asked the desktop for less motion.
    static bool IsWelcome();

    /// Starts from the beginning. Milliseconds.
    void Start(QObject& widget, int duration);
    void Stop() { timer_.stop(); }
    bool IsRunning() const { return timer_.isActive(); }
    /// True if the event is this movement's; one that has come to its end has then stopped.
    bool Takes(const QTimerEvent& event);
    /// From 0 at the beginning to 1; 1 if nothing moves.
    double Progress() const;

private:
    QBasicTimer timer_;
    QElapsedTimer since_;
    int duration_ = 1;
};

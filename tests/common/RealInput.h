#pragma once

#include <QObject>
#include <QPoint>
#include <QString>

class QWidget;

/// How long a button is held, how often, and whether the program handles events meanwhile: one
/// that does not finds focus, press and release in its queue at once.
struct RealPress {
    int heldMs;
    bool isBusy = false;
    int count = 1;
};

/// The display's own mouse and keyboard: what they do goes through the window manager, as a hand's
/// doings do.
class RealInput : public QObject {
    Q_OBJECT

public:
    static constexpr RealPress Short{20};
    static constexpr RealPress Long{120};
    static constexpr RealPress ShortWhileBusy{20, true};
    static constexpr RealPress LongWhileBusy{120, true};
    static constexpr RealPress Double{20, false, 2};

    RealInput();

    /// Presses and releases the left button in the middle of a widget, or at a place on it, and
    /// waits until the program has had both.
    void Click(const QWidget& widget, const RealPress& press);
    void ClickAt(const QWidget& widget, const QPoint& place, const RealPress& press);
    /// The same without the wait for the program: a box may take the release.
    static void SendClick(const QWidget& widget, const RealPress& press);
    /// A notch of the wheel downwards over a widget.
    void WheelDown(const QWidget& widget);
    /// Presses and releases a key by its name for X, and waits until the program has had both.
    void Key(const QString& name);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isDouble_ = false;
    int buttonReleases_ = 0;
    int keyReleases_ = 0;
    int wheels_ = 0;
};

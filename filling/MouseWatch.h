#pragma once

#include <QObject>
#include <QWidget>

/// Watches the mouse on one widget and tells where it is in twips of that widget. The events end
/// here, so that a press is the watched widget's alone and not its parents' as well. A press on a
/// text or picture that stands on the widget is not its own and starts nothing.
class MouseWatch : public QObject {
    Q_OBJECT

public:
    explicit MouseWatch(QWidget* watched);

signals:
    /// Any button went down.
    void Pressed(int x, int y);
    /// The mouse moved with the left button, and no other, held since a press here.
    void Dragged(int x, int y);
    /// All buttons are up again after a press here.
    void Released();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const QWidget* watched_;
    bool pressed_ = false;
};

#pragma once

#include <QComboBox>
#include <QKeyEvent>
#include <QObject>

/// Either of the two Enter keys.
inline bool IsEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

/// One of the keys that press a control that is no button of the toolkit's.
inline bool IsPressKey(const QKeyEvent& event) {
    return event.key() == Qt::Key_Space || IsEnter(event);
}

/// One of the keys that stand for the right button of the mouse.
inline bool IsMenuKey(const QKeyEvent& event) {
    return event.key() == Qt::Key_Delete || event.key() == Qt::Key_Menu;
}

/// Watches for the Enter key going down in a box. The key then does nothing else there.
class EnterKey : public QObject {
    Q_OBJECT

public:
    explicit EnterKey(QWidget* box);
    /// Watches a combo box together with the line edit inside.
    explicit EnterKey(QComboBox* box);

signals:
    void Pressed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

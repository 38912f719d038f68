#include "platform/forms/EnterKey.h"

#include <QLineEdit>

EnterKey::EnterKey(QWidget* box) : QObject(box) {
    box->installEventFilter(this);
}

EnterKey::EnterKey(QComboBox* box) : EnterKey(static_cast<QWidget*>(box)) {
    box->lineEdit()->installEventFilter(this);
}

bool EnterKey::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && IsEnter(static_cast<QKeyEvent&>(*event))) {
        emit Pressed();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

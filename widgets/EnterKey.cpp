#include "widgets/EnterKey.h"

#include <QKeyEvent>
#include <QLineEdit>

EnterKey::EnterKey(QWidget* box) : QObject(box) {
    box->installEventFilter(this);
}

EnterKey::EnterKey(QComboBox* box) : EnterKey(static_cast<QWidget*>(box)) {
    box->lineEdit()->installEventFilter(this);
}

bool EnterKey::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            emit Pressed();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

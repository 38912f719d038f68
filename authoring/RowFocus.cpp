#include "authoring/RowFocus.h"

#include <QFocusEvent>
#include <QKeyEvent>

RowFocus::RowFocus(QWidget* control) : QObject(control) {
    control->installEventFilter(this);
}

bool RowFocus::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason)
            emit ReachedByTab();
    } else if (event->type() == QEvent::KeyPress) {
        const auto* press = static_cast<QKeyEvent*>(event);
        if (press->key() == Qt::Key_Backtab ||
            (press->key() == Qt::Key_Tab && press->modifiers().testFlag(Qt::ShiftModifier)))
            emit GoingBack();
    }
    return QObject::eventFilter(watched, event);
}

#include "widgets/OpeningList.h"

#include <QKeyEvent>
#include <QMouseEvent>

void OpeningList::mouseDoubleClickEvent(QMouseEvent* event) {
    QListWidget::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton)
        emit Opened(itemAt(event->position().toPoint()));
}

void OpeningList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        emit Opened(nullptr);
    else
        QListWidget::keyPressEvent(event);
}

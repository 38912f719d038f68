#include "reports/ClickList.h"

#include <QMouseEvent>
#include <utility>

void ClickList::mousePressEvent(QMouseEvent* event) {
    isPressed_ = true;
    QListWidget::mousePressEvent(event);
}

void ClickList::mouseReleaseEvent(QMouseEvent* event) {
    QListWidget::mouseReleaseEvent(event);
    if (std::exchange(isPressed_, false))
        emit Click();
}

void ClickList::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QListWidget::selectionChanged(selected, deselected);
    // The mouse chooses when its button is let go.
    if (!isPressed_)
        emit Click();
}

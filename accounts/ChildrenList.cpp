#include "accounts/ChildrenList.h"

#include "platform/forms/EnterKey.h"

#include <QDragMoveEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>

ChildrenList::ChildrenList(QWidget* parent) : HeadedList(parent) {
    setHeaderHidden(true);
    setAcceptDrops(true);
}

ChildrenList::Position ChildrenList::TakeOut() {
    const Position position{verticalScrollBar()->value(), indexOfTopLevelItem(currentItem())};
    Clear();
    return position;
}

void ChildrenList::PutBack(const Position& position) {
    if (QTreeWidgetItem* row = topLevelItem(std::min(position.row, topLevelItemCount() - 1)))
        setCurrentItem(row, 0, QItemSelectionModel::NoUpdate);
    verticalScrollBar()->setValue(position.scroll);
}

void ChildrenList::mousePressEvent(QMouseEvent* event) {
    emit Pressed(event->button(), itemAt(event->position().toPoint()));
    // The toolkit would select by another button than the left one too: who asks for a row's end by
    // the right one is not to find the row below selected after it.
    if (event->button() == Qt::LeftButton)
        HeadedList::mousePressEvent(event);
}

void ChildrenList::keyPressEvent(QKeyEvent* event) {
    if (IsMenuKey(*event))
        emit Pressed(Qt::RightButton, selectedItems().value(0));
    else
        HeadedList::keyPressEvent(event);
}

void ChildrenList::mouseDoubleClickEvent(QMouseEvent* event) {
    // Two clicks, the second as good as the first.
    QMouseEvent press(QEvent::MouseButtonPress, event->position(), event->scenePosition(),
                      event->globalPosition(), event->button(), event->buttons(),
                      event->modifiers(), event->source(), event->pointingDevice());
    mousePressEvent(&press);
}

void ChildrenList::mouseMoveEvent(QMouseEvent* event) {
    const QString before = SelectedName();
    HeadedList::mouseMoveEvent(event);
    if (SelectedName() != before)
        emit DraggedOver();
}

void ChildrenList::dragEnterEvent(QDragEnterEvent* event) {
    // Taken, so that its moves come here as well; nothing can be dropped.
    event->accept();
    emit DraggedOver();
}

void ChildrenList::dragMoveEvent(QDragMoveEvent* event) {
    event->ignore();
    emit DraggedOver();
}

#include "reports/ReportList.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QTextDocument>
#include <utility>

ReportList::ReportList(QWidget* parent) : QListWidget(parent) {
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    // The names of history tables differ in the date at their end.
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void ReportList::AddItem(const QString& text) {
    auto* item = new QListWidgetItem(text, this);
    item->setToolTip(Qt::convertFromPlainText(text));
}

void ReportList::mousePressEvent(QMouseEvent* event) {
    const bool isLeft = event->button() == Qt::LeftButton;
    const bool isOnItem = indexAt(event->position().toPoint()).isValid();
    if (isLeft && !isOnItem && selectionMode() == QAbstractItemView::SingleSelection) {
        clearSelection();
        setCurrentItem(nullptr);
    }
    QListWidget::mousePressEvent(event);
    pressed_ = true;
    if (event->button() == Qt::RightButton)
        emit RightPressed();
}

void ReportList::mouseReleaseEvent(QMouseEvent* event) {
    QListWidget::mouseReleaseEvent(event);
    if (std::exchange(pressed_, false))
        emit Clicked();
}

void ReportList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Menu) {
        emit RightPressed();
        return;
    }
    const QList<QListWidgetItem*> before = selectedItems();
    QListWidget::keyPressEvent(event);
    if (selectedItems() != before)
        emit Clicked();
}

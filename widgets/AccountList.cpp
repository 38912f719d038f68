#include "widgets/AccountList.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTextDocument>
#include <utility>

AccountList::AccountList(QWidget* parent) : QTreeWidget(parent) {
    setColumnCount(1);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTextElideMode(Qt::ElideRight);
    setTabKeyNavigation(false);
    header()->setStretchLastSection(true);
}

void AccountList::AddItem(const QString& text) {
    auto* item = new QTreeWidgetItem(this, {text});
    item->setToolTip(0, Qt::convertFromPlainText(text));
    // Rows of two lines' height: children aim at them.
    item->setSizeHint(0, QSize(0, fontMetrics().height() * 2));
}

QString AccountList::SelectedName() const {
    for (int row = 0; row < topLevelItemCount(); ++row)
        if (topLevelItem(row)->isSelected())
            return topLevelItem(row)->text(0);
    return {};
}

void AccountList::SetHeading(const QString& heading) {
    headerItem()->setText(0, heading);
    setAccessibleName(heading);
}

void AccountList::mousePressEvent(QMouseEvent* event) {
    if (!indexAt(event->position().toPoint()).isValid()) {
        clearSelection();
        setCurrentItem(nullptr);
    }
    QTreeWidget::mousePressEvent(event);
    pressed_ = true;
}

void AccountList::mouseReleaseEvent(QMouseEvent* event) {
    QTreeWidget::mouseReleaseEvent(event);
    if (std::exchange(pressed_, false))
        emit Chosen();
}

void AccountList::mouseDoubleClickEvent(QMouseEvent* event) {
    QTreeWidget::mouseDoubleClickEvent(event);
    // The release that follows belongs to the double click and is no click of its own.
    pressed_ = false;
    if (event->button() == Qt::LeftButton)
        emit Opened();
}

void AccountList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        emit Opened();
    else
        SelectByKey(event);
}

void AccountList::SelectByKey(QKeyEvent* event) {
    const QList<QTreeWidgetItem*> before = selectedItems();
    const bool moves =
        event->key() == Qt::Key_Down || event->key() == Qt::Key_Up || event->key() == Qt::Key_Space;
    if (before.isEmpty() && moves && topLevelItemCount() > 0)
        // The first key in a list without a selection takes the row it stands on, the first one
        // at the start, instead of passing over it.
        setCurrentItem(currentItem() != nullptr ? currentItem() : topLevelItem(0), 0,
                       QItemSelectionModel::ClearAndSelect);
    else
        QTreeWidget::keyPressEvent(event);
    if (!selectedItems().isEmpty() && selectedItems() != before)
        emit Chosen();
}

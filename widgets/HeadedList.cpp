#include "widgets/HeadedList.h"

#include <QTextDocument>

HeadedList::HeadedList(QWidget* parent)
    : ClickView(parent, {.Opens = true, .Unselecting = Qt::AllButtons, .FirstKeyTakesRow = true}) {
    setColumnCount(1);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
}

void HeadedList::AddItem(const QString& text) {
    auto* item = new QTreeWidgetItem(this, {text});
    item->setToolTip(0, Qt::convertFromPlainText(text));
}

QString HeadedList::SelectedName() const {
    for (int row = 0; row < topLevelItemCount(); ++row)
        if (topLevelItem(row)->isSelected())
            return topLevelItem(row)->text(0);
    return {};
}

void HeadedList::SetHeading(const QString& heading) {
    headerItem()->setText(0, heading);
    setAccessibleName(heading);
}

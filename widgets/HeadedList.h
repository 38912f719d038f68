#pragma once

#include "store/FormViews.h"
#include "widgets/ClickRules.h"

#include <QTreeWidget>

/// A list of account names in one column under a heading, which tells of its clicks. PersonRows
/// paint it.
class HeadedList : public ClickView<QTreeWidget>, public NameList {
    Q_OBJECT

public:
    explicit HeadedList(QWidget* parent = nullptr);

    void Clear() override { clear(); }
    void AddItem(const QString& text) override;

    /// The text of the first selected row, "" if none is.
    QString SelectedName() const;

    QString Heading() const { return headerItem()->text(0); }
    /// Sets the column's heading, which is also the list's name for screen readers.
    void SetHeading(const QString& heading);
};

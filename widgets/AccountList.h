#pragma once

#include "store/FormViews.h"

#include <QTreeWidget>

/// A list of account names in one column under a heading. It tells of every click, on its empty
/// part as well, where the selection is lost.
class AccountList : public QTreeWidget, public NameList {
    Q_OBJECT

public:
    explicit AccountList(QWidget* parent = nullptr);

    void Clear() override { clear(); }
    void AddItem(const QString& text) override;

    /// The text of the first selected row, "" if none is.
    QString SelectedName() const;

    QString Heading() const { return headerItem()->text(0); }
    /// Sets the column's heading, which is also the list's name for screen readers.
    void SetHeading(const QString& heading);

signals:
    /// A click anywhere in the list, by whichever button since each selects, or a row selected by
    /// keys.
    void Chosen();
    /// A double click anywhere in the list, or the Enter key.
    void Opened();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void SelectByKey(QKeyEvent* event);

    bool pressed_ = false;
};

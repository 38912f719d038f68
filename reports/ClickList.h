#pragma once

#include <QListWidget>

/// A list box with one event for a choice, by whatever means: a click of the mouse, also on the
/// entry that is chosen already or on none, and any other change of the selection.
class ClickList : public QListWidget {
    Q_OBJECT

public:
    using QListWidget::QListWidget;

signals:
    void Click();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

private:
    bool isPressed_ = false;
};

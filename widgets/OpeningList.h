#pragma once

#include <QListWidget>

/// A list whose selected entries are opened by a double click anywhere in it, on its empty part as
/// well, or by the Enter key.
class OpeningList : public QListWidget {
    Q_OBJECT

public:
    using QListWidget::QListWidget;

signals:
    /// `item`: the one under the double click; null on the empty part and for the key.
    void Opened(QListWidgetItem* item);

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

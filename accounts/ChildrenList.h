#pragma once

#include "widgets/HeadedList.h"

/// The list of children in the account view. It tells of a mouse press before the press selects
/// anything, so that the list may be filled anew first and the press then selects in the new one,
/// and of everything that is dragged over it.
class ChildrenList : public HeadedList {
    Q_OBJECT

public:
    explicit ChildrenList(QWidget* parent = nullptr);

    /// Puts an empty list back where `rows` filled it before: the same part in view, the keys at
    /// the same row, and nothing selected.
    template <class Fill>
    void Refill(Fill&& fill) {
        const Position position = TakeOut();
        fill();
        PutBack(position);
    }

signals:
    /// Any button went down on a row, or on none; the selection is the one before. What the right
    /// button does, the Delete key and the key for a context menu do as well, on the row selected.
    void Pressed(Qt::MouseButton button, QTreeWidgetItem* row);
    /// Something is dragged over the list: a row by the mouse, or what comes from elsewhere.
    void DraggedOver();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;

private:
    struct Position {
        int scroll;
        int row;
    };
    Position TakeOut();
    void PutBack(const Position& position);
};

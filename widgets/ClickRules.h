#pragma once

#include "platform/forms/EnterKey.h"

#include <QAbstractItemView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMouseEvent>
#include <utility>

/// What differs between the lists that tell of clicks.
struct ClickRules {
    /// A double click of the left button and the Enter key open what is selected. The release of
    /// such a double click is no click.
    bool Opens = false;
    /// A press of one of these on the empty part takes an only selection away.
    Qt::MouseButtons Unselecting = Qt::NoButton;
    /// In a list without a selection the first key takes the row that it stands on, instead of
    /// passing over it; a key that only takes the selection away is no click.
    bool FirstKeyTakesRow = false;
    /// A selection by the program is a click as well.
    bool ProgramClicks = false;
    /// The right button, and the keys that stand for it, tell of themselves.
    bool TellsRightPress = false;
};

/// What a list tells.
class ListClicks : public QObject {
    Q_OBJECT

signals:
    /// A click anywhere in the list, by whichever button since each selects, or another selection
    /// by keys.
    void Clicked();
    /// What is selected is to be opened. `at`: what lies under the double click; invalid on the
    /// empty part and for the key.
    void Opened(const QModelIndex& at);
    /// The right button went down anywhere in the list. What it went down on is selected then, and
    /// alone unless it was selected before. The Delete key and the key for a context menu tell the
    /// same of the selection as it is.
    void RightPressed();
};

/// A view of the toolkit that tells of its clicks by its rules.
template <class View>
class ClickView : public View {
public:
    explicit ClickView(QWidget* parent, const ClickRules& rules = {})
        : View(parent), rules_(rules) {}

    ListClicks Clicks;

    void SetRules(const ClickRules& rules) { rules_ = rules; }

protected:
    void mousePressEvent(QMouseEvent* event) override {
        const bool isOnItem = this->indexAt(event->position().toPoint()).isValid();
        const bool tellsRightPress = rules_.TellsRightPress && event->button() == Qt::RightButton;
        if (!isOnItem && rules_.Unselecting.testFlag(event->button()) &&
            this->selectionMode() == QAbstractItemView::SingleSelection)
            this->selectionModel()->clear();
        // Beside all rows it means none of them, whatever was chosen before.
        if (!isOnItem && tellsRightPress)
            this->clearSelection();
        isPressed_ = true;
        View::mousePressEvent(event);
        if (tellsRightPress)
            emit Clicks.RightPressed();
    }

    void mouseReleaseEvent(QMouseEvent* event) override {
        View::mouseReleaseEvent(event);
        if (std::exchange(isPressed_, false))
            emit Clicks.Clicked();
    }

    void mouseDoubleClickEvent(QMouseEvent* event) override {
        View::mouseDoubleClickEvent(event);
        if (!rules_.Opens)
            return;
        isPressed_ = false;
        if (event->button() == Qt::LeftButton)
            emit Clicks.Opened(this->indexAt(event->position().toPoint()));
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Escape)
            // The form's. The toolkit would look for a row that begins with it.
            event->ignore();
        else if (rules_.Opens && IsEnter(*event))
            emit Clicks.Opened({});
        else if (rules_.TellsRightPress && IsMenuKey(*event))
            emit Clicks.RightPressed();
        else
            SelectByKey(event);
    }

    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override {
        View::selectionChanged(selected, deselected);
        // The mouse chooses when its button is let go.
        if (rules_.ProgramClicks && !isPressed_)
            emit Clicks.Clicked();
    }

private:
    void SelectByKey(QKeyEvent* event) {
        const QModelIndexList before = this->selectedIndexes();
        const bool moves = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up ||
                           event->key() == Qt::Key_Space;
        const QModelIndex first = this->model()->index(0, 0);
        if (rules_.FirstKeyTakesRow && before.isEmpty() && moves && first.isValid())
            this->selectionModel()->setCurrentIndex(
                this->currentIndex().isValid() ? this->currentIndex() : first,
                QItemSelectionModel::ClearAndSelect);
        else
            View::keyPressEvent(event);
        const QModelIndexList after = this->selectedIndexes();
        // With the other rule the change has told of itself.
        if (after != before && !rules_.ProgramClicks &&
            !(after.isEmpty() && rules_.FirstKeyTakesRow))
            emit Clicks.Clicked();
    }

    ClickRules rules_;
    bool isPressed_ = false;
};

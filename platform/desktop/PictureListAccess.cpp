#include "platform/desktop/PictureListAccess.h"

#include <QAccessibleWidget>
#include <QFileDialog>
#include <QHash>
#include <QListView>
#include <QPersistentModelIndex>
#include <QPointer>

namespace {

/// A picture, or a folder.
class EntryAccess : public QAccessibleInterface {
public:
    EntryAccess(QListView* list, const QModelIndex& index) : list_(list), index_(index) {}

    const QPersistentModelIndex& Index() const { return index_; }

    bool isValid() const override { return !list_.isNull() && index_.isValid(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override {
        return isValid() ? list_->window()->windowHandle() : nullptr;
    }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(list_);
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }

    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name && isValid() ? index_.data().toString() : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        if (!isValid())
            return {};
        const QRect place = list_->visualRect(index_);
        return {list_->viewport()->mapToGlobal(place.topLeft()), place.size()};
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.invalid = !isValid();
        if (state.invalid)
            return state;
        state.selectable = true;
        state.selected = list_->selectionModel()->isSelected(index_);
        state.focusable = true;
        state.focused = list_->hasFocus() && list_->currentIndex() == index_;
        state.disabled = !list_->isEnabled();
        const bool isSeen =
            list_->isVisible() && list_->viewport()->rect().intersects(list_->visualRect(index_));
        state.invisible = !isSeen;
        state.offscreen = !isSeen;
        return state;
    }

private:
    QPointer<QListView> list_;
    QPersistentModelIndex index_;
};

class PictureListAccess : public QAccessibleWidget {
public:
    explicit PictureListAccess(QListView* list)
        : QAccessibleWidget(list, QAccessible::List), list_(list) {}
    ~PictureListAccess() override {
        for (const QAccessible::Id id : std::as_const(entries_))
            QAccessible::deleteAccessibleInterface(id);
    }

    int childCount() const override { return list_->model()->rowCount(list_->rootIndex()); }
    QAccessibleInterface* child(int row) const override {
        return EntryOf(list_->model()->index(row, list_->modelColumn(), list_->rootIndex()));
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        return EntryOf(list_->indexAt(list_->viewport()->mapFromGlobal(QPoint(x, y))));
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto* entry = dynamic_cast<const EntryAccess*>(child);
        return entry == nullptr ? -1 : entry->Index().row();
    }
    QAccessibleInterface* focusChild() const override {
        return list_->hasFocus() ? EntryOf(list_->currentIndex()) : nullptr;
    }

private:
    /// A reader knows an entry by its number, so each is made once, until another file stands in
    /// its place.
    QAccessibleInterface* EntryOf(const QModelIndex& index) const {
        if (!index.isValid())
            return nullptr;
        QAccessible::Id& id = entries_[index.row()];
        auto* entry =
            dynamic_cast<EntryAccess*>(id == 0 ? nullptr : QAccessible::accessibleInterface(id));
        if (entry != nullptr && entry->Index() == index)
            return entry;
        if (entry != nullptr)
            QAccessible::deleteAccessibleInterface(id);
        entry = new EntryAccess(list_, index);
        id = QAccessible::registerAccessibleInterface(entry);
        return entry;
    }

    QListView* list_;
    mutable QHash<int, QAccessible::Id> entries_;
};

/// The dialog's list of places is such a list as well.
QAccessibleInterface* MakePictureListAccess(const QString& key, QObject* object) {
    if (key != QLatin1String("QListView"))
        return nullptr;
    auto* list = static_cast<QListView*>(object);
    return qobject_cast<QFileDialog*>(list->window()) != nullptr ? new PictureListAccess(list)
                                                                 : nullptr;
}

} // namespace

void InstallPictureListAccess() {
    QAccessible::installFactory(MakePictureListAccess);
}

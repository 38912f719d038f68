#pragma once

#include "store/FormViews.h"

#include <QStyledItemDelegate>
#include <functional>

class PicturesInSight;
class QAbstractItemView;

/// Paints a list of people: before each name a round picture, by which a child that cannot read
/// finds itself. Pictures come once the names have been painted.
class PersonRows : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// Shows the picture of the account of that name.
    using Fetch = std::function<void(const QString& name, PictureTarget& target)>;

    /// Of `list`, from now on.
    PersonRows(QAbstractItemView& list, Fetch fetch);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    PicturesInSight* pictures_;
};

#pragma once

#include <QStyledItemDelegate>

/// Paints the entries of a list of people: the picture, a disc, and below it the name on at most
/// two lines. A chosen person's card is coloured, with a white ring round the disc and a tick; the
/// keyboard's place is a dotted line.
class PersonCard : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

#include "widgets/PersonRows.h"

#include "look/LookColors.h"
#include "platform/forms/PicturesInSight.h"
#include "store/SmallPicture.h"
#include "widgets/RoundPicture.h"

#include <QAbstractItemView>
#include <QPainter>
#include <algorithm>

namespace {

constexpr int PersonSide = 32; // pixels
constexpr int PersonRow = 40;

} // namespace

PersonRows::PersonRows(QAbstractItemView& list, Fetch fetch)
    : QStyledItemDelegate(&list),
      pictures_(new PicturesInSight(list, Qt::DisplayRole,
                                    [&list, fetch = std::move(fetch)](const QString& name) {
                                        const qreal scale = list.devicePixelRatioF();
                                        SmallPicture picture(qRound(PersonSide * scale));
                                        fetch(name, picture);
                                        return RoundPicture(picture.Picture(), PersonSide, scale);
                                    })) {
    list.setItemDelegate(this);
}

void PersonRows::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    // Room for the disc, which is no icon: a style tints the icons of chosen rows.
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->decorationSize = QSize(PersonSide, PersonSide);
    constexpr qreal nameSize = 12.5; // points
    option->font.setPointSizeF(nameSize);
    option->fontMetrics = QFontMetrics(option->font);
}

QSize PersonRows::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem whole = option;
    initStyleOption(&whole, index);
    constexpr int air = 8;
    // No width: names are cut, and told by their tool tips.
    return {0, std::max(PersonRow, whole.fontMetrics.height() + air)};
}

void PersonRows::paint(QPainter* painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    QStyleOptionViewItem whole = option;
    initStyleOption(&whole, index);
    const QStyle& style = *option.widget->style();
    QRect place(QPoint(), whole.decorationSize);
    place.moveCenter(
        style.subElementRect(QStyle::SE_ItemViewItemDecoration, &whole, option.widget).center());
    const QPixmap picture = pictures_->Of(index);
    if (picture.isNull())
        PaintNobody(*painter, place);
    else
        painter->drawPixmap(place.topLeft(), picture);
    if (option.state.testFlag(QStyle::State_Selected)) {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(LookColors::Card, 2));
        painter->setBrush(Qt::NoBrush);
        painter->drawEllipse(place);
        painter->restore();
    }
}

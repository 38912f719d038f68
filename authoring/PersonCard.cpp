#include "authoring/PersonCard.h"

#include "look/LookColors.h"

#include <QIcon>
#include <QPainter>
#include <QTextLayout>

using namespace LookColors;

namespace {

// Pixels.
constexpr int Padding = 6;
constexpr int SideRoom = 28;
constexpr int NameLines = 2;

/// The name over at most two lines, the second one cut if need be.
QStringList LinesOf(const QString& name, const QFont& font, int width) {
    QStringList lines;
    QTextOption wrapping;
    wrapping.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QTextLayout layout(name, font);
    layout.setTextOption(wrapping);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        if (lines.size() + 1 == NameLines) {
            lines +=
                QFontMetrics(font).elidedText(name.mid(line.textStart()), Qt::ElideRight, width);
            break;
        }
        lines += name.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    return lines;
}

void DrawTick(QPainter& painter, const QPointF& middle) {
    constexpr qreal Radius = 10;
    painter.setPen(QPen(Card, 2));
    painter.setBrush(Teal);
    painter.drawEllipse(middle, Radius, Radius);
    painter.setPen(QPen(Card, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(
        QPolygonF{middle + QPointF(-4.5, 0), middle + QPointF(-1, 3.5), middle + QPointF(5, -4)});
}

} // namespace

QSize PersonCard::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return {option.decorationSize.width() + 2 * (SideRoom + Padding),
            option.decorationSize.height() + 3 * Padding + NameLines * option.fontMetrics.height()};
}

void PersonCard::paint(QPainter* painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index) const {
    const bool chosen = option.state.testFlag(QStyle::State_Selected);
    const bool hover = option.state.testFlag(QStyle::State_MouseOver);
    const bool keyboard = option.state.testFlag(QStyle::State_HasFocus) &&
                          option.state.testFlag(QStyle::State_KeyboardFocusChange);
    constexpr int Round = 8;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (chosen || hover || keyboard) {
        const qreal inset = 1;
        painter->setPen(chosen ? QPen(Teal, 2) : QPen(Qt::NoPen));
        painter->setBrush(chosen ? TealPale : hover ? Honey : Card);
        painter->drawRoundedRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset), Round,
                                 Round);
    }
    if (keyboard) {
        painter->setPen(QPen(Ink, 1.5, Qt::DotLine));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(QRectF(option.rect).adjusted(4, 4, -4, -4), Round - 3, Round - 3);
    }

    QRect picture(QPoint(), option.decorationSize);
    picture.moveCenter(QPoint(option.rect.center().x(), 0));
    picture.moveTop(option.rect.top() + Padding);
    index.data(Qt::DecorationRole).value<QIcon>().paint(painter, picture);
    if (chosen)
        DrawTick(*painter, picture.topRight() + QPoint(6, 10));

    painter->setPen(Ink);
    painter->setFont(option.font);
    QRect line(option.rect.left() + Padding, picture.bottom() + 1 + Padding,
               option.rect.width() - 2 * Padding, option.fontMetrics.height());
    for (const QString& text :
         LinesOf(index.data(Qt::DisplayRole).toString(), option.font, line.width())) {
        painter->drawText(line, Qt::AlignCenter | Qt::TextSingleLine, text);
        line.translate(0, line.height());
    }
    painter->restore();
}

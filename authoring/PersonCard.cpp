#include "authoring/PersonCard.h"

#include "look/LookColors.h"
#include "look/TickPath.h"

#include <QIcon>
#include <QPainter>
#include <QTextLayout>

using namespace LookColors;

namespace {

// Pixels. A name of one line stands in the middle of the two that there is room for, which leaves
// as much air above the picture as above and below the name.
constexpr int Air = 16;
constexpr int NameAir = 6;
constexpr int NameSide = 7;
constexpr int SideRoom = 39;
constexpr int NameLines = 2;

QFont NameFont(QFont font) {
    constexpr qreal size = 12.5; // points
    font.setPointSizeF(size);
    return font;
}

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

/// Round a chosen person's disc, whose pale ground would run into that of the card.
void DrawRing(QPainter& painter, const QRectF& picture) {
    constexpr qreal width = 3; // pixels, one of them on the disc's edge
    painter.setPen(QPen(Card, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(picture.adjusted(-0.5, -0.5, 0.5, 0.5));
}

/// On the disc's edge, up to the right.
void DrawTick(QPainter& painter, const QRectF& picture) {
    constexpr qreal Radius = 10;
    const qreal aside = picture.width() * 0.38;
    const QPointF middle = picture.center() + QPointF(aside, -aside);
    painter.setPen(QPen(Card, 2));
    painter.setBrush(Teal);
    painter.drawEllipse(middle, Radius, Radius);
    painter.setPen(QPen(Card, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(TickPath(QRectF(middle - QPointF(5.7, 5.9), QSizeF(11.6, 11))));
}

} // namespace

QSize PersonCard::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return {option.decorationSize.width() + 2 * SideRoom,
            Air + option.decorationSize.height() + 2 * NameAir +
                NameLines * QFontMetrics(NameFont(option.font)).height()};
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
    picture.moveTop(option.rect.top() + Air);
    index.data(Qt::DecorationRole).value<QIcon>().paint(painter, picture);
    if (chosen) {
        DrawRing(*painter, picture);
        DrawTick(*painter, picture);
    }

    const QFont font = NameFont(option.font);
    painter->setPen(Ink);
    painter->setFont(font);
    const int lineHeight = QFontMetrics(font).height();
    const int width = option.rect.width() - 2 * NameSide;
    const QStringList lines = LinesOf(index.data(Qt::DisplayRole).toString(), font, width);
    const int unused = (NameLines - static_cast<int>(lines.size())) * lineHeight;
    QRect line(option.rect.left() + NameSide, picture.bottom() + 1 + NameAir + unused / 2, width,
               lineHeight);
    for (const QString& text : lines) {
        painter->drawText(line, Qt::AlignCenter | Qt::TextSingleLine, text);
        line.translate(0, line.height());
    }
    painter->restore();
}

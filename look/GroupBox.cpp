#include "look/GroupBox.h"

#include "look/LookColors.h"

#include <QPainter>
#include <QStyleOptionGroupBox>

using namespace LookColors;

namespace {

// Logical pixels.
constexpr int TitleIndent = 12;
constexpr int TopPadding = 4;
constexpr qreal Corner = 8;

} // namespace

QRect GroupBoxPart(const QStyleOptionGroupBox& option, QStyle::SubControl part) {
    constexpr qreal titleRoom = 1.3; // heights of a line
    const int line = option.fontMetrics.height();
    const QRect frame = option.rect.adjusted(0, qRound(titleRoom * line), 0, 0);
    switch (part) {
    case QStyle::SC_GroupBoxFrame:
        return frame;
    case QStyle::SC_GroupBoxContents:
        return frame.adjusted(1, 1 + TopPadding, -1, -1);
    case QStyle::SC_GroupBoxLabel:
        return QRect(option.rect.topLeft(), QSize(option.rect.width(), line))
            .adjusted(TitleIndent, 0, -TitleIndent, 0);
    default:
        return {};
    }
}

void DrawGroupBox(const QStyleOptionGroupBox& option, QPainter& painter) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Line, 1));
    painter.setBrush(Card);
    const QRectF frame = GroupBoxPart(option, QStyle::SC_GroupBoxFrame);
    painter.drawRoundedRect(frame.adjusted(0.5, 0.5, -0.5, -0.5), Corner, Corner);

    QFont titleFont = painter.font();
    titleFont.setWeight(QFont::DemiBold);
    painter.setFont(titleFont);
    painter.setPen(Deep);
    const QRect title = GroupBoxPart(option, QStyle::SC_GroupBoxLabel);
    painter.drawText(title, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic,
                     painter.fontMetrics().elidedText(option.text, Qt::ElideRight, title.width(),
                                                      Qt::TextShowMnemonic));
    painter.restore();
}

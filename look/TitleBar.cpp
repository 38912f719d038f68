#include "look/TitleBar.h"

#include "look/LookColors.h"

#include <QPainter>
#include <QStyle>
#include <QWidget>

using namespace LookColors;

namespace {

/// A button's sign, in a square of 10 pixels around the origin.
void DrawSign(QPainter& painter, QStyle::SubControl button) {
    switch (button) {
    case QStyle::SC_TitleBarMinButton:
        painter.drawLine(QPointF(-4, 4), QPointF(4, 4));
        break;
    case QStyle::SC_TitleBarMaxButton:
        painter.drawRoundedRect(QRectF(-4, -4, 8, 8), 1.5, 1.5);
        break;
    case QStyle::SC_TitleBarNormalButton:
        painter.drawRoundedRect(QRectF(-4.5, -1.5, 6, 6), 1, 1);
        painter.drawPolyline(QPolygonF{{-1.5, -4.5}, {4.5, -4.5}, {4.5, 1.5}});
        break;
    default:
        painter.drawLine(QPointF(-4, -4), QPointF(4, 4));
        painter.drawLine(QPointF(-4, 4), QPointF(4, -4));
    }
}

/// Whether the bar shows a button: a minimised form has one to come back in place of the one that
/// minimises, as a maximised one has.
bool HasButton(const QStyleOptionTitleBar& option, QStyle::SubControl button) {
    const bool isMinimized = (option.titleBarState & Qt::WindowMinimized) != 0;
    const bool isMaximized = (option.titleBarState & Qt::WindowMaximized) != 0;
    switch (button) {
    case QStyle::SC_TitleBarMinButton:
        return option.titleBarFlags.testFlag(Qt::WindowMinimizeButtonHint) && !isMinimized;
    case QStyle::SC_TitleBarMaxButton:
        return option.titleBarFlags.testFlag(Qt::WindowMaximizeButtonHint) && !isMaximized;
    case QStyle::SC_TitleBarNormalButton:
        return isMinimized || isMaximized;
    default:
        return option.titleBarFlags.testFlag(Qt::WindowSystemMenuHint);
    }
}

} // namespace

void DrawTitleBar(const QStyleOptionTitleBar& option, QPainter& painter, const QWidget* widget) {
    const QStyle& style = *widget->style();
    const auto place = [&](QStyle::SubControl part) {
        return style.subControlRect(QStyle::CC_TitleBar, &option, part, widget);
    };
    const bool isInFront = (option.titleBarState & QStyle::State_Active) != 0;
    const QColor ink = isInFront ? Card : Ink;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(option.rect, isInFront ? Teal : TealPale);

    painter.setPen(ink);
    constexpr int air = 5; // pixels; a long title ends before the signs, and begins behind the icon
    const QRect title = place(QStyle::SC_TitleBarLabel).adjusted(air, 0, -air, 0);
    painter.drawText(title, Qt::AlignCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(option.text, Qt::ElideRight, title.width()));
    option.icon.paint(&painter, place(QStyle::SC_TitleBarSysMenu));

    for (const QStyle::SubControl button :
         {QStyle::SC_TitleBarMinButton, QStyle::SC_TitleBarMaxButton,
          QStyle::SC_TitleBarNormalButton, QStyle::SC_TitleBarCloseButton}) {
        if (!HasButton(option, button))
            continue;
        const QRectF room = place(button);
        if (option.activeSubControls.testFlag(button)) {
            const bool isHeld = option.state.testFlag(QStyle::State_Sunken);
            painter.setPen(Qt::NoPen);
            painter.setBrush(isInFront ? (isHeld ? TealPressed : TealHover)
                                       : (isHeld ? HoneyDark : Honey));
            painter.drawRoundedRect(room, 4, 4);
        }
        painter.save();
        painter.translate(room.center());
        painter.setPen(QPen(ink, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        DrawSign(painter, button);
        painter.restore();
    }
    painter.restore();
}

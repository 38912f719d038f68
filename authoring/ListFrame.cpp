#include "authoring/ListFrame.h"

#include "look/LookColors.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QStyleOptionGroupBox>

void ListFrame::paintEvent(QPaintEvent* event) {
    QGroupBox::paintEvent(event);
    constexpr int bandBottom = 40; // pixels: 600 twips, where the rows begin
    if (event->rect().top() >= bandBottom)
        return;
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    const QRectF inside = QRectF(style()->subControlRect(QStyle::CC_GroupBox, &option,
                                                         QStyle::SC_GroupBoxFrame, this))
                              .adjusted(1, 1, -1, -1);
    constexpr qreal corner = 7; // that of the card, less its edge
    QPainterPath card;
    card.addRoundedRect(inside, corner, corner);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(QRectF(inside.topLeft(), QPointF(inside.right(), bandBottom)));
    painter.fillPath(card, LookColors::Band);
    painter.fillRect(QRectF(inside.left(), bandBottom - 1, inside.width(), 1), LookColors::Outline);
}

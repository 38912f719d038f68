#include "authoring/ListFrame.h"

#include "look/CrispLine.h"
#include "look/LookColors.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QStyleOptionGroupBox>

void ListFrame::paintEvent(QPaintEvent* event) {
    QGroupBox::paintEvent(event);
    if (event->rect().top() >= BandBottom)
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
    painter.setClipRect(QRectF(inside.topLeft(), QPointF(inside.right(), BandBottom)));
    painter.fillPath(card, LookColors::Band);
    FillCrispLine(painter, QRectF(inside.left(), BandBottom - 1, inside.width(), 1),
                  LookColors::Outline);
}

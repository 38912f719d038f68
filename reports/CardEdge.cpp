#include "reports/CardEdge.h"

#include "look/LookColors.h"

#include <QPainter>
#include <QPainterPath>

CardEdge::CardEdge(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void CardEdge::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF edge = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath corners;
    corners.addRect(rect());
    corners.addRoundedRect(edge, Round, Round);
    painter.fillPath(corners, LookColors::Paper);
    painter.setPen(LookColors::Line);
    painter.drawRoundedRect(edge, Round, Round);
}

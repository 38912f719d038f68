#include "filling/BoxOutline.h"

#include <QPainter>

void BoxOutline::SetBorderColor(const QColor& color) {
    if (color == borderColor_)
        return;
    borderColor_ = color;
    update();
}

void BoxOutline::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(borderColor_, 1));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
}

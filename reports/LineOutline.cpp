#include "reports/LineOutline.h"

#include <QPainter>

LineOutline::LineOutline(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void LineOutline::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::AlternateBase).darker(135));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

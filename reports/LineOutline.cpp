#include "reports/LineOutline.h"

#include <QPainter>

LineOutline::LineOutline(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void LineOutline::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor color = palette().color(QPalette::AlternateBase).darker(135);
    // Areas, not strokes: at fractional scales a stroke on the edge falls out of the widget.
    painter.fillRect(0, 0, width(), 1, color);
    painter.fillRect(0, height() - 1, width(), 1, color);
    painter.fillRect(0, 0, 1, height(), color);
    painter.fillRect(width() - 1, 0, 1, height(), color);
}

#include "reports/MatrixCell.h"

#include <QPainter>

namespace {

// Black on it has a contrast of 13:1.
const QColor Done(0xa9, 0xdf, 0xb4);
const QColor DoneEdge(0x3f, 0x8a, 0x55);

} // namespace

MatrixCell::MatrixCell(QWidget* parent) : FittingLabel(parent) {
    setAlignment(Qt::AlignCenter);
    setFont(Face());
    SetForeColor(Qt::black);
}

void MatrixCell::SetBackStyle(int backStyle) {
    backStyle_ = backStyle;
    update();
}

QFont MatrixCell::Face() {
    QFont face(QStringLiteral("Arial"));
    face.setBold(true);
    // A cell is 17 pixels high, whatever the font of the desktop.
    face.setPixelSize(12);
    return face;
}

void MatrixCell::paintEvent(QPaintEvent* event) {
    if (backStyle_ != Transparent) {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(DoneEdge);
        painter.setBrush(Done);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    }
    FittingLabel::paintEvent(event);
}

#include "reports/MatrixCell.h"

#include "look/LookColors.h"

#include <QPainter>

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
        painter.setPen(LookColors::DoneEdge);
        painter.setBrush(LookColors::Done);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    }
    FittingLabel::paintEvent(event);
}

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
    // Most cells are without, and all are painted with each line that is scrolled.
    if (backStyle_ != Transparent || outlinedWhenOpen_)
        PaintBack();
    FittingLabel::paintEvent(event);
}

void MatrixCell::PaintBack() {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF place = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    if (backStyle_ != Transparent) {
        painter.setPen(LookColors::DoneEdge);
        painter.setBrush(LookColors::Done);
        painter.drawRoundedRect(place, 4, 4);
    } else {
        // A square box, as on paper.
        QRectF box(0, 0, place.height() - 2, place.height() - 2);
        box.moveCenter(place.center());
        painter.setPen(LookColors::Outline);
        painter.drawRect(box);
    }
}

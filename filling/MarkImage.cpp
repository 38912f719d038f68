#include "filling/MarkImage.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>

MarkImage::MarkImage(const QString& picture, int coveredAbove, QWidget* parent)
    : QAbstractButton(parent), picture_(picture), coveredAbove_(coveredAbove) {
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
}

QSize MarkImage::sizeHint() const {
    return picture_.deviceIndependentSize().toSize();
}

bool MarkImage::hitButton(const QPoint& place) const {
    return !IsCovered() && QAbstractButton::hitButton(place);
}

void MarkImage::focusInEvent(QFocusEvent* event) {
    QAbstractButton::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        emit ReachedByTab();
}

void MarkImage::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void MarkImage::paintEvent(QPaintEvent*) {
    if (IsCovered())
        return;
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.drawPixmap(rect(), picture_);
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 5, 5);
    }
}

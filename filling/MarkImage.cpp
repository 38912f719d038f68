#include "filling/MarkImage.h"

#include "platform/forms/ActivationTracker.h"
#include "platform/forms/EnterKey.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QTimerEvent>
#include <cmath>
#include <numbers>

MarkImage::MarkImage(const QString& picture, bool isTick, int coveredAbove, QWidget* parent)
    : QAbstractButton(parent), picture_(picture), isTick_(isTick), coveredAbove_(coveredAbove) {
    setCursor(Qt::PointingHandCursor);
}

QSize MarkImage::sizeHint() const {
    return picture_.deviceIndependentSize().toSize();
}

void MarkImage::PopIn() {
    constexpr int duration = 240; // milliseconds
    if (isVisible() && Movement::IsWelcome())
        pop_.Start(*this, duration);
}

void MarkImage::timerEvent(QTimerEvent* event) {
    if (pop_.Takes(*event))
        update();
    else
        QAbstractButton::timerEvent(event);
}

void MarkImage::hideEvent(QHideEvent* event) {
    pop_.Stop();
    QAbstractButton::hideEvent(event);
}

bool MarkImage::hitButton(const QPoint& place) const {
    return !IsCovered() && !ActivationTracker::Instance().IsPressOnNewFront() &&
           QAbstractButton::hitButton(place);
}

bool MarkImage::IsOutOfSight() const {
    return IsCovered() || geometry().bottom() >= parentWidget()->height() ||
           visibleRegion().isEmpty();
}

void MarkImage::focusInEvent(QFocusEvent* event) {
    QAbstractButton::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        emit WantsToBeSeen();
}

void MarkImage::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Down)
        emit Moved(1);
    else if (event->key() == Qt::Key_Up)
        emit Moved(-1);
    else if (IsEnter(*event) && event->isAutoRepeat())
        // Held down since before the mark had the keyboard.
        event->accept();
    else if (IsPressKey(*event) && IsOutOfSight())
        emit WantsToBeSeen();
    else if (IsEnter(*event))
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void MarkImage::paintEvent(QPaintEvent*) {
    if (IsCovered())
        return;
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    // Springs a little: the last part goes back to the size that it has at rest.
    const double left = 1 - pop_.Progress();
    const double size = 1 - left * left * left * std::cos(left * 2 * std::numbers::pi);
    QRectF place(QPointF(), QSizeF(rect().size()) * size);
    place.moveCenter(QRectF(rect()).center());
    painter.drawPixmap(place, picture_, QRectF(picture_.rect()));
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 5, 5);
    }
}

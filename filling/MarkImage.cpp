#include "filling/MarkImage.h"

#include "look/LookColors.h"
#include "look/TickPath.h"
#include "platform/forms/ActivationTracker.h"
#include "platform/forms/EnterKey.h"
#include "widgets/KeptPicture.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOption>
#include <QTimerEvent>
#include <cmath>
#include <numbers>

MarkImage::MarkImage(bool isTick, int coveredAbove, QWidget* parent)
    : QAbstractButton(parent), isTick_(isTick), coveredAbove_(coveredAbove) {
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover); // painted anew as the mouse comes and goes
}

QSize MarkImage::sizeHint() const {
    constexpr int side = 25; // pixels
    return {side, side};
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
    if (!pop_.IsRunning()) {
        QStyleOption option;
        option.initFrom(this);
        option.state.setFlag(QStyle::State_Sunken, isDown());
        PaintFromPicture(*this, rect(), isTick_ ? QStringLiteral("ticked") : QStringLiteral("open"),
                         option, [this](QPainter& painter) { PaintBox(painter); });
        return;
    }
    // Springs a little: the last part goes back to the size that it has at rest.
    const double left = 1 - pop_.Progress();
    const double size = 1 - left * left * left * std::cos(left * 2 * std::numbers::pi);
    QPainter painter(this);
    const QPointF middle = QRectF(rect()).center();
    painter.translate(middle);
    painter.scale(size, size);
    painter.translate(-middle);
    PaintBox(painter);
}

void MarkImage::PaintBox(QPainter& painter) const {
    using namespace LookColors;
    const QRectF box(rect());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(isDown() ? HoneyDark : underMouse() ? Honey : isTick_ ? Ticked : Card);
    constexpr double round = 4; // pixels
    painter.drawRoundedRect(box.adjusted(1, 1, -1, -1), round, round);
    if (isTick_) {
        constexpr double air = 4;
        painter.setPen(QPen(Tick, 3.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(TickPath(box.adjusted(air, air, -air, -air)));
    }
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(box.adjusted(1, 1, -1, -1), round + 1, round + 1);
    }
}

#include "filling/RowText.h"

#include "platform/forms/EnterKey.h"

#include <QAccessible>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>

RowText::RowText(QWidget* parent) : FittingLabel(parent) {
    // The mouse has ways of its own on a row.
    setFocusPolicy(Qt::TabFocus);
}

void RowText::setText(const QString& text) {
    // The toolkit makes a document of a text that takes the keyboard, which costs more than all the
    // rest of the row. It is painted without.
    const Qt::FocusPolicy policy = focusPolicy();
    setFocusPolicy(Qt::NoFocus);
    FittingLabel::setText(text);
    setFocusPolicy(policy);
}

void RowText::SetSelected(bool selected) {
    if (selected_ == selected)
        return;
    selected_ = selected;
    QAccessibleEvent change(this, selected ? QAccessible::Selection : QAccessible::SelectionRemove);
    QAccessible::updateAccessibility(&change);
}

void RowText::focusInEvent(QFocusEvent* event) {
    FittingLabel::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        emit ReachedByTab();
}

void RowText::keyPressEvent(QKeyEvent* event) {
    if (IsPressKey(*event))
        emit Chosen();
    else if (event->key() == Qt::Key_Down)
        emit Moved(1);
    else if (event->key() == Qt::Key_Up)
        emit Moved(-1);
    else
        FittingLabel::keyPressEvent(event);
}

void RowText::paintEvent(QPaintEvent* event) {
    FittingLabel::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 5, 5);
}

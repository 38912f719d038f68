#include "widgets/ElidingEdit.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyleOptionFrame>
#include <QToolTip>

QRect ElidingEdit::TextPlace() const {
    constexpr int OwnMargin = 2; // pixels, as the toolkit has it on both sides of the text
    QStyleOptionFrame option;
    initStyleOption(&option);
    return style()
        ->subElementRect(QStyle::SE_LineEditContents, &option, this)
        .marginsRemoved(textMargins())
        .adjusted(OwnMargin, 0, -OwnMargin, 0);
}

bool ElidingEdit::IsCut() const {
    return fontMetrics().horizontalAdvance(text()) > TextPlace().width();
}

bool ElidingEdit::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && IsCut()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                           Qt::convertFromPlainText(text()), this);
        return true;
    }
    return QLineEdit::event(event);
}

void ElidingEdit::paintEvent(QPaintEvent* event) {
    if (hasFocus() || !IsCut()) {
        QLineEdit::paintEvent(event);
        return;
    }
    QStyleOptionFrame option;
    initStyleOption(&option);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
    const QRect place = TextPlace();
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::Text));
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideRight, place.width()));
}

#include "widgets/ElidingEdit.h"

#include "widgets/KeptPicture.h"

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
    return fontMetrics().horizontalAdvance(displayText()) > TextPlace().width();
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
    const bool isHint = text().isEmpty() && !placeholderText().isEmpty();
    // It stands at the other end, which the toolkit sees to.
    const bool isMirrored = text().isRightToLeft() && !IsCut();
    if (hasFocus() || hasSelectedText() || isHint || isMirrored) {
        QLineEdit::paintEvent(event);
        return;
    }
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QString kind = QStringLiteral("ElidingEdit in ") +
                         QLatin1String(parentWidget()->metaObject()->className());
    PaintFromPicture(*this, rect(), kind, option, [&](QPainter& painter) {
        style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
    });
    const QRect place = TextPlace();
    const QFontMetrics metrics = fontMetrics();
    QPainter painter(this);
    painter.setClipRect(place);
    // Where the toolkit writes it.
    const int top = place.y() + (place.height() - metrics.height() + 1) / 2;
    painter.drawText(place.x(), top + metrics.ascent(),
                     metrics.elidedText(displayText(), Qt::ElideRight, place.width()));
}

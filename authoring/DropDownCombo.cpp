#include "authoring/DropDownCombo.h"

#include "platform/forms/Handlers.h"

#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QStyleOptionComboBox>
#include <QWheelEvent>

DropDownCombo::DropDownCombo(QWidget* parent) : QComboBox(parent) {
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    // At the end of typing the toolkit chooses the entry that equals the text, as if it had been
    // clicked; a typed text is not a click.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    // The beginning of a long text tells more than its end.
    On(lineEdit(), &QLineEdit::editingFinished, this, [this] {
        if (!lineEdit()->hasFocus())
            lineEdit()->setCursorPosition(0);
    });
}

void DropDownCombo::SetText(const QString& text) {
    setCurrentIndex(-1);
    setEditText(text);
    lineEdit()->setCursorPosition(0);
}

void DropDownCombo::showPopup() {
    const QPointer<DropDownCombo> self(this);
    emit AboutToDrop();
    if (self)
        QComboBox::showPopup();
}

void DropDownCombo::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

void DropDownCombo::paintEvent(QPaintEvent* event) {
    QComboBox::paintEvent(event);
    // The program's style sheet takes the toolkit's button away, which is too big for a row.
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRectF button =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this);
    const QPointF middle = button.center();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::ButtonText), 1.6, Qt::SolidLine, Qt::RoundCap,
                        Qt::RoundJoin));
    painter.drawPolyline(
        QPolygonF{middle + QPointF(-4, -2), middle + QPointF(0, 2), middle + QPointF(4, -2)});
}

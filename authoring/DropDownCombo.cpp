#include "authoring/DropDownCombo.h"

#include <QLineEdit>
#include <QPointer>
#include <QWheelEvent>

DropDownCombo::DropDownCombo(QWidget* parent) : QComboBox(parent) {
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    // At the end of typing the toolkit chooses the entry that equals the text, as if it had been
    // clicked; a typed text is not a click.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
}

void DropDownCombo::SetText(const QString& text) {
    setCurrentIndex(-1);
    setEditText(text);
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

#include "platform/forms/FormKeys.h"

#include "platform/forms/EnterKey.h"

#include <QPushButton>

namespace {

template <class Condition>
QPushButton* LastButton(const QWidget& form, Condition isWanted) {
    QPushButton* found = nullptr;
    for (QPushButton* button : form.findChildren<QPushButton*>())
        if (button->isVisible() && button->isEnabled() && isWanted(*button))
            found = button;
    return found;
}

bool GoesOn(const QPushButton& button) {
    return button.property("role").toString() == QLatin1String("primary");
}

bool Leaves(const QPushButton& button) {
    return button.property("leaves").toBool();
}

} // namespace

bool PressFormButton(const QWidget& form, const QKeyEvent& event) {
    const bool isEscape = event.key() == Qt::Key_Escape;
    if ((!isEscape && !IsEnter(event)) || event.modifiers() & ~Qt::KeypadModifier)
        return false;
    QPushButton* button = isEscape ? LastButton(form, Leaves) : LastButton(form, GoesOn);
    if (button == nullptr)
        return false;
    if (!event.isAutoRepeat())
        button->click();
    return true;
}

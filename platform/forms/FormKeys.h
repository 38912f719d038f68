#pragma once

class QKeyEvent;
class QWidget;

/// What the two keys do in a box or list of a form that has no use for them itself: Enter presses
/// the button by which the form goes on (`role` "primary"; of several the last, which stands below
/// the others), Escape the one by which it is left (`leaves`). A key held down presses nothing.
/// True if there is such a button.
bool PressFormButton(const QWidget& form, const QKeyEvent& event);

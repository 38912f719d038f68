#pragma once

#include "tests/accessibility/Shown.h"

/// What a form has to hold for everybody to use it. Each rule returns what breaks it, in words;
/// nothing if it is kept. `controls`: what has been read of the form shown.

/// Every control that is used has a name, and a role that says what it is.
QStringList BrokenNames(const Controls& controls);

/// Every caption that ends in a colon is the label of a control.
QStringList BrokenBuddies(const Controls& controls);

/// From the control that has the keyboard, Tab goes round all others in the order in which they
/// are read, Shift+Tab back again; the one with the keyboard is in sight and looks different.
QStringList BrokenTabs(Shown& shown, const Controls& controls);

/// Every control does by keys what it is for, and says so.
QStringList BrokenKeys(Shown& shown, const Controls& controls);

/// The control with the keyboard, down to an entry of a list; without Ref if none has it.
Control Focused(const Controls& controls);

/// Goes by Tab to the control with that role and name; without Ref if it is not reached.
Control GoTo(Shown& shown, AtspiRole role, const QString& name);

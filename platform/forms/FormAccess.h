#pragma once

/// Makes the program's windows known to screen readers as what they are: plain widgets would be
/// passed over as filling.
void InstallFormAccess();

class QWidget;

/// Gives each list the name of the label whose buddy it is, unless it has one of its own. The
/// toolkit does so for boxes, but not for lists.
void NameListsByLabels(const QWidget& form);

#pragma once

#include <QComboBox>

/// Moves the list of job names between a combo box and its file: Jobs/SchoolJobs.dat or
/// Jobs/HomeJobs.dat beneath the program folder, by the mode at the time of each call.
class InstructionsDropDown {
public:
    /// Writes the whole list to the file, one name a line. Empty names are left out, and of equal
    /// neighbours all but the first. Raises 76 without the folder, 75 for an unwritable file.
    void AddInstructions(const QComboBox& List) const;

    /// Fills the list from the file. The text in the box stays. A name with a comma in it comes
    /// back as two entries. Raises 53 without the file; the list is empty then.
    void ReceveInstructions(QComboBox& List) const;
};

#pragma once

#include <QString>

/// The folder that holds everything the program reads and writes; without a slash at its end.
QString ProgramFolder();

/// Sets the program folder, by default the folder of the executable.
void SetProgramFolder(const QString& folder);

/// A path beneath the program folder: InProgramFolder("Settings/Settings.txt").
QString InProgramFolder(const QString& tail);

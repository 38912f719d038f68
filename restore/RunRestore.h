#pragma once

#include <QString>

class QApplication;

/// Runs the program that puts copies back, from its window to its end. `programFolder`: "" the
/// folder of the executable. Returns the exit code.
int RunRestore(QApplication& application, const QString& programFolder = QString());

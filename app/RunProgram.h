#pragma once

#include <QString>

class QApplication;

/// Runs the program from the log-in form to its end: outside world, forms, event loop.
/// `programFolder`: "" the folder of the executable. Returns the exit code.
int RunProgram(QApplication& application, const QString& programFolder = QString());

#pragma once

class QApplication;

/// Runs the program from the log-in form to its end: outside world, forms, event loop. The program
/// folder has been set. Returns the exit code.
int RunProgram(QApplication& application);

#pragma once

class QMdiArea;

/// The area of the main window that carries the sub-windows; set by the main window while it
/// exists.
void SetMainWindowArea(QMdiArea* area);

/// Null while there is no main window.
QMdiArea* MainWindowArea();

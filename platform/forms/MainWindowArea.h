#pragma once

class QMdiArea;
class QString;

/// The area of the main window that carries the sub-windows; set by the main window while it
/// exists.
void SetMainWindowArea(QMdiArea* area);

/// Null while there is no main window.
QMdiArea* MainWindowArea();

/// Names the form that is the main window: it is made when the first sub-window is shown.
void SetMainWindowForm(const QString& name);

#pragma once

#include <QTextBrowser>

/// The window that shows the help file. It is no form of the program: going to it and back is
/// like going to another program.
class HelpWindow : public QTextBrowser {
    Q_OBJECT

public:
    HelpWindow();

    /// Loads the file and brings the window to the front.
    void Open(const QString& helpFile);
};

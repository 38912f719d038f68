#include "restore/RunRestore.h"

#include "look/ProgramIcon.h"
#include "look/ProgramStyle.h"
#include "platform/desktop/SystemPrompts.h"
#include "platform/runtime/ProgramFolder.h"
#include "restore/RestoreWindow.h"

#include <QApplication>

int RunRestore(QApplication& application, const QString& programFolder) {
    QApplication::setApplicationName(QStringLiteral("Sparkit Dutygrid Restore"));
    // Desktops look up the window's entry in their menus by it.
    QApplication::setDesktopFileName(QStringLiteral("example.sparkit_dutygrid.DutygridRestore"));
    ApplyProgramStyle(application);
    QApplication::setWindowIcon(ProgramIcon());

    SystemPrompts prompts;
    SetPrompts(&prompts);
    SetProgramFolder(programFolder);
    int exitCode = 0;
    {
        RestoreWindow window;
        window.show();
        exitCode = QApplication::exec();
    }
    SetPrompts(nullptr);
    return exitCode;
}

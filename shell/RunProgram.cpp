#include "shell/RunProgram.h"

#include "accounts/RegisterForms.h"
#include "authoring/RegisterForms.h"
#include "filling/RegisterForms.h"
#include "platform/forms/DefaultForms.h"
#include "platform/forms/ProgramIcon.h"
#include "platform/forms/ProgramStyle.h"
#include "platform/forms/SystemDesktop.h"
#include "platform/forms/SystemPrinter.h"
#include "platform/forms/SystemProgress.h"
#include "platform/forms/SystemPrompts.h"
#include "platform/runtime/Actions.h"
#include "reports/RegisterForms.h"
#include "shell/RegisterForms.h"
#include "shell/session/ProgramRun.h"

#include <QApplication>
#include <QTimer>

namespace {

void Start() {
    RunAction([] {
        // No session can begin after a fault in the start-up.
        WithErrorsEndingTheRun([] { DefaultForm(QStringLiteral("LogIn")).Show(); });
    });
}

} // namespace

int RunProgram(QApplication& application, const QString& programFolder) {
    QApplication::setApplicationName(QStringLiteral("Sparkit Dutygrid"));
    QApplication::setWindowIcon(ProgramIcon());
    // Desktops look up the window's entry in their menus by it.
    QApplication::setDesktopFileName(QStringLiteral("example.sparkit_dutygrid.Dutygrid"));
    // Between two forms there may be no window for a moment; the forms themselves end the process.
    QApplication::setQuitOnLastWindowClosed(false);
    ApplyProgramStyle(application);

    SystemPrompts prompts;
    SystemDesktop desktop;
    SystemPrinter printer;
    const SystemProgress progress;
    const ProgramRun run({.Boxes = &prompts,
                          .Desktop = &desktop,
                          .Paper = &printer,
                          .ProgramFolder = programFolder});
    RegisterShellForms();
    RegisterAccountForms();
    RegisterAuthoringForms();
    RegisterFillingForms();
    RegisterReportForms();

    // Inside the event loop, which an error in the start-up is to end.
    QTimer::singleShot(0, &application, Start);
    const int exitCode = QApplication::exec();

    DropDefaultForms();
    return exitCode;
}

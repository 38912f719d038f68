#include "tests/bench/PaintWatch.h"

#include "authoring/RegisterForms.h"
#include "filling/RegisterForms.h"
#include "platform/forms/DefaultForms.h"
#include "platform/forms/ProgramIcon.h"
#include "platform/forms/ProgramStyle.h"
#include "platform/forms/SystemDesktop.h"
#include "platform/forms/SystemPrinter.h"
#include "platform/forms/SystemPrompts.h"
#include "platform/printing/Printer.h"
#include "platform/runtime/Actions.h"
#include "platform/runtime/Desktop.h"
#include "platform/runtime/ProgramFolder.h"
#include "platform/runtime/Prompts.h"
#include "shell/AccountList.h"
#include "shell/RegisterForms.h"
#include "shell/session/Session.h"

#include <QTimer>

namespace {

/// The log-in form's list of children, filled, is on the screen.
bool IsFilledList(const QWidget& widget) {
    const auto* list = qobject_cast<const AccountList*>(widget.parentWidget());
    return list != nullptr && list->objectName() == QLatin1String("StudentsList") &&
           list->topLevelItemCount() > 0;
}

} // namespace

/// The program's start, step by step as its main does it, on the program folder that is given, up
/// to the moment at which the accounts can be seen.
int main(int argc, char** argv) {
    PaintWatch application(argc, argv, IsFilledList);
    SetProgramFolder(QApplication::arguments().at(1));
    QApplication::setApplicationName(QStringLiteral("Sparkit Dutygrid"));
    QApplication::setWindowIcon(ProgramIcon());
    QApplication::setQuitOnLastWindowClosed(false);
    ApplyProgramStyle(application);

    SystemPrompts prompts;
    SystemDesktop desktop;
    SystemPrinter printer;
    SetPrompts(&prompts);
    SetDesktop(&desktop);
    SetPrintTarget(&printer);
    RegisterShellForms();
    RegisterAuthoringForms();
    RegisterFillingForms();
    QTimer::singleShot(0, &application,
                       [] { RunAction([] { DefaultForm(QStringLiteral("LogIn")).Show(); }); });
    const int exitCode = QApplication::exec();

    DropDefaultForms();
    ResetSession();
    SetPrintTarget(nullptr);
    SetDesktop(nullptr);
    SetPrompts(nullptr);
    return exitCode;
}

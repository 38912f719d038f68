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
#include "platform/printing/Printer.h"
#include "platform/runtime/Actions.h"
#include "platform/runtime/Desktop.h"
#include "platform/runtime/Prompts.h"
#include "reports/RegisterForms.h"
#include "shell/RegisterForms.h"
#include "shell/session/Session.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>

namespace {

/// Gives the windows the program's icon as soon as one has been painted: to read the picture in all
/// its sizes takes as long as to make the log-in.
class IconAfterFirstPaint : public QObject {
public:
    explicit IconAfterFirstPaint(QApplication& application) : QObject(&application) {
        application.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && watched->isWidgetType()) {
            qApp->removeEventFilter(this);
            QTimer::singleShot(0, this, [this] {
                QApplication::setWindowIcon(ProgramIcon());
                deleteLater();
            });
        }
        return false;
    }
};

void Start() {
    RunAction([] {
        // No session can begin after a fault in the start-up.
        WithErrorsEndingTheRun([] { DefaultForm(QStringLiteral("LogIn")).Show(); });
    });
}

} // namespace

int RunProgram(QApplication& application) {
    QApplication::setApplicationName(QStringLiteral("Sparkit Dutygrid"));
    // Desktops look up the window's entry in their menus by it.
    QApplication::setDesktopFileName(QStringLiteral("example.sparkit_dutygrid.Dutygrid"));
    // Between two forms there may be no window for a moment; the forms themselves end the process.
    QApplication::setQuitOnLastWindowClosed(false);
    ApplyProgramStyle(application);
    new IconAfterFirstPaint(application);

    SystemPrompts prompts;
    SystemDesktop desktop;
    SystemPrinter printer;
    const SystemProgress progress;
    SetPrompts(&prompts);
    SetDesktop(&desktop);
    SetPrintTarget(&printer);
    RegisterShellForms();
    RegisterAccountForms();
    RegisterAuthoringForms();
    RegisterFillingForms();
    RegisterReportForms();

    // Inside the event loop, which an error in the start-up is to end.
    QTimer::singleShot(0, &application, Start);
    const int exitCode = QApplication::exec();

    DropDefaultForms();
    ResetSession();
    SetPrintTarget(nullptr);
    SetDesktop(nullptr);
    SetPrompts(nullptr);
    return exitCode;
}

#include "app/RunProgram.h"

#include "app/RegisterForms.h"
#include "help/HelpWindow.h"
#include "look/ProgramIcon.h"
#include "look/ProgramStyle.h"
#include "platform/desktop/SystemDesktop.h"
#include "platform/desktop/SystemProgress.h"
#include "platform/desktop/SystemPrompts.h"
#include "platform/forms/DefaultForms.h"
#include "platform/printer/SystemPrinter.h"
#include "platform/runtime/Actions.h"
#include "session/FormNames.h"
#include "session/ProgramRun.h"
#include "store/PutBack.h"

#include <QApplication>
#include <QDir>
#include <QEvent>
#include <QFontDatabase>
#include <QTimer>
#include <memory>

namespace {

/// An archive brings the fonts of its paper along.
void AddDeliveredFonts() {
    const QDir fonts(QCoreApplication::applicationDirPath() + QStringLiteral("/lib/fonts"));
    for (const QString& font : fonts.entryList({QStringLiteral("*.ttf")}, QDir::Files))
        QFontDatabase::addApplicationFont(fonts.filePath(font));
}

/// Does as soon as a window has been painted what takes long and is not wanted before: to read the
/// program's icon in all its sizes takes as long as to make the log-in.
class AfterFirstPaint : public QObject {
public:
    explicit AfterFirstPaint(QApplication& application) : QObject(&application) {
        application.installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            qApp->removeEventFilter(this);
            QTimer::singleShot(0, qApp, [] {
                QApplication::setWindowIcon(ProgramIcon());
                AddDeliveredFonts();
            });
        }
        return false;
    }
};

void Start(std::unique_ptr<FolderUse>& data) {
    RunAction([&] {
        // No session can begin after a fault in the start-up.
        WithErrorsEndingTheRun([&] {
            data = UseData();
            DefaultForm(FormNames::LogIn).Show();
        });
    });
}

} // namespace

int RunProgram(QApplication& application, const QString& programFolder) {
    QApplication::setApplicationName(QStringLiteral("Sparkit Dutygrid"));
    // Desktops look up the window's entry in their menus by it.
    QApplication::setDesktopFileName(QStringLiteral("example.sparkit_dutygrid.Dutygrid"));
    // Between two forms there may be no window for a moment; the forms themselves end the process.
    QApplication::setQuitOnLastWindowClosed(false);
    ApplyProgramStyle(application);
    new AfterFirstPaint(application);

    SystemPrompts prompts;
    std::unique_ptr<HelpWindow> help;
    SystemDesktop desktop(
        [&help](const QString& helpFile) {
            if (!help)
                help = std::make_unique<HelpWindow>();
            help->Open(helpFile);
        },
        programFolder + QStringLiteral("/Backgrounds"));
    SystemPrinter printer;
    const SystemProgress progress;
    const ProgramRun run({.Boxes = &prompts,
                          .Desktop = &desktop,
                          .Paper = &printer,
                          .ProgramFolder = programFolder,
                          .KeepsDailyCopies = true});
    RegisterForms();

    std::unique_ptr<FolderUse> data;
    // Inside the event loop, which an error in the start-up is to end.
    QTimer::singleShot(0, &application, [&data] { Start(data); });
    const int exitCode = QApplication::exec();

    DropDefaultForms();
    return exitCode;
}

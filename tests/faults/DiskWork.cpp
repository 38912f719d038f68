#include "tests/faults/DiskWork.h"

#include "platform/runtime/Actions.h"
#include "session/Session.h"
#include "store/DailyCopies.h"
#include "store/PutBack.h"
#include "tests/common/Scripted.h"
#include "tests/common/TestRun.h"
#include "tests/faults/ChildProcess.h"

#include <QCoreApplication>

int DoDiskWork(const QString& folder, const QString& work) {
    RecordingPrompts boxes;
    const TestRun run({.Boxes = &boxes, .ProgramFolder = folder, .KeepsDailyCopies = true});
    if (work == PutBackWork) {
        RunAction([] { PutCopyBack(WorkDay); });
    } else {
        RunAction([] { Database().InitDatabse(); });
        if (work == ChangeWork)
            RunAction([] {
                Database().AddUser(QStringLiteral("Ben"), QStringLiteral("b"),
                                   QStringLiteral("Student"), QString());
            });
    }
    if (boxes.Errors().isEmpty())
        ReportToParent(1);
    FinishDailyCopy();
    // What there is to tell of the copy is told when the program has nothing else to do.
    QCoreApplication::processEvents();
    return boxes.Shown.isEmpty() ? 0 : LargeFault;
}

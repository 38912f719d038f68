#include "platform/runtime/ProgramFolder.h"
#include "tests/faults/ChildProcess.h"
#include "tests/faults/FaultWorld.h"
#include "tests/faults/Household.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QGuiApplication>
#include <QLocale>
#include <QThread>
#include <iostream>

namespace {

/// Plays a household without end, from a given action on; reports the number of each action once
/// it is done. Ends only if an action fails.
int Play(const QStringList& arguments) {
    RecordingPrompts boxes;
    QLocale::setDefault(QLocale::c());
    SetPrompts(&boxes);
    SetProgramFolder(arguments.at(0));
    Database().InitDatabse();
    Household household(arguments.at(2).toUInt(), arguments.at(1));
    int number = arguments.at(3).toInt();
    ReportToParent(number - 1);
    for (; boxes.Errors().isEmpty(); ++number) {
        household.Do(number);
        ReportToParent(number);
    }
    std::cerr << "action " << number << ": " << qPrintable(boxes.Errors().constFirst()) << '\n';
    return 3;
}

/// Keeps a write lock on a file for some time (milliseconds) and has written one row then.
/// Reports once the lock is held.
int Hold(const QStringList& arguments) {
    SQLite::Database database(arguments.at(0).toUtf8().constData(), SQLite::OPEN_READWRITE, 5000);
    database.exec(arguments.at(1).toUtf8().constData());
    database.exec("INSERT INTO USERS(Name, Points, State) VALUES('Other copy', 7, 'Student')");
    ReportToParent(1);
    QThread::msleep(arguments.at(2).toULong());
    database.exec("COMMIT");
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (argc > 1 &&
        (PlayCommand == QLatin1String(argv[1]) || HoldCommand == QLatin1String(argv[1]))) {
        EndWithParent();
        // No windows: a start without them takes a third of the time.
        const QCoreApplication application(argc, argv);
        const QStringList arguments = QCoreApplication::arguments();
        return arguments.at(1) == PlayCommand ? Play(arguments.mid(2)) : Hold(arguments.mid(2));
    }
    const QGuiApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

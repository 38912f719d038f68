#include "tests/faults/ChildProcess.h"
#include "tests/faults/DiskWork.h"
#include "tests/faults/FaultWorld.h"
#include "tests/faults/Household.h"
#include "tests/faults/SmallFiles.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QGuiApplication>
#include <QThread>
#include <iostream>
#include <limits>

namespace {

/// The number of the last thing to do.
int LastOf(const QStringList& arguments, qsizetype position) {
    return position < arguments.size() ? arguments.at(position).toInt()
                                       : std::numeric_limits<int>::max();
}

/// Plays a household from a given action on, to a given one or without end; reports the number of
/// each action once it is done. Ends if an action fails.
int Play(const QStringList& arguments) {
    RecordingPrompts boxes;
    const TestRun run({.Boxes = &boxes, .ProgramFolder = arguments.at(0)});
    Database().InitDatabse();
    Household household(arguments.at(2).toUInt(), arguments.at(1));
    int number = arguments.at(3).toInt();
    const int last = LastOf(arguments, 4);
    ReportToParent(number - 1);
    for (; boxes.Errors().isEmpty(); ++number) {
        if (number > last)
            return 0;
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
    // The next row of the accounts' table.
    database.exec("INSERT INTO Rows1(Key, Name, Points, State)"
                  " SELECT max(Key) + 1, 'Other copy', 7, 'Student' FROM Rows1"
                  " WHERE Key >> 32 = (SELECT Id FROM Catalogue WHERE Name = 'USERS')");
    ReportToParent(1);
    QThread::msleep(arguments.at(2).toULong());
    database.exec("COMMIT");
    return 0;
}

/// Rewrites the small files of a folder to a given state or without end; reports the number of each
/// state once it is written.
int Rewrite(const QStringList& arguments) {
    const TestRun run({.ProgramFolder = arguments.at(0)});
    const SmallFiles files(arguments.at(0));
    const int last = LastOf(arguments, 1);
    try {
        for (int number = 1; number <= last; ++number) {
            files.Write(number);
            ReportToParent(number);
        }
    } catch (const RuntimeError& error) {
        return error.Number() > 255 ? LargeFault : error.Number();
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QString command = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    if (command == PlayCommand || command == HoldCommand || command == RewriteCommand ||
        command == WorkCommand) {
        EndWithParent();
        // No windows: a start without them takes a third of the time.
        const QCoreApplication application(argc, argv);
        const QStringList arguments = QCoreApplication::arguments().mid(2);
        return command == PlayCommand   ? Play(arguments)
               : command == HoldCommand ? Hold(arguments)
               : command == WorkCommand ? DoDiskWork(arguments.at(0), arguments.at(1))
                                        : Rewrite(arguments);
    }
    const QGuiApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

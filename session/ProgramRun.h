#pragma once

#include <QDate>
#include <QString>
#include <functional>

class Desktop;
class PrintTarget;
class Prompts;

/// What a run of the program finds around it. Whatever it points to must outlive the run; what is
/// left out raises at its first use.
struct Surroundings {
    Prompts* Boxes = nullptr;
    class Desktop* Desktop = nullptr;
    PrintTarget* Paper = nullptr;
    /// "": the folder of the executable.
    QString ProgramFolder{};
    /// Invalid: the day of the system's clock.
    QDate Today{};
    /// A copy of what is stored is made before the first change of each day.
    bool KeepsDailyCopies = false;
    /// What ends the process in place of leaving its event loops.
    std::function<void(int exitCode)> End{};
};

/// A run of the program: begins with an empty session, and leaves nothing of it or its surroundings
/// behind. One at a time; the forms are registered anew for each.
class ProgramRun {
public:
    explicit ProgramRun(const Surroundings& surroundings);
    ~ProgramRun();
    ProgramRun(const ProgramRun&) = delete;
    ProgramRun& operator=(const ProgramRun&) = delete;
};

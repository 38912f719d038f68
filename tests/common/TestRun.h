#pragma once

#include "session/ProgramRun.h"

#include <QFile>
#include <QLocale>

/// A run of the program in a test: on Wednesday 7 March 2001, in the C locale, by a user of the
/// machine who has never run it.
class TestRun {
public:
    explicit TestRun(Surroundings surroundings)
        : run_((surroundings.Today = QDate(2001, 3, 7), surroundings)) {
        QLocale::setDefault(QLocale::c());
        qputenv("XDG_CONFIG_HOME",
                QFile::encodeName(surroundings.ProgramFolder + QStringLiteral("/UserConfig")));
    }

private:
    ProgramRun run_;
};

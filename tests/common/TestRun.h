#pragma once

#include "session/ProgramRun.h"
#include "tests/common/EnvironmentVariable.h"

#include <QFile>
#include <QLocale>
#include <QSettings>

/// In milliseconds: so long a test waits for what a busy machine may be slow to do.
constexpr int Patience = 20000;

/// A run of the program in a test: on Wednesday 7 March 2001, in the C locale, by a user of the
/// machine who has never run it.
class TestRun {
public:
    explicit TestRun(const Surroundings& surroundings)
        : userConfig_("XDG_CONFIG_HOME", QFile::encodeName(surroundings.ProgramFolder +
                                                           QStringLiteral("/UserConfig"))),
          run_(OnTheDay(surroundings)) {
        QLocale::setDefault(QLocale::c());
        // The toolkit looks for the folder of its own settings but once.
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                           surroundings.ProgramFolder + QStringLiteral("/UserConfig"));
    }
    ~TestRun() { QLocale::setDefault(formerLocale_); }
    Q_DISABLE_COPY_MOVE(TestRun)

private:
    static Surroundings OnTheDay(Surroundings surroundings) {
        surroundings.Today = QDate(2001, 3, 7);
        return surroundings;
    }

    QLocale formerLocale_;
    EnvironmentVariable userConfig_;
    ProgramRun run_;
};

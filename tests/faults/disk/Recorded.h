#pragma once

#include <QString>
#include <QStringList>

/// The environment of a process whose changes of the files in a folder go through the recorder.
inline QStringList RecordedIn(const QString& folder) {
    return {QStringLiteral("LD_PRELOAD=" DUTYGRID_DISK_RECORDER),
            // A library before its own is nothing that the sanitizer need warn of.
            QStringLiteral("ASAN_OPTIONS=verify_asan_link_order=0"),
            QStringLiteral("DUTYGRID_DISK_FOLDER=") + folder};
}

/// The same, noting each call in a file.
inline QStringList RecordedTo(const QString& file, const QString& folder) {
    return RecordedIn(folder) + QStringList{QStringLiteral("DUTYGRID_DISK_RECORD=") + file};
}

/// The same, killed before call `moment / 2` (0 the first), or after it where `moment` is odd.
inline QStringList KilledAt(int moment, const QString& folder) {
    return RecordedIn(folder) + QStringList{QStringLiteral("DUTYGRID_DISK_KILL=%1").arg(moment)};
}

/// The same, in which one call (0 the first), or all from it on, fail by a number of <cerrno>.
inline QStringList FailingAt(int call, int error, bool stays, const QString& folder) {
    return RecordedIn(folder) + QStringList{QStringLiteral("DUTYGRID_DISK_FAIL=%1").arg(call),
                                            QStringLiteral("DUTYGRID_DISK_ERROR=%1").arg(error),
                                            QStringLiteral("DUTYGRID_DISK_STAYS=%1").arg(stays)};
}

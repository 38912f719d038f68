#include "platform/runtime/ProgramFolder.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

namespace {

QString& ChosenFolder() {
    static QString folder;
    return folder;
}

/// Where the system tells it, it is known before there is an application.
QString FolderOfExecutable() {
    const QString executable = QFile::symLinkTarget(QStringLiteral("/proc/self/exe"));
    return executable.isEmpty() ? QCoreApplication::applicationDirPath()
                                : QFileInfo(executable).path();
}

} // namespace

QString ProgramFolder() {
    return ChosenFolder().isEmpty() ? FolderOfExecutable() : ChosenFolder();
}

void SetProgramFolder(const QString& folder) {
    ChosenFolder() = folder;
}

QString InProgramFolder(const QString& tail) {
    return ProgramFolder() + QLatin1Char('/') + tail;
}

#include "platform/runtime/ProgramFolder.h"

#include <QCoreApplication>

namespace {

QString& ChosenFolder() {
    static QString folder;
    return folder;
}

} // namespace

QString ProgramFolder() {
    return ChosenFolder().isEmpty() ? QCoreApplication::applicationDirPath() : ChosenFolder();
}

void SetProgramFolder(const QString& folder) {
    ChosenFolder() = folder;
}

QString InProgramFolder(const QString& tail) {
    return ProgramFolder() + QLatin1Char('/') + tail;
}

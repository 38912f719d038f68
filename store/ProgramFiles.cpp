#include "store/ProgramFiles.h"

#include "platform/runtime/ProgramFolder.h"

#include <QDir>
#include <QFileInfo>

QString DatabaseFile() {
    return InProgramFolder(QStringLiteral("Database/Charts.mdb"));
}

QString SettingsFile() {
    return InProgramFolder(QStringLiteral("Settings/Settings.txt"));
}

QStringList SettingsAndJobLists() {
    QStringList files;
    // What a link leads to may be meant for nobody else's eyes.
    const QFileInfo settings(SettingsFile());
    if (settings.isFile() && !settings.isSymLink())
        files += SettingsFile();
    const QDir jobs(InProgramFolder(QStringLiteral("Jobs")));
    for (const QString& name :
         jobs.entryList({QStringLiteral("*.dat")}, QDir::Files | QDir::NoSymLinks))
        files += jobs.filePath(name);
    return files;
}

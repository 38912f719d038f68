#include "tests/faults/FaultWorld.h"

#include "store/NewDatabase.h"

#include <QDir>

QString ChartsFile(const QString& programFolder) {
    return programFolder + QStringLiteral("/Database/Charts.mdb");
}

void MakeEmptyDatabase(const QString& programFolder) {
    QDir(programFolder).mkpath(QStringLiteral("Database"));
    MakeSeedDatabase(ChartsFile(programFolder));
}

FaultTest::FaultTest() {
    MakeEmptyDatabase(Folder());
}

#include "tests/faults/FaultWorld.h"

#include "store/NewDatabase.h"

#include <QDir>
#include <QFile>

QString ChartsFile(const QString& programFolder) {
    return programFolder + QStringLiteral("/Database/Charts.mdb");
}

void MakeEmptyDatabase(const QString& programFolder) {
    QDir(programFolder).mkpath(QStringLiteral("Database"));
    MakeSeedDatabase(ChartsFile(programFolder));
}

QByteArray BytesOf(const QString& file) {
    QFile input(file);
    EXPECT_TRUE(input.open(QIODevice::ReadOnly)) << file.toStdString();
    return input.readAll();
}

void WriteBytes(const QString& file, const QByteArray& bytes) {
    QFile output(file);
    ASSERT_TRUE(output.open(QIODevice::WriteOnly | QIODevice::Truncate)) << file.toStdString();
    ASSERT_EQ(output.write(bytes), bytes.size());
}

FaultTest::FaultTest() {
    MakeEmptyDatabase(Folder());
}

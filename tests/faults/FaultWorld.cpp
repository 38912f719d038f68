#include "tests/faults/FaultWorld.h"

#include "platform/runtime/Dates.h"
#include "platform/runtime/ProgramFolder.h"
#include "platform/tables/TableStore.h"
#include "session/Session.h"
#include "store/TableNames.h"

#include <QDir>
#include <QFile>
#include <QLocale>

QString ChartsFile(const QString& programFolder) {
    return programFolder + QStringLiteral("/Database/Charts.mdb");
}

void MakeEmptyDatabase(const QString& programFolder) {
    QDir(programFolder).mkpath(QStringLiteral("Database"));
    const auto database = TableStore::CreateDatabase(
        ChartsFile(programFolder), QStringLiteral(";LANGID=0x0409;CP=1252;COUNTRY=0"));
    database->CreateTable(UsersTable, UsersTableFields());
    database->Commit();
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
    QLocale::setDefault(QLocale::c());
    SetToday(QDate(2001, 3, 7));
    SetPrompts(&Boxes);
    MakeEmptyDatabase(Folder());
    SetProgramFolder(Folder());
    ResetSession();
}

FaultTest::~FaultTest() {
    ResetSession();
    SetPrompts(nullptr);
    SetProgramFolder(QString());
    SetToday(QDate());
}

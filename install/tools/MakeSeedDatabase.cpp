// Makes the database that is delivered: the accounts' table, without an account.
//
// Usage: MakeSeedDatabase <file>

#include "platform/tables/TableStore.h"
#include "store/TableNames.h"

#include <QFile>
#include <QTextStream>

int main(int argc, char** argv) {
    if (argc != 2) {
        QTextStream(stderr) << "usage: MakeSeedDatabase <file>\n";
        return 2;
    }
    const QString path = QString::fromLocal8Bit(argv[1]);
    QFile::remove(path);
    try {
        const auto tables =
            TableStore::CreateDatabase(path, QStringLiteral(";LANGID=0x0409;CP=1252;COUNTRY=0"));
        tables->CreateTable(UsersTable, UsersTableFields());
        tables->Commit();
    } catch (const std::exception& error) {
        QTextStream(stderr) << error.what() << '\n';
        return 1;
    }
    return 0;
}

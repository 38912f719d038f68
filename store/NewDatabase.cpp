#include "store/NewDatabase.h"

#include "store/TableNames.h"

std::unique_ptr<TableStore> MakeDatabase(const QString& path) {
    return TableStore::CreateDatabase(path, QStringLiteral(";LANGID=0x0409;CP=1252;COUNTRY=0"));
}

void MakeSeedDatabase(const QString& path) {
    const std::unique_ptr<TableStore> tables = MakeDatabase(path);
    tables->CreateTable(UsersTable, UsersTableFields());
    tables->Commit();
}

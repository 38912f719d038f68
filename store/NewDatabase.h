#pragma once

#include "platform/tables/TableStore.h"

/// Makes a database without tables, as the program does where it finds none. Raises 3000.
std::unique_ptr<TableStore> MakeDatabase(const QString& path);

/// Makes the database that is delivered: the accounts' table, without an account. Raises 3000.
void MakeSeedDatabase(const QString& path);

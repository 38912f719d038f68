#pragma once

#include "platform/tables/TableStore.h"

#include <QList>
#include <QString>

/// The accounts' table.
inline const QString UsersTable = QStringLiteral("USERS");

/// Raises 5 for the name of the accounts' table, in any case as table names ignore it: no chart
/// may make, replace, copy or drop that table.
void RefuseAccountsName(const QString& chartName);

/// The fields of a chart table, in order.
QList<FieldDefinition> ChartTableFields();

/// The fields of the accounts' table, in order. The program itself never makes this table: it is
/// delivered with the database.
QList<FieldDefinition> UsersTableFields();

/// The first four characters of a table's name, which tell its kind.
QStringView KindPrefix(const QString& tableName);

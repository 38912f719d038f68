#pragma once

#include "platform/tables/TableStore.h"

#include <QList>
#include <QString>

/// The accounts' table.
inline const QString UsersTable = QStringLiteral("USERS");

/// The fields of a chart table, in order.
QList<FieldDefinition> ChartTableFields();

/// The fields of the accounts' table, in order. The program itself never makes this table: it is
/// delivered with the database.
QList<FieldDefinition> UsersTableFields();

/// The first four characters of a table's name, which tell its kind.
QString KindPrefix(const QString& tableName);

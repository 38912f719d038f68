#pragma once

#include "platform/tables/TableStore.h"

#include <QList>
#include <QString>
#include <QStringList>

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

/// What a table is; its name alone tells it. Case counts.
enum class TableKind {
    System,   ///< the engine's own: begins with "MSys"
    Accounts, ///< UsersTable, as it stands
    History,  ///< a past week: begins with "Hist"
    Printed,  ///< what the editor prints from: begins with "Prin"
    Chart     ///< all else
};
TableKind KindOf(const QString& tableName);

/// The kinds that a list, or a look through all tables, takes. They differ on purpose.
bool IsChart(const QString& tableName);
bool IsHistory(const QString& tableName);
/// The charts of one account for its reports: what has been printed is among them.
bool IsChartOrPrinted(const QString& tableName);
/// What can belong to an account, and goes with it.
bool IsOwned(const QString& tableName);
/// What has a first and a last day: a chart whose name begins with "USER" does not count as one.
bool HasPeriod(const QString& tableName);

/// The history table of the chart for the week that begins with this date text.
QString HistoryName(const QString& chartName, const QString& firstDate);

/// The table that the editor prints from; also who owns it.
inline const QString PrintedTable = QStringLiteral("Printed");

/// In the place of a report's first table: all history tables of the child.
inline const QString AllHistory = QStringLiteral("All");
/// True if the names of a report's tables mean that. Raises 9 if there is not even one.
bool MeansAllHistory(const QStringList& chartNames);

/// The text up to the first blank: of a chart's name, what it is called for every child.
QString FirstWord(const QString& text);

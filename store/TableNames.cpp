#include "store/TableNames.h"

#include "platform/runtime/RuntimeError.h"

void RefuseAccountsName(const QString& chartName) {
    if (chartName.toCaseFolded() == UsersTable.toCaseFolded())
        throw RuntimeError(ErrorNumber::InvalidProcedureCall,
                           QStringLiteral("The name \"%1\" is kept for the accounts. Please give "
                                          "the Dutygrid another one.")
                               .arg(chartName));
}

QList<FieldDefinition> ChartTableFields() {
    return {
        {QStringLiteral("Instructions"), FieldType::Memo},
        {QStringLiteral("DayOfWeek"), FieldType::Text},
        {QStringLiteral("AdultResponsable"), FieldType::Text},
        {QStringLiteral("Difficuly"), FieldType::Text},
        {QStringLiteral("Points"), FieldType::Long},
        {QStringLiteral("Completed"), FieldType::Boolean},
        {QStringLiteral("FirstDate"), FieldType::Date},
        {QStringLiteral("LastDate"), FieldType::Date},
        {QStringLiteral("UserName"), FieldType::Text},
        {QStringLiteral("AutoCreate"), FieldType::Boolean},
    };
}

QList<FieldDefinition> UsersTableFields() {
    // Name stands at position 1 and State at position 4: both are also reached by position.
    return {
        {QStringLiteral("Image"), FieldType::LongBinary},
        {QStringLiteral("Name"), FieldType::Text, 50},
        {QStringLiteral("Password"), FieldType::Text, 50},
        {QStringLiteral("Points"), FieldType::Long},
        {QStringLiteral("State"), FieldType::Text, 50},
        {QStringLiteral("IncentiveName"), FieldType::Text},
        {QStringLiteral("IncentiveCost"), FieldType::Long},
        {QStringLiteral("IncentivePicture"), FieldType::LongBinary},
    };
}

TableKind KindOf(const QString& tableName) {
    const QStringView prefix = QStringView(tableName).left(4);
    if (prefix == QLatin1String("MSys"))
        return TableKind::System;
    if (prefix == QLatin1String("Hist"))
        return TableKind::History;
    if (prefix == QLatin1String("Prin"))
        return TableKind::Printed;
    return tableName == UsersTable ? TableKind::Accounts : TableKind::Chart;
}

bool IsChart(const QString& tableName) {
    return KindOf(tableName) == TableKind::Chart;
}

bool IsHistory(const QString& tableName) {
    return KindOf(tableName) == TableKind::History;
}

bool IsChartOrPrinted(const QString& tableName) {
    const TableKind kind = KindOf(tableName);
    return kind == TableKind::Chart || kind == TableKind::Printed;
}

bool IsOwned(const QString& tableName) {
    const TableKind kind = KindOf(tableName);
    return kind != TableKind::System && kind != TableKind::Accounts;
}

bool HasPeriod(const QString& tableName) {
    return KindOf(tableName) != TableKind::System && !tableName.startsWith(QLatin1String("USER"));
}

QString HistoryName(const QString& chartName, const QString& firstDate) {
    return QStringLiteral("History ") + chartName + QStringLiteral(" from: ") + firstDate;
}

bool MeansAllHistory(const QStringList& chartNames) {
    if (chartNames.isEmpty())
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return chartNames.first() == AllHistory;
}

QString FirstWord(const QString& text) {
    return text.section(QLatin1Char(' '), 0, 0);
}

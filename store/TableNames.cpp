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

QStringView KindPrefix(const QString& tableName) {
    return QStringView(tableName).left(4);
}

#include "store/TableNames.h"

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

QString KindPrefix(const QString& tableName) {
    return tableName.left(4);
}

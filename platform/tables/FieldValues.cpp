#include "platform/tables/FieldValues.h"

#include "platform/runtime/Dates.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/RuntimeError.h"

#include <QDate>
#include <QDateTime>
#include <algorithm>
#include <cmath>

namespace {

bool IsNull(const QVariant& value) {
    return !value.isValid() || value.metaType().id() == QMetaType::Nullptr;
}

double NumberOf(const QVariant& value) {
    switch (value.metaType().id()) {
    case QMetaType::Bool:
        return value.toBool() ? -1 : 0;
    case QMetaType::QString: {
        bool isNumber = false;
        const double number = value.toString().toDouble(&isNumber);
        if (!isNumber || !std::isfinite(number))
            throw RuntimeError(ErrorNumber::TypeMismatch);
        return number;
    }
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
        return value.toDouble();
    default:
        throw RuntimeError(ErrorNumber::TypeMismatch);
    }
}

bool TruthOf(const QVariant& value) {
    if (value.metaType().id() == QMetaType::QString) {
        const QString text = value.toString();
        if (text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0)
            return true;
        if (text.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0)
            return false;
    }
    return NumberOf(value) != 0;
}

Cell DateCell(const QVariant& value) {
    QDate date;
    switch (value.metaType().id()) {
    case QMetaType::QDate:
    case QMetaType::QDateTime:
        date = value.toDate();
        if (date.isNull())
            return {};
        break;
    case QMetaType::QString:
        date = DateFromText(value.toString());
        break;
    default:
        throw RuntimeError(ErrorNumber::TypeMismatch);
    }
    // The stored form has four digits for the year.
    if (date.year() < 1 || date.year() > 9999)
        throw RuntimeError(ErrorNumber::Overflow);
    return date.toString(Qt::ISODate).toStdString();
}

Cell TextCell(const FieldDefinition& field, const QVariant& value) {
    const QString text = TextOf(value);
    if (field.Type == FieldType::Text && text.size() > field.Size)
        throw RuntimeError(ErrorNumber::FieldTooSmall);
    return text.toStdString();
}

qint64 WholeNumber(const Cell& cell) {
    if (const qint64* number = std::get_if<qint64>(&cell))
        return *number;
    throw RuntimeError(ErrorNumber::TypeMismatch);
}

QString StoredText(const Cell& cell) {
    if (const std::string* text = std::get_if<std::string>(&cell))
        return QString::fromStdString(*text);
    throw RuntimeError(ErrorNumber::TypeMismatch);
}

} // namespace

std::string DeclaredType(const FieldDefinition& field) {
    switch (field.Type) {
    case FieldType::Boolean:
        return "BOOLEAN INTEGER";
    case FieldType::Long:
        return "LONG INTEGER";
    case FieldType::Date:
        return "DATE TEXT";
    case FieldType::Text:
        return "TEXT(" + std::to_string(field.Size) + ")";
    case FieldType::LongBinary:
        return "LONGBINARY BLOB";
    case FieldType::Memo:
        break;
    }
    return "MEMO TEXT";
}

std::optional<FieldDefinition> DeclaredField(const QString& name, const QString& declaredType) {
    for (const FieldType type : {FieldType::Boolean, FieldType::Long, FieldType::Date,
                                 FieldType::LongBinary, FieldType::Memo}) {
        const FieldDefinition field{name, type};
        if (declaredType == QLatin1String(DeclaredType(field).c_str()))
            return field;
    }
    // A regular expression that finds no memory matches nothing, as if the table were damaged.
    constexpr QLatin1String before("TEXT(");
    constexpr QLatin1String behind(")");
    constexpr qsizetype mostDigits = 9;
    if (!declaredType.startsWith(before) || !declaredType.endsWith(behind))
        return std::nullopt;
    const QStringView size = QStringView(declaredType).mid(before.size()).chopped(behind.size());
    const bool isNumber = !size.isEmpty() && size.size() <= mostDigits &&
                          std::all_of(size.begin(), size.end(),
                                      [](QChar digit) { return digit >= u'0' && digit <= u'9'; });
    return isNumber ? std::optional(FieldDefinition{name, FieldType::Text, size.toInt()})
                    : std::nullopt;
}

Cell InitialCell(const FieldDefinition& field) {
    if (field.Type == FieldType::Boolean)
        return qint64{0};
    return {};
}

Cell CellFor(const FieldDefinition& field, const QVariant& value) {
    if (IsNull(value)) {
        if (field.Type == FieldType::Boolean)
            throw RuntimeError(ErrorNumber::InvalidUseOfNull);
        return {};
    }
    switch (field.Type) {
    case FieldType::Boolean:
        return qint64{TruthOf(value) ? -1 : 0};
    case FieldType::Long:
        return qint64{ToLong(NumberOf(value))};
    case FieldType::Date:
        return DateCell(value);
    case FieldType::Text:
    case FieldType::Memo:
        return TextCell(field, value);
    case FieldType::LongBinary:
        break;
    }
    throw RuntimeError(ErrorNumber::TypeMismatch);
}

QVariant ValueOf(const FieldDefinition& field, const Cell& cell) {
    if (std::holds_alternative<std::monostate>(cell))
        return field.Type == FieldType::Boolean ? QVariant(false) : QVariant();
    switch (field.Type) {
    case FieldType::Boolean:
        return WholeNumber(cell) != 0;
    case FieldType::Long:
        return ToLong(static_cast<double>(WholeNumber(cell)));
    case FieldType::Date: {
        const QDate date = QDate::fromString(StoredText(cell), Qt::ISODate);
        if (!date.isValid())
            throw RuntimeError(ErrorNumber::TypeMismatch);
        return date;
    }
    case FieldType::Text:
    case FieldType::Memo:
        return StoredText(cell);
    case FieldType::LongBinary:
        break;
    }
    throw RuntimeError(ErrorNumber::TypeMismatch);
}

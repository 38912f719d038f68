#include "platform/runtime/Numbers.h"

#include "platform/runtime/Dates.h"
#include "platform/runtime/RuntimeError.h"

#include <QRegularExpression>
#include <algorithm>
#include <cmath>
#include <limits>
#include <new>

namespace {

template <class Whole>
Whole RoundedTo(double value) {
    // nearbyint rounds a half to even in the default rounding mode, which nothing here changes.
    const double rounded = std::nearbyint(value);
    if (!(rounded >= static_cast<double>(std::numeric_limits<Whole>::min()) &&
          rounded <= static_cast<double>(std::numeric_limits<Whole>::max())))
        throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<Whole>(rounded);
}

qint16 Checked(int value) {
    return RoundedTo<qint16>(value);
}

void RefuseNull(const QVariant& value) {
    if (value.isNull())
        throw RuntimeError(ErrorNumber::InvalidUseOfNull);
}

double NumberOf(const QVariant& value) {
    RefuseNull(value);
    if (value.metaType().id() == QMetaType::Bool)
        return value.toBool() ? -1 : 0;
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    // The platform reads "inf" and "nan" as numbers.
    if (!isNumber || !std::isfinite(number))
        throw RuntimeError(ErrorNumber::TypeMismatch);
    return number;
}

} // namespace

double Val(const QString& text) {
    // Dates as keys are read by the thousand.
    constexpr qsizetype mostDigits = 9;
    const auto isDigit = [](QChar letter) { return letter >= u'0' && letter <= u'9'; };
    if (text.size() <= mostDigits && std::all_of(text.begin(), text.end(), isDigit))
        return text.toInt();
    static const QRegularExpression number(
        QStringLiteral(R"(^[ \t\n]*([+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+)(?:[eEdD][+-]?[0-9]+)?))"));
    // Half an emoji behind the number would make all of it a text that nothing matches.
    const auto isOther = [](QChar letter) {
        return !QStringView(u" \t\n0123456789+-.eEdD").contains(letter);
    };
    const auto end = std::find_if(text.begin(), text.end(), isOther);
    const QRegularExpressionMatch match = number.match(text.left(end - text.begin()));
    // Without memory nothing matches, which must not be read as 0.
    if (!match.isValid())
        throw std::bad_alloc();
    if (!match.hasMatch())
        return 0;
    QString digits = match.captured(1);
    digits.replace(QLatin1Char('d'), QLatin1Char('e'), Qt::CaseInsensitive);
    return digits.toDouble();
}

qint16 ToInteger(double value) {
    return RoundedTo<qint16>(value);
}

qint32 ToLong(double value) {
    return RoundedTo<qint32>(value);
}

qint16 AddIntegers(qint16 left, qint16 right) {
    return Checked(int{left} + int{right});
}

qint16 MultiplyIntegers(qint16 left, qint16 right) {
    return Checked(int{left} * int{right});
}

QString NumberText(double value) {
    return QString::number(value, 'g', 15);
}

QString TextOf(const QVariant& value) {
    RefuseNull(value);
    switch (value.metaType().id()) {
    case QMetaType::QDate:
        return DateText(value.toDate());
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    case QMetaType::Double:
        return NumberText(value.toDouble());
    default:
        return value.toString();
    }
}

qint16 IntegerOf(const QVariant& value) {
    return ToInteger(NumberOf(value));
}

qint32 LongOf(const QVariant& value) {
    return ToLong(NumberOf(value));
}

QDate DateOf(const QVariant& value) {
    RefuseNull(value);
    if (value.metaType().id() == QMetaType::QDate)
        return value.toDate();
    return DateFromText(value.toString());
}

bool BooleanOf(const QVariant& value) {
    RefuseNull(value);
    return value.toBool();
}

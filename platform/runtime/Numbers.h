#pragma once

#include <QString>
#include <QVariant>
#include <QtGlobal>

/// The number at the start of `text` (blanks before it skipped; sign, digits, point, exponent),
/// the longest that can be read; 0 if there is none. Never fails.
double Val(const QString& text);

/// `value` as a 16-bit integer, a half rounded to the even neighbour. Raises 6 out of range.
qint16 ToInteger(double value);

/// `value` as a 32-bit integer, a half rounded to the even neighbour. Raises 6 out of range.
qint32 ToLong(double value);

/// Sum in 16-bit arithmetic. Raises 6 on overflow.
qint16 AddIntegers(qint16 left, qint16 right);

/// Product in 16-bit arithmetic. Raises 6 on overflow.
qint16 MultiplyIntegers(qint16 left, qint16 right);

/// `value` as text, a whole number without a point: 3 gives "3", 2.5 gives "2.5".
QString NumberText(double value);

/// A field's value as text: a date in the short form, a number as by NumberText.
/// Raises 94 for a Null.
QString TextOf(const QVariant& value);

/// A field's value as a 16-bit integer. Raises 94 for a Null, 13 for text that is no number,
/// 6 out of range.
qint16 IntegerOf(const QVariant& value);

/// Likewise as a 32-bit integer.
qint32 LongOf(const QVariant& value);

/// A field's value as a date. Raises 94 for a Null, 13 for text that is no date.
QDate DateOf(const QVariant& value);

/// A field's value as a boolean. Raises 94 for a Null.
bool BooleanOf(const QVariant& value);

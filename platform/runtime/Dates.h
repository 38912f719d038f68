#pragma once

#include <QDate>
#include <QString>

/// Today by the program's clock.
QDate Today();

/// Puts another clock in the place of the machine's; for tests and demonstrations.
/// An invalid date gives the machine's clock back.
void SetToday(const QDate& date);

/// The system's short date text, the year always with four digits; M/d/yyyy in the C locale.
QString DateText(const QDate& date);

/// Reads what DateText writes. Raises 13 for anything else.
QDate DateFromText(const QString& text);

/// The date as eight digits, year, month, day, for comparing dates.
QString DateKey(const QDate& date);

/// The weekday's name in full, in English on every system: "Sunday". "" for an invalid date.
QString WeekdayName(const QDate& date);

/// "Sun" to "Sat" for the days 1 to 7, whatever the system's language. Raises 9 for other numbers.
QString DayAbbreviation(int day);

/// "Sunday" to "Saturday" for "Sun" to "Sat", whatever the system's language; "" for other texts.
QString FullDayName(const QString& abbreviation);

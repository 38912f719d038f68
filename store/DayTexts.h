#pragma once

#include <QString>
#include <QStringList>

/// The days on which a job is to be done, as charts have them: "Sun" to "Sat" (DayAbbreviation),
/// or a range of them.
inline const QString MondayToFriday = QStringLiteral("Mon-Fri");
inline const QString SundayToSaturday = QStringLiteral("Sun-Sat");
inline constexpr int DaysOfWeek = 7;

/// True for a range. Charts saved by the editor hold none, yet a range is understood wherever rows
/// are looked up by their day.
bool IsRange(const QString& dayText);

/// The days of a range, in the week's order from Sunday on; any other text itself.
QStringList DaysOf(const QString& dayText);

/// True if a row with this text is to be done on the day. A range falls on all seven, the weekend
/// too.
bool FallsOn(const QString& dayText, const QString& day);

/// 1 to 7 for "Sun" to "Sat"; 0 for any other text, a range included: the weekly review, unlike
/// the paper, does not spread it over its days.
int SingleDayNumber(const QString& dayText);

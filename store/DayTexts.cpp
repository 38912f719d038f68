#include "store/DayTexts.h"

#include "platform/runtime/Dates.h"

bool IsRange(const QString& dayText) {
    return dayText == MondayToFriday || dayText == SundayToSaturday;
}

QStringList DaysOf(const QString& dayText) {
    if (!IsRange(dayText))
        return {dayText};
    const bool withWeekend = dayText == SundayToSaturday;
    QStringList days;
    for (int day = withWeekend ? 1 : 2; day <= (withWeekend ? 7 : 6); ++day)
        days += DayAbbreviation(day);
    return days;
}

bool FallsOn(const QString& dayText, const QString& day) {
    return dayText == day || IsRange(dayText);
}

int SingleDayNumber(const QString& dayText) {
    for (int day = 1; day <= DaysOfWeek; ++day)
        if (dayText == DayAbbreviation(day))
            return day;
    return 0;
}

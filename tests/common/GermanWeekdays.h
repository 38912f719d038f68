#pragma once

#include "platform/runtime/WeekdayNames.h"

/// Names that fit none of the program's own day texts.
inline void CallTheDaysInGerman() {
    SetWeekdayNames({QStringLiteral("Sonntag"), QStringLiteral("Montag"),
                     QStringLiteral("Dienstag"), QStringLiteral("Mittwoch"),
                     QStringLiteral("Donnerstag"), QStringLiteral("Freitag"),
                     QStringLiteral("Samstag")});
}

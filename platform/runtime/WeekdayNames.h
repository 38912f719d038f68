#pragma once

#include <QStringList>

/// Puts other names in the place of the English ones that WeekdayName gives, Sunday's first; for
/// tests. An empty list gives the English ones back.
void SetWeekdayNames(const QStringList& names);

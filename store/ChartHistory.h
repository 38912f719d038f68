#pragma once

#include "store/DatabaseCls.h"

/// Moves a chart of the week just past to the next week, if it rolls on by itself. Raises 3021 for
/// an empty chart.
void RollOn(DatabaseCls& store, TableStore& tables, const QString& name);

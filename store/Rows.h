#pragma once

#include "platform/tables/Recordset.h"
#include "store/ChartFields.h"

/// Runs `action` on each row from the current one to the last; the cursor ends behind it. A table
/// is opened on its first row, so an empty one runs nothing; one that has to have a row is told so
/// by MoveFirst before, which raises 3021.
template <class Cursor, class Action>
void ForEachRow(Cursor& rows, Action&& action) {
    for (; !rows.Eof(); rows.MoveNext())
        action();
}

/// The same on the rows of one account. Names are no keys: every row of the name is meant.
template <class Action>
void ForEachRowOf(const QString& account, Recordset& accounts, Action&& action) {
    ForEachRow(accounts, [&] {
        if (Holds(accounts.Value(AccountField::Name), account))
            action();
    });
}

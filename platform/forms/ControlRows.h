#pragma once

#include "platform/forms/ControlArray.h"

#include <tuple>

/// Control arrays whose elements of one index make a row, in the order in which a row is made and
/// tied together by std::tie.
template <class... Arrays>
using ControlColumns = std::tuple<Arrays&...>;

template <class... Arrays, class Action>
void ForEachColumn(const ControlColumns<Arrays...>& columns, Action&& action) {
    std::apply([&action](auto&... column) { (action(column), ...); }, columns);
}

/// Adds a row at the end: hidden, with the geometry of row 0.
template <class... Arrays>
void LoadRow(const ControlColumns<Arrays...>& columns) {
    ForEachColumn(columns, [](auto& column) { column.LoadElement(); });
}

/// The same, with controls that are made when one of them is asked for.
template <class... Arrays>
void PromiseRow(const ControlColumns<Arrays...>& columns) {
    ForEachColumn(columns, [](auto& column) { column.PromiseElement(); });
}

/// Makes the controls of a promised row.
template <class... Arrays>
void MakeRow(const ControlColumns<Arrays...>& columns, int index) {
    ForEachColumn(columns, [index](auto& column) { column.MakeElement(index); });
}

/// Removes the last row. Raises 9 for row 0.
template <class... Arrays>
void UnloadLastRow(const ControlColumns<Arrays...>& columns) {
    ForEachColumn(columns, [](auto& column) { column.UnloadLast(); });
}

/// Places a row below the one before it, `gap` twips between them.
template <class... Arrays>
void PlaceRowBelow(const ControlColumns<Arrays...>& columns, int index, int gap) {
    ForEachColumn(columns, [index, gap](auto& column) {
        column.SetLeft(index, column.Left(index - 1));
        column.SetTop(index, column.Top(index - 1) + column.Height(index - 1) + gap);
    });
}

template <class... Arrays>
void SetRowTop(const ControlColumns<Arrays...>& columns, int index, int twips) {
    ForEachColumn(columns, [index, twips](auto& column) { column.SetTop(index, twips); });
}

template <class... Arrays>
void SetRowVisible(const ControlColumns<Arrays...>& columns, int index, bool visible) {
    ForEachColumn(columns, [index, visible](auto& column) { column.SetVisible(index, visible); });
}

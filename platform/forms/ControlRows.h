#pragma once

#include "platform/forms/ControlArray.h"

#include <tuple>

/// Control arrays whose elements of one index make a row, in the order in which a row is made and
/// tied together by std::tie.
template <class... Controls>
using ControlColumns = std::tuple<ControlArray<Controls>&...>;

template <class... Controls, class Action>
void ForEachColumn(const ControlColumns<Controls...>& columns, Action&& action) {
    std::apply([&action](auto&... column) { (action(column), ...); }, columns);
}

/// Adds a row at the end: hidden, with the geometry of row 0.
template <class... Controls>
void LoadRow(const ControlColumns<Controls...>& columns) {
    ForEachColumn(columns, [](auto& column) { column.LoadElement(); });
}

/// Removes the last row. Raises 9 for row 0.
template <class... Controls>
void UnloadLastRow(const ControlColumns<Controls...>& columns) {
    ForEachColumn(columns, [](auto& column) { column.UnloadLast(); });
}

/// Places a row below the one before it, `gap` twips between them.
template <class... Controls>
void PlaceRowBelow(const ControlColumns<Controls...>& columns, int index, int gap) {
    ForEachColumn(columns, [index, gap](auto& column) {
        column.SetLeft(index, column.Left(index - 1));
        column.SetTop(index, column.Top(index - 1) + column.Height(index - 1) + gap);
    });
}

template <class... Controls>
void SetRowTop(const ControlColumns<Controls...>& columns, int index, int twips) {
    ForEachColumn(columns, [index, twips](auto& column) { column.SetTop(index, twips); });
}

template <class... Controls>
void SetRowVisible(const ControlColumns<Controls...>& columns, int index, bool visible) {
    ForEachColumn(columns, [index, visible](auto& column) { column.SetVisible(index, visible); });
}

#pragma once

#include <QtGlobal>
#include <stdexcept>
#include <string>

/// An entry of a list. Throws std::runtime_error if there is none, which fails one test; the list's
/// own operations would end all of them.
template <class List>
auto& EntryOf(List& list, qsizetype index) {
    if (index < 0 || index >= list.size())
        throw std::runtime_error("no entry " + std::to_string(index) + " among " +
                                 std::to_string(list.size()));
    return list[index];
}

template <class List>
auto& LastOf(List& list) {
    return EntryOf(list, list.size() - 1);
}

/// The same of a list that nothing else holds.
template <class List>
auto EntryOf(const List&& list, qsizetype index) {
    return EntryOf(list, index);
}
template <class List>
auto LastOf(const List&& list) {
    return LastOf(list);
}

#pragma once

#include <cstdlib>
#include <type_traits>

/// What the sources of a mutated program call: every place at which it can be made wrong has a
/// number, and the environment's DUTYGRID_MUTANT says which one of them is. Without it the program
/// is right.
namespace Mutants {

inline constexpr int Most = 1 << 18;
/// The places that have been come by since this was cleared.
inline bool reached[Most];
inline const int active = [] {
    const char* number = std::getenv("DUTYGRID_MUTANT");
    return number == nullptr ? -1 : std::atoi(number);
}();

inline bool IsWrong(int number) {
    reached[number] = true;
    return number == active;
}

/// The left side of an operator that can be wrong: `a < Less{7} < b` stands for `a < b`.
template <class Left>
struct Held {
    const Left& left;
    bool isWrong;
};

struct Less {
    int number;
};
struct Plus {
    int number;
};
struct Minus {
    int number;
};

template <class Left>
Held<Left> operator<(const Left& left, Less place) {
    return {left, IsWrong(place.number)};
}
template <class Left, class Right>
bool operator<(const Held<Left>& held, const Right& right) {
    return held.isWrong ? held.left <= right : held.left < right;
}
template <class Left, class Right>
bool operator<=(const Held<Left>& held, const Right& right) {
    return held.isWrong ? held.left < right : held.left <= right;
}
template <class Left, class Right>
bool operator>(const Held<Left>& held, const Right& right) {
    return held.isWrong ? held.left >= right : held.left > right;
}
template <class Left, class Right>
bool operator>=(const Held<Left>& held, const Right& right) {
    return held.isWrong ? held.left > right : held.left >= right;
}

template <class Left>
Held<Left> operator+(const Left& left, Plus place) {
    return {left, IsWrong(place.number)};
}
template <class Left, class Right>
auto operator+(const Held<Left>& held, const Right& right) {
    return held.isWrong ? held.left - right : held.left + right;
}
template <class Left, class Right>
auto operator-(const Held<Left>& held, const Right& right) {
    return held.isWrong ? held.left + right : held.left - right;
}

} // namespace Mutants

#pragma once

#include <QtGlobal>
#include <concepts>

/// Which of two things an operation does, as a 16-bit truth value: -1 for true, 0 for false. Any
/// other value selects neither.
class Mode {
public:
    /// Not from numbers, of which 1 is not true.
    constexpr Mode(std::same_as<bool> auto value) : value_(value ? True : False) {}
    constexpr explicit Mode(qint16 value) : value_(value) {}

    constexpr bool IsTrue() const { return value_ == True; }
    constexpr bool IsFalse() const { return value_ == False; }

private:
    static constexpr qint16 True = -1;
    static constexpr qint16 False = 0;

    qint16 value_;
};

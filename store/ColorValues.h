#pragma once

#include <QtGlobal>

/// Colours of charts on paper and on the screen: 32-bit values with red in the low byte.
namespace ColorValue {

constexpr qint32 Of(int red, int green, int blue) {
    return red | green << 8 | blue << 16;
}

inline constexpr qint32 Black = Of(0, 0, 0);
inline constexpr qint32 Red = Of(255, 0, 0);
inline constexpr qint32 Blue = Of(0, 0, 255);

} // namespace ColorValue

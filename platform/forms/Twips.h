#pragma once

#include <QRect>

/// Forms are laid out in twips, 15 to a logical pixel.
inline constexpr int TwipsPerPixel = 15;

struct TwipRect {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
};

constexpr int PixelsOf(int twips) {
    return twips / TwipsPerPixel;
}

constexpr int TwipsOf(int pixels) {
    return pixels * TwipsPerPixel;
}

inline QRect PixelRect(const TwipRect& rect) {
    return {PixelsOf(rect.Left), PixelsOf(rect.Top), PixelsOf(rect.Width), PixelsOf(rect.Height)};
}

#pragma once

#include <QColor>
#include <QtGlobal>

/// Colours are 32-bit values with red in the low byte.
inline QColor ColorFromValue(qint32 value) {
    return {value & 0xff, (value >> 8) & 0xff, (value >> 16) & 0xff};
}

inline qint32 ValueFromColor(const QColor& color) {
    return color.red() | (color.green() << 8) | (color.blue() << 16);
}

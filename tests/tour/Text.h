#pragma once

#include <QString>

/// A text that a story may write as a plain literal.
struct Text : QString {
    Text() = default;
    Text(const char* utf8) : QString(QString::fromUtf8(utf8)) {}
    Text(const QString& text) : QString(text) {}
    friend Text operator+(Text left, const Text& right) {
        left.append(right);
        return left;
    }
};

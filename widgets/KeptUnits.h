#pragma once

#include <QString>

/// A text to be shown, in which no line ends between a number and the word behind it: "300 Points"
/// stays together.
inline QString WithUnitsKept(QString text) {
    for (qsizetype at = 1; at + 1 < text.size(); ++at)
        if (text.at(at) == QLatin1Char(' ') && text.at(at - 1).isDigit() &&
            text.at(at + 1).isLetter())
            text[at] = QChar(QChar::Nbsp);
    return text;
}

#pragma once

#include <QString>
#include <QStringList>

/// The difficulties that the editor offers, from the easiest on. A job may have any other text.
inline const QStringList DifficultyTexts = {QStringLiteral("Very Easy"), QStringLiteral("Easy"),
                                            QStringLiteral("Medium"), QStringLiteral("Hard"),
                                            QStringLiteral("Very Hard")};

/// 1 for the easiest to 5 for the hardest, 0 for any other text. It may have been typed, in any
/// case.
inline int DifficultyLevel(const QString& text) {
    const QString word = text.trimmed();
    for (int index = 0; index < DifficultyTexts.size(); ++index)
        if (word.compare(DifficultyTexts.at(index), Qt::CaseInsensitive) == 0)
            return index + 1;
    return 0;
}

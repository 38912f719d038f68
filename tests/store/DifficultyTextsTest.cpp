#include "store/DifficultyTexts.h"

#include <gtest/gtest.h>

TEST(DifficultyTextsTest, TheEditorsTextsRiseFromOneToFive) {
    EXPECT_EQ(DifficultyTexts.join(QLatin1Char('|')),
              QStringLiteral("Very Easy|Easy|Medium|Hard|Very Hard"));
    for (int index = 0; index < DifficultyTexts.size(); ++index)
        EXPECT_EQ(DifficultyLevel(DifficultyTexts.at(index)), index + 1);
}

TEST(DifficultyTextsTest, TheyMayBeTypedInAnyCaseAndOtherTextsHaveNone) {
    EXPECT_EQ(DifficultyLevel(QStringLiteral(" very hard ")), 5);
    for (const char* other : {"", " ", "Average", "Very", "Easy going", "3"})
        EXPECT_EQ(DifficultyLevel(QString::fromLatin1(other)), 0) << other;
}

#pragma once

#include "tests/accounts/AccountsTest.h"

inline const QString DeleteQuestion =
    QStringLiteral("Are you sure you want to delete this account?");
inline const QString CashOutQuestion = QStringLiteral("Are you sure you want to cash out?");
inline const QString ResetQuestion = QStringLiteral("Are you sure you want to reset?");

/// What the view shows of an account: points, incentive, cost.
inline const QString NoFigures = QStringLiteral("||");
inline const QString KimsFigures = QStringLiteral("80|Red bike|500");

/// Tests of the account view.
class DisplayAccountTest : public AccountsTest {
protected:
    /// The last box was a question with Yes and No under the program's title; the keyboard began on
    /// No where a Yes cannot be taken back.
    void ExpectQuestion(bool beforeLoss) const {
        EXPECT_EQ(Boxes.Last().Title, QStringLiteral("Sparkit Dutygrid"));
        EXPECT_EQ(Boxes.Last().Buttons, PromptButtons::YesNo);
        EXPECT_EQ(Boxes.Last().BeginsOnNo, beforeLoss);
    }
};

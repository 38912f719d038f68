#include "support/DateCls.h"

#include "tests/common/RuntimeTest.h"

#include <QLocale>

namespace {

class DateClsTest : public RuntimeTest {
protected:
    static DateCls At(int year, int month, int day) {
        DateCls date;
        date.SetValue(QDate(year, month, day));
        return date;
    }
    static QDate Added(const QDate& from, qint16 number, qint32 units) {
        DateCls date;
        date.SetValue(from);
        date.Add(number, units);
        return date.Value();
    }
    static QDate Subtracted(const QDate& from, qint16 number, qint32 units) {
        DateCls date;
        date.SetValue(from);
        date.Subtract(number, units);
        return date.Value();
    }
    /// The step back is refused in a box with the exclamation icon, and the date stays.
    void ExpectRefused(const QDate& from, qint16 number, qint32 units, const QString& reason) {
        Boxes.Expect(QStringLiteral("Error subtracting value from date: ") + reason);
        EXPECT_EQ(Subtracted(from, number, units), from);
        ASSERT_FALSE(Boxes.Shown().isEmpty());
        EXPECT_EQ(Boxes.Last().Icon, PromptIcon::Exclamation);
    }
};

const QDate March15(2005, 3, 15);

TEST_F(DateClsTest, NewObjectHoldsToday) {
    SetToday(QDate(2004, 2, 29));
    EXPECT_EQ(DateCls().Value(), QDate(2004, 2, 29));
}

TEST_F(DateClsTest, ValueIsKeptAsSet) {
    EXPECT_EQ(At(2005, 12, 31).Value(), QDate(2005, 12, 31));
}

TEST_F(DateClsTest, ImpossibleValueIsRefusedAndTheOldOneStays) {
    DateCls date = At(2005, 3, 15);
    EXPECT_ERROR(13, date.SetValue(QDate()));
    EXPECT_ERROR(13, date.SetValue(QDate(10000, 1, 1)));
    EXPECT_ERROR(13, date.SetValue(QDate(99, 12, 31)));
    EXPECT_EQ(date.Value(), March15);
}

TEST_F(DateClsTest, DaysStepOverMonthsAndLeapDays) {
    EXPECT_EQ(Added(QDate(2004, 2, 28), 2, Days), QDate(2004, 3, 1));
    EXPECT_EQ(Subtracted(QDate(2005, 3, 1), 1, Days), QDate(2005, 2, 28));
    EXPECT_EQ(Added(March15, -15, Days), QDate(2005, 2, 28));
    EXPECT_EQ(Subtracted(March15, -17, Days), QDate(2005, 4, 1));
}

TEST_F(DateClsTest, NoDaysLeaveTheValue) {
    EXPECT_EQ(Added(March15, 0, Days), March15);
    EXPECT_EQ(Subtracted(March15, 0, Days), March15);
}

TEST_F(DateClsTest, WeeksAreSevenDays) {
    EXPECT_EQ(Added(March15, 1, Weeks), QDate(2005, 3, 22));
    EXPECT_EQ(Subtracted(March15, 1, Weeks), QDate(2005, 3, 8));
    EXPECT_EQ(Added(March15, 4681, Weeks), March15.addDays(32767));
}

TEST_F(DateClsTest, WeeksThatOverflow16BitsAreAnOverflow) {
    DateCls date = At(2005, 3, 15);
    EXPECT_ERROR(6, date.Add(5000, Weeks));
    EXPECT_ERROR(6, date.Add(4682, Weeks));
    EXPECT_ERROR(6, date.Add(-4682, Weeks));
    EXPECT_EQ(date.Value(), March15);
}

TEST_F(DateClsTest, SubtractTellsAnOverflowAndKeepsTheDate) {
    ExpectRefused(March15, 5000, Weeks, QStringLiteral("Overflow"));
    ExpectRefused(March15, -32768, Months, QStringLiteral("Overflow"));
    ExpectRefused(March15, -32768, Years, QStringLiteral("Overflow"));
}

TEST_F(DateClsTest, MonthsBelow13StepOverOneNewYear) {
    EXPECT_EQ(Added(QDate(2005, 12, 15), 1, Months), QDate(2006, 1, 15));
    EXPECT_EQ(Subtracted(QDate(2005, 1, 15), 1, Months), QDate(2004, 12, 15));
    EXPECT_EQ(Subtracted(March15, 3, Months), QDate(2004, 12, 15));
    EXPECT_EQ(Added(March15, 2, Months), QDate(2005, 5, 15));
    EXPECT_EQ(Subtracted(March15, 2, Months), QDate(2005, 1, 15));
}

TEST_F(DateClsTest, TwelveMonthsGiveTheSameMonthOfTheNextOrLastYear) {
    EXPECT_EQ(Added(March15, 12, Months), QDate(2006, 3, 15));
    EXPECT_EQ(Subtracted(March15, 12, Months), QDate(2004, 3, 15));
}

TEST_F(DateClsTest, ThirteenAndMoreMonthsAddWholeYears) {
    EXPECT_EQ(Added(March15, 13, Months), QDate(2006, 4, 15));
    EXPECT_EQ(Added(March15, 24, Months), QDate(2007, 3, 15));
    EXPECT_EQ(Added(QDate(2005, 12, 15), 13, Months), QDate(2007, 1, 15));
    EXPECT_EQ(Added(QDate(2005, 11, 15), 27, Months), QDate(2008, 2, 15));
    EXPECT_EQ(Added(QDate(2005, 11, 15), 13, Months), QDate(2006, 12, 15)) << "up to December";
}

TEST_F(DateClsTest, ThirteenAndMoreMonthsSubtractWholeYearsWithinAYear) {
    EXPECT_EQ(Subtracted(March15, 13, Months), QDate(2004, 2, 15));
    EXPECT_EQ(Subtracted(March15, 14, Months), QDate(2004, 1, 15)) << "down to January";
    EXPECT_EQ(Subtracted(March15, 24, Months), QDate(2003, 3, 15));
}

TEST_F(DateClsTest, ThirteenAndMoreMonthsBackOverANewYearEndTwoYearsTooLate) {
    EXPECT_EQ(Subtracted(March15, 15, Months), QDate(2005, 12, 15));
    EXPECT_EQ(Subtracted(QDate(2005, 1, 31), 25, Months), QDate(2004, 12, 31));
    EXPECT_EQ(Subtracted(QDate(2005, 1, 15), 13, Months), QDate(2005, 12, 15));
}

TEST_F(DateClsTest, NegativeMonthsStepTheOtherWayWithinAYear) {
    EXPECT_EQ(Added(March15, -2, Months), QDate(2005, 1, 15));
    EXPECT_EQ(Added(March15, -3, Months), QDate(2004, 12, 15));
    EXPECT_EQ(Subtracted(QDate(2005, 12, 15), -1, Months), QDate(2006, 1, 15));
}

TEST_F(DateClsTest, NegativeMonthsBeyondAYearReachNoMonth) {
    DateCls date = At(2005, 3, 15);
    EXPECT_ERROR(13, date.Add(-15, Months));
    EXPECT_ERROR(13, date.Add(-32768, Months));
    EXPECT_EQ(date.Value(), March15);
    ExpectRefused(March15, -22, Months, QStringLiteral("Type mismatch"));
}

TEST_F(DateClsTest, DayThatTheMonthLacksIsATypeMismatchInAdd) {
    DateCls date = At(2005, 1, 31);
    EXPECT_ERROR(13, date.Add(1, Months));
    EXPECT_EQ(date.Value(), QDate(2005, 1, 31));
    date = At(2004, 2, 29);
    EXPECT_ERROR(13, date.Add(1, Years));
    EXPECT_EQ(Added(QDate(2004, 2, 29), 4, Years), QDate(2008, 2, 29));
}

TEST_F(DateClsTest, DayThatTheMonthLacksIsToldBySubtract) {
    ExpectRefused(QDate(2005, 3, 31), 1, Months, QStringLiteral("Type mismatch"));
    ExpectRefused(QDate(2004, 2, 29), 1, Years, QStringLiteral("Type mismatch"));
}

TEST_F(DateClsTest, YearsStepByTheYear) {
    EXPECT_EQ(Added(March15, 1, Years), QDate(2006, 3, 15));
    EXPECT_EQ(Subtracted(March15, 1, Years), QDate(2004, 3, 15));
    EXPECT_EQ(Added(March15, -5, Years), QDate(2000, 3, 15));
}

TEST_F(DateClsTest, YearsOfMoreThanFourOrLessThanThreeDigitsAreImpossible) {
    DateCls date = At(9999, 6, 1);
    EXPECT_ERROR(13, date.Add(1, Years));
    EXPECT_ERROR(13, date.Add(7, Months));
    EXPECT_ERROR(6, date.Add(32767, Years));
    EXPECT_ERROR(6, date.Add(365, Days));
    EXPECT_EQ(date.Value(), QDate(9999, 6, 1));
    ExpectRefused(QDate(100, 1, 1), 1, Years, QStringLiteral("Type mismatch"));
    ExpectRefused(QDate(100, 1, 1), 1, Days, QStringLiteral("Overflow"));
}

TEST_F(DateClsTest, UnknownUnitsAreToldAndChangeNothing) {
    Boxes.Expect(QStringLiteral("Invalid DateUnits Format: 4"));
    EXPECT_EQ(Added(March15, 1, 4), March15);
    Boxes.Expect(QStringLiteral("Invalid DateUnits Format: -1"));
    EXPECT_EQ(Subtracted(March15, 1, -1), March15);
    Boxes.Expect(QStringLiteral("Invalid DateUnits Format: 4"));
    EXPECT_EQ(Subtracted(March15, 1, 4), March15);
    ASSERT_EQ(Boxes.Shown().size(), 3);
    for (const Prompt& box : Boxes.Shown()) {
        EXPECT_EQ(box.Icon, PromptIcon::Exclamation);
        EXPECT_EQ(box.Title, QStringLiteral("Sparkit Dutygrid"));
    }
}

TEST_F(DateClsTest, MonthComesFirstInEveryLocale) {
    for (const char* name : {"C", "en_US", "de_DE", "en_GB", "ja_JP"}) {
        QLocale::setDefault(QLocale(QLatin1String(name)));
        EXPECT_EQ(Added(QDate(2005, 4, 7), 1, Months), QDate(2005, 5, 7)) << name;
        EXPECT_EQ(Subtracted(QDate(2005, 4, 7), 1, Years), QDate(2004, 4, 7)) << name;
    }
}

} // namespace

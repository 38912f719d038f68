#include "platform/runtime/Numbers.h"

#include "tests/common/RuntimeTest.h"

#include <limits>

namespace {

class NumbersTest : public RuntimeTest {};

double ValOf(const char* text) {
    return Val(QString::fromUtf8(text));
}

TEST_F(NumbersTest, ValTakesTheLongestNumberAtTheStart) {
    EXPECT_EQ(ValOf("12 jobs"), 12);
    EXPECT_EQ(ValOf("12.75.3"), 12.75);
    EXPECT_EQ(ValOf("-3x"), -3);
    EXPECT_EQ(ValOf("+4"), 4);
    EXPECT_EQ(ValOf(".5"), 0.5);
    EXPECT_EQ(ValOf("5."), 5);
    EXPECT_EQ(ValOf("1e3"), 1000);
    EXPECT_EQ(ValOf("1D2 more"), 100);
    EXPECT_EQ(ValOf("2e"), 2);
    EXPECT_EQ(ValOf("007"), 7);
    EXPECT_EQ(ValOf("1,5"), 1);
    EXPECT_EQ(ValOf("  \t8"), 8);
}

TEST_F(NumbersTest, ValOfRubbishIsZero) {
    for (const char* text :
         {"", "   ", "abc", "x12", "-", "+", ".", "e5", "--1", "$3", "inf", "nan", "🎈5"})
        EXPECT_EQ(ValOf(text), 0) << text;
}

TEST_F(NumbersTest, ValReadsWhatStandsBeforeHalfAnEmoji) {
    const QString half(QChar(0xD83D));
    EXPECT_EQ(::Val(half), 0);
    EXPECT_EQ(::Val(QStringLiteral("-12") + half), -12);
    EXPECT_EQ(::Val(QStringLiteral("7") + half + QStringLiteral("5")), 7);
}

TEST_F(NumbersTest, ValReadsAPointInEveryLocale) {
    QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
    EXPECT_EQ(ValOf("1.5"), 1.5);
    EXPECT_EQ(ValOf("1,5"), 1);
}

TEST_F(NumbersTest, HalvesAreRoundedToTheEvenNeighbour) {
    EXPECT_EQ(ToInteger(0.5), 0);
    EXPECT_EQ(ToInteger(1.5), 2);
    EXPECT_EQ(ToInteger(2.5), 2);
    EXPECT_EQ(ToInteger(2.51), 3);
    EXPECT_EQ(ToInteger(-1.5), -2);
    EXPECT_EQ(ToInteger(-2.5), -2);
    EXPECT_EQ(ToLong(70000.5), 70000);
}

TEST_F(NumbersTest, NumbersOutOfRangeOverflow) {
    EXPECT_EQ(ToInteger(32767.4), 32767);
    EXPECT_EQ(ToInteger(-32768.5), -32768);
    EXPECT_ERROR(6, ToInteger(32767.5));
    EXPECT_ERROR(6, ToInteger(-32769));
    EXPECT_ERROR(6, ToInteger(ValOf("1e999")));
    EXPECT_ERROR(6, ToInteger(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_EQ(ToLong(2147483647.0), 2147483647);
    EXPECT_ERROR(6, ToLong(2147483648.0));
}

TEST_F(NumbersTest, ArithmeticStaysWithin16Bits) {
    EXPECT_EQ(AddIntegers(32766, 1), 32767);
    EXPECT_ERROR(6, AddIntegers(32767, 1));
    EXPECT_ERROR(6, AddIntegers(-32768, -1));
    EXPECT_EQ(MultiplyIntegers(4681, 7), 32767);
    EXPECT_ERROR(6, MultiplyIntegers(4682, 7));
    EXPECT_ERROR(6, MultiplyIntegers(-32768, -1));
}

TEST_F(NumbersTest, WholeNumbersHaveNoPointAsText) {
    EXPECT_EQ(NumberText(3), QStringLiteral("3"));
    EXPECT_EQ(NumberText(-32768), QStringLiteral("-32768"));
    EXPECT_EQ(NumberText(2147483647), QStringLiteral("2147483647"));
    EXPECT_EQ(NumberText(2.5), QStringLiteral("2.5"));
    EXPECT_EQ(NumberText(0.1 + 0.2), QStringLiteral("0.3"));
    EXPECT_EQ(NumberText(-0.0), QStringLiteral("0"));
}

TEST_F(NumbersTest, FieldsBecomeText) {
    EXPECT_EQ(TextOf(QVariant(QStringLiteral(" a "))), QStringLiteral(" a "));
    EXPECT_EQ(TextOf(QVariant::fromValue<qint16>(-3)), QStringLiteral("-3"));
    EXPECT_EQ(TextOf(QVariant(4.0)), QStringLiteral("4"));
    EXPECT_EQ(TextOf(QVariant(QDate(2001, 3, 7))), QStringLiteral("3/7/2001"));
    EXPECT_EQ(TextOf(QVariant(true)), QStringLiteral("True"));
    EXPECT_ERROR(94, TextOf(QVariant()));
}

TEST_F(NumbersTest, FieldsBecomeIntegers) {
    EXPECT_EQ(IntegerOf(QVariant(QStringLiteral("12"))), 12);
    EXPECT_EQ(IntegerOf(QVariant(2.5)), 2);
    EXPECT_EQ(IntegerOf(QVariant(true)), -1);
    EXPECT_EQ(IntegerOf(QVariant(false)), 0);
    EXPECT_ERROR(94, IntegerOf(QVariant()));
    for (const char* text : {"", "abc", "12 jobs", "inf", "nan"})
        EXPECT_ERROR(13, IntegerOf(QVariant(QString::fromUtf8(text))));
    EXPECT_ERROR(6, IntegerOf(QVariant(99999)));
    EXPECT_EQ(LongOf(QVariant(99999)), 99999);
    EXPECT_EQ(LongOf(QVariant(QStringLiteral("-70000.5"))), -70000);
    EXPECT_ERROR(94, LongOf(QVariant()));
    EXPECT_ERROR(6, LongOf(QVariant(2147483648.0)));
}

TEST_F(NumbersTest, FieldsBecomeDatesAndBooleans) {
    EXPECT_EQ(DateOf(QVariant(QDate(2001, 3, 7))), QDate(2001, 3, 7));
    EXPECT_EQ(DateOf(QVariant(QStringLiteral("3/7/2001"))), QDate(2001, 3, 7));
    EXPECT_ERROR(13, DateOf(QVariant(QStringLiteral("soon"))));
    EXPECT_ERROR(94, DateOf(QVariant()));
    EXPECT_TRUE(BooleanOf(QVariant(-1)));
    EXPECT_FALSE(BooleanOf(QVariant(0)));
    EXPECT_ERROR(94, BooleanOf(QVariant()));
}

} // namespace

#include "platform/runtime/Dates.h"

#include "tests/common/GermanWeekdays.h"
#include "tests/common/RuntimeTest.h"

namespace {

class DatesTest : public RuntimeTest {
protected:
    static void UseLocale(const char* name) { QLocale::setDefault(QLocale(QLatin1String(name))); }
};

const QDate Day(2001, 3, 7);

TEST_F(DatesTest, ClockCanBeSetAndGivenBack) {
    EXPECT_EQ(Today(), Day);
    SetToday(QDate());
    EXPECT_EQ(Today(), QDate::currentDate());
}

TEST_F(DatesTest, ShortTextHasTheLocalesOrderAndFourDigitsOfTheYear) {
    EXPECT_EQ(DateText(Day), QStringLiteral("3/7/2001"));
    UseLocale("en_US");
    EXPECT_EQ(DateText(Day), QStringLiteral("3/7/2001"));
    UseLocale("en_GB");
    EXPECT_EQ(DateText(Day), QStringLiteral("07/03/2001"));
    UseLocale("de_DE");
    EXPECT_EQ(DateText(Day), QStringLiteral("07.03.2001"));
    UseLocale("ja_JP");
    EXPECT_EQ(DateText(Day), QStringLiteral("2001/03/07"));
    UseLocale("fa_IR");
    EXPECT_TRUE(DateText(Day).contains(QStringLiteral("\u06F2\u06F0\u06F0\u06F1")))
        << "in the locale's own digits";
}

TEST_F(DatesTest, ShortTextIsReadBackInEveryLocale) {
    const QList<QLocale> locales =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry);
    for (const QLocale& locale : locales) {
        QLocale::setDefault(locale);
        for (const QDate& date : {Day, QDate(1999, 12, 31), QDate(2035, 10, 1)})
            EXPECT_EQ(DateFromText(DateText(date)), date) << locale.name().toStdString();
    }
}

TEST_F(DatesTest, AnyOtherTextIsATypeMismatch) {
    for (const char* text :
         {"", "soon", "13/1/2001", "2/29/2001", "2001-03-07", "3/7", "3/7/2001 x"})
        EXPECT_ERROR(13, DateFromText(QString::fromUtf8(text)));
    UseLocale("de_DE");
    EXPECT_ERROR(13, DateFromText(QStringLiteral("3/7/2001")));
}

TEST_F(DatesTest, KeyIsEightDigitsThatSortAsTheDates) {
    EXPECT_EQ(DateKey(Day), QStringLiteral("20010307"));
    EXPECT_EQ(DateKey(QDate(2001, 12, 31)), QStringLiteral("20011231"));
    EXPECT_EQ(DateKey(QDate(100, 1, 1)), QStringLiteral("01000101"));
}

TEST_F(DatesTest, KeyHasLatinDigitsInEveryLocale) {
    UseLocale("ar_EG");
    EXPECT_EQ(DateKey(Day), QStringLiteral("20010307"));
}

TEST_F(DatesTest, WeekdayNamesAreEnglishOnEverySystem) {
    const QStringList week = {QStringLiteral("Sunday"),   QStringLiteral("Monday"),
                              QStringLiteral("Tuesday"),  QStringLiteral("Wednesday"),
                              QStringLiteral("Thursday"), QStringLiteral("Friday"),
                              QStringLiteral("Saturday")};
    for (const char* system : {"en_US", "de_DE", "fr_FR", "ar_EG", "tr_TR", "zh_CN"}) {
        UseLocale(system);
        QStringList names;
        for (int day = 4; day <= 10; ++day)
            names += WeekdayName(QDate(2001, 3, day));
        EXPECT_EQ(names, week) << system;
    }
    EXPECT_EQ(WeekdayName(QDate()), QString());
}

TEST_F(DatesTest, OtherWeekdayNamesHoldUntilTheyAreTakenBack) {
    CallTheDaysInGerman();
    EXPECT_EQ(WeekdayName(QDate(2001, 3, 4)), QStringLiteral("Sonntag"));
    EXPECT_EQ(WeekdayName(Day), QStringLiteral("Mittwoch"));
    EXPECT_EQ(FullDayName(QStringLiteral("Wed")), QStringLiteral("Wednesday"));
    SetWeekdayNames({});
    EXPECT_EQ(WeekdayName(Day), QStringLiteral("Wednesday"));
}

TEST_F(DatesTest, DayTextsAreEnglishWhateverTheWeekdaysAreCalled) {
    CallTheDaysInGerman();
    EXPECT_EQ(DayAbbreviation(1), QStringLiteral("Sun"));
    EXPECT_EQ(DayAbbreviation(4), QStringLiteral("Wed"));
    EXPECT_EQ(DayAbbreviation(7), QStringLiteral("Sat"));
    EXPECT_ERROR(9, DayAbbreviation(0));
    EXPECT_ERROR(9, DayAbbreviation(8));
    EXPECT_EQ(FullDayName(QStringLiteral("Thu")), QStringLiteral("Thursday"));
    for (const char* other : {"", "Th", "thu", "Mon-Fri"})
        EXPECT_EQ(FullDayName(QLatin1String(other)), QString()) << other;
}

} // namespace

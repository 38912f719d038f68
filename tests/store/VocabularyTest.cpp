#include "platform/runtime/Dates.h"
#include "store/AccountKinds.h"
#include "store/ColorValues.h"
#include "store/DayTexts.h"
#include "store/Versions.h"
#include "tests/common/Readable.h"

#include <QStringList>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(VocabularyTest, FourKindsOfAccountsAreAdultsOrChildrenAndAnyOtherTextIsNeither) {
    for (const QString& adult : {u"Teacher"_s, u"Parent"_s}) {
        EXPECT_TRUE(IsAdult(adult));
        EXPECT_FALSE(IsChild(adult));
    }
    for (const QString& child : {u"Student"_s, u"Kid"_s}) {
        EXPECT_TRUE(IsChild(child));
        EXPECT_FALSE(IsAdult(child));
    }
    for (const QString& neither : {u"teacher"_s, u"STUDENT"_s, u"Kid "_s, QString()}) {
        EXPECT_FALSE(IsAdult(neither)) << neither.toStdString();
        EXPECT_FALSE(IsChild(neither)) << neither.toStdString();
    }
}

TEST(VocabularyTest, OnlyOneKindOfEachIsEverStored) {
    EXPECT_TRUE(IsStoredAdult(u"Teacher"_s));
    EXPECT_TRUE(IsStoredChild(u"Student"_s));
    for (const QString& other : {u"Student"_s, u"Parent"_s, u"Kid"_s, u"teacher"_s, QString()})
        EXPECT_FALSE(IsStoredAdult(other)) << other.toStdString();
    for (const QString& other : {u"Teacher"_s, u"Parent"_s, u"Kid"_s, u"student"_s, QString()})
        EXPECT_FALSE(IsStoredChild(other)) << other.toStdString();
}

TEST(VocabularyTest, RangesHoldTheirDaysInTheWeeksOrderAndOtherTextsThemselves) {
    EXPECT_EQ(DaysOf(u"Mon-Fri"_s),
              (QStringList{u"Mon"_s, u"Tue"_s, u"Wed"_s, u"Thu"_s, u"Fri"_s}));
    EXPECT_EQ(DaysOf(u"Sun-Sat"_s),
              (QStringList{u"Sun"_s, u"Mon"_s, u"Tue"_s, u"Wed"_s, u"Thu"_s, u"Fri"_s, u"Sat"_s}));
    for (const QString& text : {u"Wed"_s, u"mon-fri"_s, u"any"_s, QString()})
        EXPECT_EQ(DaysOf(text), QStringList{text});
}

TEST(VocabularyTest, ARangeFallsOnEveryDayAndADayOnItself) {
    for (int number = 1; number <= 7; ++number) {
        const QString day = DayAbbreviation(number);
        EXPECT_TRUE(FallsOn(u"Mon-Fri"_s, day));
        EXPECT_TRUE(FallsOn(u"Sun-Sat"_s, day));
        EXPECT_EQ(FallsOn(u"Tue"_s, day), number == 3);
        EXPECT_FALSE(FallsOn(u"tue"_s, day));
        EXPECT_FALSE(FallsOn(u" "_s, day));
    }
}

TEST(VocabularyTest, OnlyASingleDayHasANumber) {
    for (int number = 1; number <= 7; ++number)
        EXPECT_EQ(SingleDayNumber(DayAbbreviation(number)), number);
    for (const QString& text : {u"Mon-Fri"_s, u"Sun-Sat"_s, u"mon"_s, u" "_s, QString()})
        EXPECT_EQ(SingleDayNumber(text), 0) << text.toStdString();
}

TEST(VocabularyTest, OnlyTheTwoVersionsHaveNames) {
    EXPECT_EQ(Version::NameOf(-1), u"School"_s);
    EXPECT_EQ(Version::NameOf(0), u"Home"_s);
    EXPECT_EQ(Version::NameOf(1), QString());
    EXPECT_FALSE(Version::IsSchool(1));
    EXPECT_FALSE(Version::IsHome(1));
    EXPECT_EQ(Version::Of(true), -1);
    EXPECT_EQ(Version::Of(false), 0);
}

TEST(VocabularyTest, WhateverIsNotHomeCountsAsSchool) {
    EXPECT_TRUE(Version::CountsAsSchool(-1));
    EXPECT_TRUE(Version::CountsAsSchool(1));
    EXPECT_FALSE(Version::CountsAsSchool(0));
}

TEST(VocabularyTest, ColoursHaveRedInTheLowByte) {
    EXPECT_EQ(ColorValue::Red, 255);
    EXPECT_EQ(ColorValue::Blue, 16711680);
    EXPECT_EQ(ColorValue::Black, 0);
    EXPECT_EQ(ColorValue::Of(1, 2, 3), 0x030201);
}

} // namespace

// Tests of dates and times as text.
#include "host/locale/us_english_locale.h"

#include "host/locale/date_pictures.h"

#include <gtest/gtest.h>

namespace tavo::locale {

namespace {

constexpr SYSTEMTIME kMorning{2004, 9, 0, 5, 9, 5, 7, 0};       // Sunday, 5 September 2004
constexpr SYSTEMTIME kEvening{2004, 11, 3, 17, 21, 45, 30, 12}; // Wednesday, 17 November 2004
constexpr int kBuffer = 100;

using Text = std::optional<std::u16string>;

Text FormatDateText(const SYSTEMTIME& date, std::u16string_view picture, int bufferSize = kBuffer) {
    return UsEnglishLocale().GetDateFormatW(LocaleId::User, date, picture, bufferSize);
}

Text FormatTimeText(const SYSTEMTIME& time, std::u16string_view picture, int bufferSize = kBuffer) {
    return UsEnglishLocale().GetTimeFormatW(LocaleId::User, time, picture, bufferSize);
}

} // namespace

TEST(UsEnglishLocale, DatePicturesOfTheProgramAreWrittenOut) {
    EXPECT_EQ(FormatDateText(kEvening, u"yyyy.MM.dd(ddd)"), u"2004.11.17(Wed)");
    EXPECT_EQ(FormatDateText(kEvening, u"yyyy.MM.dd (ddd)"), u"2004.11.17 (Wed)");
    EXPECT_EQ(FormatDateText(kMorning, u"yyyy.MM.dd"), u"2004.09.05");
    EXPECT_EQ(FormatDateText(kMorning, u"ddd, MMM, dd, yyyy"), u"Sun, Sep, 05, 2004");
}

TEST(UsEnglishLocale, TimePicturesOfTheProgramAreWrittenOut) {
    EXPECT_EQ(FormatTimeText(kMorning, u"tt h':'mm"), u"AM 9:05");
    EXPECT_EQ(FormatTimeText(kEvening, u"tt h':'mm"), u"PM 9:45");
    EXPECT_EQ(FormatTimeText(kMorning, u"hh:mm tt"), u"09:05 AM");
    EXPECT_EQ(FormatTimeText(kEvening, u"hh':'mm tt"), u"09:45 PM");
    EXPECT_EQ(FormatTimeText(kEvening, u"hh':'mm':'ss tt"), u"09:45:30 PM");
    EXPECT_EQ(FormatTimeText(kMorning, u"hh:mm"), u"09:05");
    EXPECT_EQ(FormatTimeText(kMorning, u"ss tt"), u"07 AM");
}

TEST(UsEnglishLocale, EveryDateFieldHasItsForms) {
    EXPECT_EQ(FormatDateText(kMorning, u"d|dd|ddd|dddd"), u"5|05|Sun|Sunday");
    EXPECT_EQ(FormatDateText(kMorning, u"M|MM|MMM|MMMM"), u"9|09|Sep|September");
    EXPECT_EQ(FormatDateText(kMorning, u"y|yy|yyyy"), u"4|04|2004");
    EXPECT_EQ(FormatDateText(kEvening, u"yyyy gg"), u"2004 A.D.");
    EXPECT_EQ(FormatDateText({1999, 5, 0, 31, 0, 0, 0, 0}, u"y yy MMM MMMM"), u"99 99 May May");
}

TEST(UsEnglishLocale, EveryTimeFieldHasItsForms) {
    EXPECT_EQ(FormatTimeText(kEvening, u"h|hh|H|HH"), u"9|09|21|21");
    EXPECT_EQ(FormatTimeText(kMorning, u"h|hh|H|HH"), u"9|09|9|09");
    EXPECT_EQ(FormatTimeText(kMorning, u"m|mm|s|ss"), u"5|05|7|07");
    EXPECT_EQ(FormatTimeText(kEvening, u"t|tt"), u"P|PM");
    EXPECT_EQ(FormatTimeText(kMorning, u"t|tt"), u"A|AM");
}

TEST(UsEnglishLocale, MidnightAndNoonAreTwelve) {
    EXPECT_EQ(FormatTimeText({2004, 9, 0, 5, 0, 0, 0, 0}, u"h:mm tt H"), u"12:00 AM 0");
    EXPECT_EQ(FormatTimeText({2004, 9, 0, 5, 12, 0, 0, 0}, u"h:mm tt H"), u"12:00 PM 12");
    EXPECT_EQ(FormatTimeText({2004, 9, 0, 5, 11, 59, 0, 0}, u"h tt"), u"11 AM");
    EXPECT_EQ(FormatTimeText({2004, 9, 0, 5, 13, 0, 0, 0}, u"h tt"), u"1 PM");
}

TEST(UsEnglishLocale, LongerRunsAreTheLongestForm) {
    EXPECT_EQ(FormatDateText(kMorning, u"ddddd MMMMM yyyyy"), u"Sunday September 2004");
    EXPECT_EQ(FormatDateText(kMorning, u"yyy"), u"2004");
    EXPECT_EQ(FormatTimeText(kMorning, u"hhh mmm sss ttt"), u"09 05 07 AM");
}

TEST(UsEnglishLocale, QuotedTextIsLiteral) {
    EXPECT_EQ(FormatDateText(kMorning, u"'day' d"), u"day 5");
    EXPECT_EQ(FormatTimeText(kMorning, u"h 'o''clock'"), u"9 o'clock");
    EXPECT_EQ(FormatTimeText(kMorning, u"h''''m"), u"9'5");
    EXPECT_EQ(FormatTimeText(kMorning, u"h''m"), u"95");
    EXPECT_EQ(FormatTimeText(kMorning, u"h 'hours"), u"9 hours");
    EXPECT_EQ(FormatTimeText(kMorning, u"h'"), u"9");
}

TEST(UsEnglishLocale, OtherCharactersStandAsTheyAre) {
    EXPECT_EQ(FormatDateText(kMorning, u"h:mm dd"), u"h:mm 05");
    EXPECT_EQ(FormatTimeText(kMorning, u"dMy h"), u"dMy 9");
    EXPECT_EQ(FormatDateText(kMorning, u"d\u65E5 D Y"), u"5\u65E5 D Y");
}

TEST(UsEnglishLocale, ShortDateIsWrittenWithoutLeadingZerosAndWithTheWholeYear) {
    EXPECT_EQ(FormatDateText(kMorning, u""), u"9/5/2004");
    EXPECT_EQ(FormatDateText(kEvening, u""), u"11/17/2004");
    EXPECT_EQ(FormatTimeText(kEvening, u""), u"9:45:30 PM");
}

TEST(UsEnglishLocale, WeekdayComesFromTheDateNotFromItsField) {
    EXPECT_EQ(FormatDateText({2004, 9, 4, 5, 0, 0, 0, 0}, u"dddd"), u"Sunday");
    EXPECT_EQ(FormatDateText({2004, 9, 99, 5, 0, 0, 0, 0}, u"ddd"), u"Sun");
}

TEST(UsEnglishLocale, ImpossibleDatesGiveNothing) {
    EXPECT_EQ(FormatDateText({2004, 2, 0, 31, 0, 0, 0, 0}, u"yyyy.MM.dd"), std::nullopt);
    EXPECT_EQ(FormatDateText({2005, 2, 0, 29, 0, 0, 0, 0}, u""), std::nullopt);
    EXPECT_EQ(FormatDateText({2005, 0, 0, 1, 0, 0, 0, 0}, u""), std::nullopt);
    EXPECT_EQ(FormatDateText({2005, 1, 0, 0, 0, 0, 0, 0}, u"'x'"), std::nullopt);
    EXPECT_EQ(FormatDateText({1600, 12, 0, 31, 0, 0, 0, 0}, u""), std::nullopt);
    EXPECT_EQ(FormatDateText({1601, 1, 0, 1, 0, 0, 0, 0}, u""), u"1/1/1601");
    EXPECT_EQ(FormatDateText({9999, 12, 0, 31, 0, 0, 0, 0}, u""), u"12/31/9999");
    EXPECT_EQ(FormatDateText({10000, 1, 0, 1, 0, 0, 0, 0}, u""), std::nullopt);
}

TEST(UsEnglishLocale, ImpossibleTimesGiveNothing) {
    EXPECT_EQ(FormatTimeText({2004, 9, 0, 5, 24, 0, 0, 0}, u"h"), std::nullopt);
    EXPECT_EQ(FormatTimeText({2004, 9, 0, 5, 0, 60, 0, 0}, u"h"), std::nullopt);
    EXPECT_EQ(FormatTimeText({2004, 9, 0, 5, 0, 0, 60, 0}, u"h"), std::nullopt);
    EXPECT_EQ(FormatTimeText({2004, 9, 0, 5, 0, 0, 0, 1000}, u"h"), std::nullopt);
}

TEST(UsEnglishLocale, DateFormattingIgnoresTheTimeAndTimeFormattingTheDate) {
    EXPECT_EQ(FormatDateText({2004, 9, 0, 5, 99, 99, 99, 9999}, u"d"), u"5");
    EXPECT_EQ(FormatTimeText({0, 99, 0, 99, 21, 45, 0, 0}, u"h:mm"), u"9:45");
}

TEST(UsEnglishLocale, TheBufferHoldsTheTextAndItsTerminator) {
    EXPECT_EQ(FormatDateText(kMorning, u"ddd, MMM, dd, yyyy", 19), u"Sun, Sep, 05, 2004"); // 18 characters
    EXPECT_EQ(FormatDateText(kMorning, u"ddd, MMM, dd, yyyy", 18), std::nullopt);
    EXPECT_EQ(FormatTimeText(kMorning, u"hh:mm", 6), u"09:05");
    EXPECT_EQ(FormatTimeText(kMorning, u"hh:mm", 5), std::nullopt);
    EXPECT_EQ(FormatTimeText(kMorning, u"hh:mm", 0), std::nullopt);
    EXPECT_EQ(FormatTimeText(kMorning, u"hh:mm", -1), std::nullopt);
}

TEST(UsEnglishLocale, AutomationDatesAreConverted) {
    UsEnglishLocale device;
    SYSTEMTIME time;
    ASSERT_TRUE(device.VariantTimeToSystemTime(38245.75, time));
    EXPECT_EQ(time, (SYSTEMTIME{2004, 9, 3, 15, 18, 0, 0, 0}));
    DATE date = 0;
    ASSERT_TRUE(device.SystemTimeToVariantTime(time, date));
    EXPECT_EQ(date, 38245.75);
}

} // namespace tavo::locale

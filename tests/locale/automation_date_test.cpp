// Tests of the conversion between automation dates and broken-down times.
#include "host/locale/automation_date.h"

#include "host/locale/calendar_math.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace tavo::locale {

namespace {

SYSTEMTIME Read(DATE date) {
    SYSTEMTIME time;
    EXPECT_TRUE(VariantTimeToSystemTime(date, time)) << date;
    return time;
}

DATE Write(const SYSTEMTIME& time) {
    DATE date = 0;
    EXPECT_TRUE(SystemTimeToVariantTime(time, date));
    return date;
}

bool ComesBack(const SYSTEMTIME& time) {
    DATE date = 0;
    SYSTEMTIME back;
    return SystemTimeToVariantTime(time, date) && VariantTimeToSystemTime(date, back) && back == time;
}

SYSTEMTIME MakeTime(int dayNumber, int second) {
    const CivilDate date = DateOfDayNumber(dayNumber);
    return {static_cast<std::uint16_t>(date.Year),
            static_cast<std::uint16_t>(date.Month),
            static_cast<std::uint16_t>(WeekdayOfDayNumber(dayNumber)),
            static_cast<std::uint16_t>(date.Day),
            static_cast<std::uint16_t>(second / 3600),
            static_cast<std::uint16_t>(second / 60 % 60),
            static_cast<std::uint16_t>(second % 60),
            0};
}

} // namespace

TEST(AutomationDate, KnownDatesAreRead) {
    EXPECT_EQ(Read(0), (SYSTEMTIME{1899, 12, 6, 30, 0, 0, 0, 0}));
    EXPECT_EQ(Read(2.25), (SYSTEMTIME{1900, 1, 1, 1, 6, 0, 0, 0}));
    EXPECT_EQ(Read(38245.75), (SYSTEMTIME{2004, 9, 3, 15, 18, 0, 0, 0}));
    EXPECT_EQ(Read(kHighestDate), (SYSTEMTIME{2999, 12, 2, 31, 0, 0, 0, 0}));
    EXPECT_EQ(Read(kNoDate), (SYSTEMTIME{4501, 1, 6, 1, 0, 0, 0, 0}));
}

TEST(AutomationDate, TheFractionAddsBeforeZeroToo) {
    EXPECT_EQ(Read(-1.75), (SYSTEMTIME{1899, 12, 5, 29, 18, 0, 0, 0}));
    EXPECT_EQ(Read(-0.5), (SYSTEMTIME{1899, 12, 6, 30, 12, 0, 0, 0}));
    EXPECT_DOUBLE_EQ(Write({1899, 12, 0, 29, 18, 0, 0, 0}), -1.75);
    EXPECT_DOUBLE_EQ(Write({1899, 12, 0, 30, 12, 0, 0, 0}), 0.5);
}

TEST(AutomationDate, RoundsToTheNearestSecond) {
    constexpr double kSecond = 1.0 / 86400;
    EXPECT_EQ(Read(38245 + 10.4 * kSecond).Second, 10);
    EXPECT_EQ(Read(38245 + 10.6 * kSecond).Second, 11);
    EXPECT_EQ(Read(-38245 - 10.4 * kSecond).Second, 10);
    EXPECT_EQ(Read(-38245 - 10.6 * kSecond).Second, 11);
}

TEST(AutomationDate, RoundingCarriesOverMidnightMonthAndYear) {
    constexpr double kAlmostMidnight = 1 - 0.3 / 86400;
    EXPECT_EQ(Read(DayNumberOf(2004, 12, 31) + kAlmostMidnight), (SYSTEMTIME{2005, 1, 6, 1, 0, 0, 0, 0}));
    EXPECT_EQ(Read(-1 - kAlmostMidnight), (SYSTEMTIME{1899, 12, 6, 30, 0, 0, 0, 0}));
}

TEST(AutomationDate, YearsFrom100To9999AreUnderstood) {
    EXPECT_EQ(Read(-657434), (SYSTEMTIME{100, 1, 5, 1, 0, 0, 0, 0}));
    EXPECT_EQ(Read(-657434.5), (SYSTEMTIME{100, 1, 5, 1, 12, 0, 0, 0}));
    EXPECT_EQ(Read(2958465 + 86399.0 / 86400), (SYSTEMTIME{9999, 12, 5, 31, 23, 59, 59, 0}));
}

TEST(AutomationDate, OutsideTheYearsNothingIsRead) {
    const SYSTEMTIME before{2004, 9, 3, 15, 0, 0, 0, 0};
    for (const DATE date : {-657435.0, 2958466.0, 2958465 + 1 - 0.1 / 86400, 1e300, -1e300,
                            std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        SYSTEMTIME time = before;
        EXPECT_FALSE(VariantTimeToSystemTime(date, time)) << date;
        EXPECT_EQ(time, before);
    }
}

TEST(AutomationDate, ImpossibleTimesAreNotWritten) {
    for (const SYSTEMTIME& time : {SYSTEMTIME{2005, 2, 0, 29, 0, 0, 0, 0}, SYSTEMTIME{2005, 0, 0, 1, 0, 0, 0, 0},
                                   SYSTEMTIME{2005, 13, 0, 1, 0, 0, 0, 0}, SYSTEMTIME{2005, 1, 0, 0, 0, 0, 0, 0},
                                   SYSTEMTIME{2005, 1, 0, 1, 24, 0, 0, 0}, SYSTEMTIME{2005, 1, 0, 1, 0, 60, 0, 0},
                                   SYSTEMTIME{2005, 1, 0, 1, 0, 0, 60, 0}, SYSTEMTIME{99, 1, 0, 1, 0, 0, 0, 0},
                                   SYSTEMTIME{10000, 1, 0, 1, 0, 0, 0, 0}}) {
        DATE date = 7;
        EXPECT_FALSE(SystemTimeToVariantTime(time, date));
        EXPECT_EQ(date, 7);
    }
}

TEST(AutomationDate, WeekdayIsNotReadAndMillisecondsAreDropped) {
    EXPECT_EQ(Write({2004, 9, 6, 15, 18, 0, 0, 999}), 38245.75);
}

TEST(AutomationDate, EverySecondOfADayComesBackInEveryCentury) {
    for (const int year : {100, 1600, 1899, 1900, 2004, 2999, 9999}) {
        for (int second = 0; second < kSecondsPerDay; ++second) {
            ASSERT_TRUE(ComesBack(MakeTime(DayNumberOf(year, 12, 29), second))) << year << ' ' << second;
        }
    }
}

TEST(AutomationDate, AMillionOtherSecondsComeBack) {
    std::mt19937 random(20040915);
    std::uniform_int_distribution days(DayNumberOf(100, 1, 1), DayNumberOf(9999, 12, 31));
    std::uniform_int_distribution seconds(0, kSecondsPerDay - 1);
    for (int i = 0; i < 1'000'000; ++i) {
        const SYSTEMTIME time = MakeTime(days(random), seconds(random));
        ASSERT_TRUE(ComesBack(time)) << time.Year << '-' << time.Month << '-' << time.Day << ' ' << time.Second;
    }
}

} // namespace tavo::locale

// What follows from an item's start and end.
#include "edit/item_times.h"

#include "host/locale/us_english_locale.h"

#include <gtest/gtest.h>

namespace tavo {
namespace {

SYSTEMTIME Moment(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    SYSTEMTIME time;
    time.Year = static_cast<std::uint16_t>(year);
    time.Month = static_cast<std::uint16_t>(month);
    time.Day = static_cast<std::uint16_t>(day);
    time.Hour = static_cast<std::uint16_t>(hour);
    time.Minute = static_cast<std::uint16_t>(minute);
    time.Second = static_cast<std::uint16_t>(second);
    return time;
}

ItemTimes Times(const SYSTEMTIME& start, const SYSTEMTIME& end) {
    locale::UsEnglishLocale locale;
    return MakeItemTimes(locale, start, end);
}

TEST(ItemTimes, TheWeekdayIsWorkedOutFromTheDate) {
    SYSTEMTIME start = Moment(2026, 11, 21, 9, 30); // a Saturday
    start.DayOfWeek = 2;
    const ItemTimes times = Times(start, start);
    EXPECT_EQ(times.Start.DayOfWeek, 6);
    EXPECT_EQ(times.StartDayMask(), 64);
    EXPECT_EQ(Times(Moment(2026, 11, 22), {}).StartDayMask(), 1);
}

TEST(ItemTimes, TheInstanceCountsTheWeekdayWithinItsMonth) {
    const int expected[][2] = {{1, 1}, {7, 1}, {8, 2}, {21, 3}, {22, 4}, {28, 4}, {29, 5}, {30, 5}};
    for (const auto& [day, instance] : expected) {
        EXPECT_EQ(Times(Moment(2026, 11, day), {}).StartInstance(), instance) << day;
    }
}

TEST(ItemTimes, ThirtyOneDaysAreExactWhereverTheyLie) {
    for (const int year : {1900, 1989, 2026, 2079, 2258, 2998}) {
        for (int month = 1; month <= 12; ++month) {
            for (int minute = 0; minute < 1440; minute += 7) {
                const SYSTEMTIME start = Moment(year, month, 1, minute / 60, minute % 60, minute % 59);
                ItemTimes times = Times(start, start);
                times.EndDate += 31;
                ASSERT_EQ(static_cast<int>(times.SpanInDays()), 31) << year << ' ' << month << ' ' << minute;
                ASSERT_EQ(times.DurationMinutes(), 31 * 1440);
            }
        }
    }
}

TEST(ItemTimes, AMinuteLessThanThirtyOneDaysIsThirty) {
    const ItemTimes times = Times(Moment(2026, 1, 1, 10, 0), Moment(2026, 2, 1, 9, 59));
    EXPECT_EQ(static_cast<int>(times.SpanInDays()), 30);
    EXPECT_EQ(times.DurationMinutes(), 31 * 1440 - 1);
}

TEST(ItemTimes, EveryDurationOfWholeMinutesIsKept) {
    for (int minutes = 0; minutes < 1440; ++minutes) {
        const ItemTimes times =
            Times(Moment(2026, 11, 20, 23, 59),
                  Moment(2026, 11, 20 + (minutes + 1439) / 1440, (minutes + 1439) % 1440 / 60, (minutes + 1439) % 60));
        ASSERT_EQ(times.DurationMinutes(), minutes);
    }
}

TEST(ItemTimes, SecondsAreCutTowardsZero) {
    EXPECT_EQ(Times(Moment(2026, 11, 21, 9, 0), Moment(2026, 11, 21, 9, 1, 59)).DurationMinutes(), 1);
    EXPECT_EQ(Times(Moment(2026, 11, 21, 9, 1), Moment(2026, 11, 21, 9, 0)).DurationMinutes(), 0);
    EXPECT_EQ(Times(Moment(2026, 11, 21, 9, 3), Moment(2026, 11, 21, 9, 0)).DurationMinutes(), -2);
}

TEST(ItemTimes, ThousandsOfYearsDoNotOverflowTheMinutes) {
    EXPECT_EQ(Times(Moment(9999, 12, 31), Moment(1601, 1, 1)).DurationMinutes(), -2147483647 - 1);
    EXPECT_EQ(Times(Moment(1601, 1, 1), Moment(9999, 12, 31)).DurationMinutes(), 2147483647);
}

TEST(ItemTimes, AMidnightHasNothingOfTheTimeAndAJoinedTimeNothingOfTheDay) {
    SYSTEMTIME day = Moment(2026, 11, 21, 23, 59, 58);
    day.Milliseconds = 999;
    EXPECT_EQ(MidnightOf(day), Moment(2026, 11, 21));
    EXPECT_EQ(JoinDateAndTime(day, Moment(2027, 1, 2, 8, 15, 30)), Moment(2026, 11, 21, 8, 15, 30));
    SYSTEMTIME rounded = day;
    rounded.Milliseconds = 5;
    EXPECT_EQ(RoundDownToHalfHour(rounded), Moment(2026, 11, 21, 23, 30));
}

TEST(ItemTimes, TheClockIsRoundedDownToTheHalfHour) {
    EXPECT_EQ(RoundDownToHalfHour(Moment(2026, 11, 21, 9, 29, 59)), Moment(2026, 11, 21, 9, 0));
    EXPECT_EQ(RoundDownToHalfHour(Moment(2026, 11, 21, 9, 30)), Moment(2026, 11, 21, 9, 30));
    EXPECT_EQ(RoundDownToHalfHour(Moment(2026, 11, 21, 23, 59, 1)), Moment(2026, 11, 21, 23, 30));
}

} // namespace
} // namespace tavo

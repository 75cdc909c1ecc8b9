// Which days and times are read from what people write, on a Wednesday afternoon.
#include "tools/when.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

namespace tavo::tools {
namespace {

using std::chrono::November;
using testing::HasSubstr;

// Wednesday, 25 November 2026, 14:20
constexpr Moment kNow{std::chrono::sys_days(std::chrono::year(2026) / November / 25), 14 * 60 + 20};

// As "2026-12-01 09:30", with a dash for what is not told; what is refused, as its sentence.
std::string Read(const std::string& text, const Moment& now = kNow) {
    std::string error;
    const std::optional<When> when = ReadWhen(text, now, error);
    if (!when) {
        return error;
    }
    return (when->Date ? WriteIsoDay(*when->Date) : "-") + " " + (when->Minute ? WriteClock(*when->Minute) : "-");
}

struct Reading {
    const char* Text;
    const char* Meaning;
};

void PrintTo(const Reading& reading, std::ostream* stream) {
    *stream << reading.Text;
}

class WhenRead : public testing::TestWithParam<Reading> {};

TEST_P(WhenRead, IsTheDayAndTimeThatIsMeant) {
    EXPECT_EQ(Read(GetParam().Text), GetParam().Meaning) << GetParam().Text;
}

INSTANTIATE_TEST_SUITE_P(
    Named, WhenRead,
    testing::Values(Reading{"today", "2026-11-25 -"}, Reading{"tomorrow", "2026-11-26 -"},
                    Reading{"Yesterday", "2026-11-24 -"}, Reading{"tomorrow 15:00", "2026-11-26 15:00"},
                    Reading{"tomorrow at 15:00", "2026-11-26 15:00"}, Reading{"15:00 tomorrow", "2026-11-26 15:00"},
                    Reading{"  tomorrow,  15:00 ", "2026-11-26 15:00"}, Reading{"now", "2026-11-25 14:20"}));

INSTANTIATE_TEST_SUITE_P(Weekdays, WhenRead,
                         testing::Values(Reading{"wed", "2026-11-25 -"}, Reading{"fri", "2026-11-27 -"},
                                         Reading{"tues", "2026-12-01 -"}, Reading{"sunday", "2026-11-29 -"},
                                         Reading{"friday 9:30", "2026-11-27 09:30"},
                                         Reading{"this fri", "2026-11-27 -"}, Reading{"next fri", "2026-12-04 -"},
                                         Reading{"next mon", "2026-11-30 -"}, Reading{"next sun", "2026-12-06 -"},
                                         Reading{"last wed", "2026-11-18 -"}, Reading{"last fri", "2026-11-20 -"},
                                         Reading{"Tue 1 December 2026 09:30", "2026-12-01 09:30"}));

INSTANTIATE_TEST_SUITE_P(
    Dates, WhenRead,
    testing::Values(Reading{"2026-12-01", "2026-12-01 -"}, Reading{"2026-12-01 9:30", "2026-12-01 09:30"},
                    Reading{"2026-12-01T09:30", "2026-12-01 09:30"}, Reading{"2026-12-01T09:30:00", "2026-12-01 09:30"},
                    Reading{"20261201", "2026-12-01 -"}, Reading{"1 dec", "2026-12-01 -"},
                    Reading{"1 Dec. 15:00", "2026-12-01 15:00"}, Reading{"24 nov", "2027-11-24 -"},
                    Reading{"25 nov", "2026-11-25 -"}, Reading{"dec 1 2027", "2027-12-01 -"},
                    Reading{"December 1st, 2027", "2027-12-01 -"}, Reading{"the 1st of december", "2026-12-01 -"},
                    Reading{"1. sept", "2027-09-01 -"}, Reading{"29 feb", "2028-02-29 -"},
                    Reading{"1.12.2026", "2026-12-01 -"}, Reading{"1.12.", "2026-12-01 -"},
                    Reading{"31/12/2026", "2026-12-31 -"}, Reading{"12/31/2026", "2026-12-31 -"},
                    Reading{"4/4/2027", "2027-04-04 -"}));

INSTANTIATE_TEST_SUITE_P(Distances, WhenRead,
                         testing::Values(Reading{"+3d", "2026-11-28 -"}, Reading{"+3 days", "2026-11-28 -"},
                                         Reading{"-1w", "2026-11-18 -"}, Reading{"in 2 weeks", "2026-12-09 -"},
                                         Reading{"in a week 9:00", "2026-12-02 09:00"}, Reading{"+3m", "2027-02-25 -"},
                                         Reading{"in 1 year", "2027-11-25 -"},
                                         Reading{"in 2 hours", "2026-11-25 16:20"},
                                         Reading{"in an hour", "2026-11-25 15:20"}, Reading{"+10h", "2026-11-26 00:20"},
                                         Reading{"-15h", "2026-11-24 23:20"}, Reading{"in 45 min", "2026-11-25 15:05"},
                                         Reading{"3 days ago", "2026-11-22 -"}, Reading{"next week", "2026-12-02 -"},
                                         Reading{"next month", "2026-12-25 -"}, Reading{"last year", "2025-11-25 -"}));

INSTANTIATE_TEST_SUITE_P(Times, WhenRead,
                         testing::Values(Reading{"9:30", "- 09:30"}, Reading{"09:30", "- 09:30"},
                                         Reading{"00:00", "- 00:00"}, Reading{"23:59", "- 23:59"},
                                         Reading{"3pm", "- 15:00"}, Reading{"3 PM", "- 15:00"},
                                         Reading{"3:15 p.m.", "- 15:15"}, Reading{"12am", "- 00:00"},
                                         Reading{"12 pm", "- 12:00"}, Reading{"noon", "- 12:00"},
                                         Reading{"midnight", "- 00:00"}));

class WhenRefused : public testing::TestWithParam<Reading> {};

TEST_P(WhenRefused, NamesThePartThatCannotBe) {
    const std::string error = Read(GetParam().Text);
    EXPECT_THAT(error, testing::StartsWith("\"" + std::string(GetParam().Text) + "\" cannot be read: "));
    EXPECT_THAT(error, HasSubstr(GetParam().Meaning));
    EXPECT_THAT(error, HasSubstr("Write it like \"2026-11-25 15:00\""));
}

INSTANTIATE_TEST_SUITE_P(
    When, WhenRefused,
    testing::Values(
        Reading{"30 feb", "February has 29 days at the most"}, Reading{"29 feb 2027", "February 2027 has 28 days"},
        Reading{"2026-02-30", "February 2026 has 28 days"}, Reading{"31 nov", "November has 30 days"},
        Reading{"2026-13-01", "a year has no month 13"}, Reading{"2026-00-01", "a year has no month 0"},
        Reading{"0 dec", "December has 31 days"}, Reading{"25:00", "a day has no hour 25"},
        Reading{"24:00", "a day has no hour 24"}, Reading{"tomorrow 9:75", "an hour has no minute 75"},
        Reading{"9:3", "is no time"}, Reading{"9:30:15", "is no time"}, Reading{"13pm", "hours go from 1 to 12"},
        Reading{"0am", "hours go from 1 to 12"}, Reading{"9.30", "a time is written with a colon"},
        Reading{"03/04/2026", "it could be 2026-04-03 (3 Apr) or 2026-03-04 (4 Mar)"},
        Reading{"3-4-2026", "2026-04-03 (3 Apr) or 2026-03-04"}, Reading{"3/4", "2026-04-03 (3 Apr) or 2026-03-04"},
        Reading{"1/12/26", "a year has four digits"}, Reading{"1.12.26", "a year has four digits"},
        Reading{"15", "alone could be an hour, a day or a year"}, Reading{"", "names no day and no time"},
        Reading{"tomorow", "did you mean \"tomorrow\"?"}, Reading{"frday", "did you mean \"friday\"?"},
        Reading{"someday", "\"someday\" is no day and no time"}, Reading{"today tomorrow", "it names two days"},
        Reading{"9:00 10:00", "it names two times"}, Reading{"fri sat", "it names two days"},
        Reading{"mon 1 dec 2026", "2026-12-01 is a Tuesday"}, Reading{"next", "behind \"next\" stands"},
        Reading{"dec", "behind December stands its day"}, Reading{"at", "something is missing"},
        Reading{"in", "a distance is a number"}, Reading{"in two weeks", "a distance is a number"},
        Reading{"+", "a distance is a number"}, Reading{"-", "a distance is a number"},
        Reading{"+3x", "a distance is a number"}, Reading{"+99999d", "too great"},
        Reading{"+9999999999999d", "a distance is a number"}, Reading{"+20000m", "years 1900 to 2999"},
        Reading{"+40000y", "too great"}, Reading{"1 dec 1899", "years 1900 to 2999"},
        Reading{"3000-01-01", "years 1900 to 2999"}, Reading{"1.2.3.4", "is no date and no time"},
        Reading{"2026-12-01T", "behind the T stands a time"}, Reading{"2026-12-01x", "is no date"},
        Reading{"2026-12-01 09:30Z", "is no time"}, Reading{"\xC3\xA4\xF0", "is no day and no time"}));

TEST(When, AMonthLaterOnADayThatItDoesNotHaveIsItsLastDay) {
    const Moment now{std::chrono::sys_days(std::chrono::year(2027) / 1 / 31), 0};
    EXPECT_EQ(Read("in 1 month", now), "2027-02-28 -");
}

TEST(When, OnASundayTheNextWeekBeginsTomorrow) {
    const Moment now{std::chrono::sys_days(std::chrono::year(2026) / November / 29), 0};
    EXPECT_EQ(Read("sun", now), "2026-11-29 -");
    EXPECT_EQ(Read("next mon", now), "2026-11-30 -");
    EXPECT_EQ(Read("next sun", now), "2026-12-06 -");
    EXPECT_EQ(Read("last sun", now), "2026-11-22 -");
}

} // namespace
} // namespace tavo::tools

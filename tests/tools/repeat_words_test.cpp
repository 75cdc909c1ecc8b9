// Which repetitions are read from what people write, on a Wednesday afternoon.
#include "tools/repeat_words.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

namespace tavo::tools {
namespace {

using std::chrono::November;
using testing::HasSubstr;
using testing::StartsWith;

// Wednesday, 25 November 2026, 14:20
constexpr Moment kNow{std::chrono::sys_days(std::chrono::year(2026) / November / 25), 14 * 60 + 20};

// The rule; what is refused, as its sentence.
std::string Read(const std::string& text) {
    std::string error;
    const std::optional<RepeatRule> rule = ReadRepeat(text, kNow, error);
    return rule ? rule->Value : error;
}

// Of what begins on that day.
std::string WriteFor(const std::string& text, int year, int month, int day) {
    std::string error;
    const std::optional<RepeatRule> rule = ReadRepeat(text, kNow, error);
    return rule ? WriteRule(*rule, rules::DayFromCivil(year, month, day)) : error;
}

struct Reading {
    const char* Text;
    const char* Rule;
};

void PrintTo(const Reading& reading, std::ostream* stream) {
    *stream << reading.Text;
}

class RepeatReading : public testing::TestWithParam<Reading> {};

TEST_P(RepeatReading, IsTheRuleThatOtherCalendarsWouldWrite) {
    EXPECT_EQ(Read(GetParam().Text), GetParam().Rule);
}

INSTANTIATE_TEST_SUITE_P(Words, RepeatReading,
                         testing::Values(Reading{"daily", "FREQ=DAILY"}, Reading{"Every day", "FREQ=DAILY"},
                                         Reading{"each day", "FREQ=DAILY"}, Reading{"weekly", "FREQ=WEEKLY"},
                                         Reading{"monthly", "FREQ=MONTHLY"}, Reading{"yearly", "FREQ=YEARLY"},
                                         Reading{"every year", "FREQ=YEARLY"},
                                         Reading{"every other week", "FREQ=WEEKLY;INTERVAL=2"},
                                         Reading{"every 3 months", "FREQ=MONTHLY;INTERVAL=3"},
                                         Reading{"every 1 day", "FREQ=DAILY"},
                                         Reading{"weekdays", "FREQ=WEEKLY;BYDAY=MO,TU,WE,TH,FR"},
                                         Reading{"every weekday", "FREQ=WEEKLY;BYDAY=MO,TU,WE,TH,FR"},
                                         Reading{"every monday", "FREQ=WEEKLY;BYDAY=MO"},
                                         Reading{"weekly on mon,wed", "FREQ=WEEKLY;BYDAY=MO,WE"},
                                         Reading{"weekly on Sat and Sun", "FREQ=WEEKLY;BYDAY=SU,SA"},
                                         Reading{"weekly fri", "FREQ=WEEKLY;BYDAY=FR"},
                                         Reading{"every 2 weeks on tue", "FREQ=WEEKLY;INTERVAL=2;BYDAY=TU"}));

INSTANTIATE_TEST_SUITE_P(
    Ends, RepeatReading,
    testing::Values(Reading{"daily 10 times", "FREQ=DAILY;COUNT=10"}, Reading{"daily for 1 time", "FREQ=DAILY;COUNT=1"},
                    Reading{"weekly on mon 9999 times", "FREQ=WEEKLY;BYDAY=MO;COUNT=9999"},
                    Reading{"daily until 1 dec", "FREQ=DAILY;UNTIL=20261201"},
                    Reading{"weekdays until 2027-03-01", "FREQ=WEEKLY;BYDAY=MO,TU,WE,TH,FR;UNTIL=20270301"},
                    Reading{"daily until tomorrow", "FREQ=DAILY;UNTIL=20261126"}));

INSTANTIATE_TEST_SUITE_P(Rules, RepeatReading,
                         testing::Values(Reading{"FREQ=MONTHLY;BYDAY=2MO", "FREQ=MONTHLY;BYDAY=2MO"},
                                         Reading{" rrule:FREQ=DAILY ", "FREQ=DAILY"}));

TEST_P(RepeatReading, StaysAsItIsOnTheFirstOfAMonth) {
    EXPECT_EQ(WriteFor(GetParam().Text, 2026, 12, 1), GetParam().Rule);
}

class RepeatRefusal : public testing::TestWithParam<Reading> {};

TEST_P(RepeatRefusal, IsSaidWithTheTextAndTheReason) {
    EXPECT_THAT(Read(GetParam().Text), StartsWith("\"" + std::string(GetParam().Text) +
                                                  "\" cannot be read: " + GetParam().Rule + ". Write it like "));
}

INSTANTIATE_TEST_SUITE_P(
    , RepeatRefusal,
    testing::Values(Reading{"", "it says nothing"}, Reading{"often", "\"often\" is no repetition"},
                    Reading{"every", "behind \"every\" stand days, weeks, months, years or weekdays"},
                    Reading{"every 2 minutes", "behind \"every\" stand days, weeks, months, years or weekdays"},
                    Reading{"every 0 days", "a number of days, weeks, months or years goes from 1 to 999"},
                    Reading{"every 1000 days", "a number of days, weeks, months or years goes from 1 to 999"},
                    Reading{"monthly on mon", "only weeks have days of the week"},
                    Reading{"weekdays on sat", "only weeks have days of the week"},
                    Reading{"weekly on", "behind \"on\" stand weekdays"},
                    Reading{"weekly on the 3rd", "behind \"on\" stand weekdays"},
                    Reading{"daily 0 times", "how many times goes from 1 to 9999"},
                    Reading{"daily 10000 times", "how many times goes from 1 to 9999"},
                    Reading{"daily x times", "how many times goes from 1 to 9999"},
                    Reading{"daily until 1 dec 15:00", "behind \"until\" stands a day without a time"},
                    Reading{"daily often", "\"often\" cannot stand there"},
                    Reading{"FREQ=BOGUS", "it is no rule of iCalendar"}));

TEST(RepeatWords, ADayThatCannotBeIsSaidLikeAnyOther) {
    EXPECT_THAT(Read("daily until 30 feb"), HasSubstr("February has 29 days at the most"));
}

TEST(RepeatWords, ALineEndWouldBeginAnotherLine) {
    EXPECT_THAT(Read("FREQ=DAILY\r\nATTENDEE:x"), HasSubstr("it holds characters that no rule has"));
}

TEST(RepeatWords, ADayThatAMonthDoesNotHaveIsItsLastOne) {
    EXPECT_EQ(WriteFor("monthly", 2027, 1, 28), "FREQ=MONTHLY");
    EXPECT_EQ(WriteFor("monthly", 2027, 1, 29), "FREQ=MONTHLY;BYMONTHDAY=28,29;BYSETPOS=-1");
    EXPECT_EQ(WriteFor("monthly", 2027, 1, 31), "FREQ=MONTHLY;BYMONTHDAY=-1");
    EXPECT_EQ(WriteFor("yearly", 2028, 2, 29), "FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=-1");
    EXPECT_EQ(WriteFor("yearly", 2028, 3, 31), "FREQ=YEARLY");
    EXPECT_EQ(WriteFor("weekly", 2027, 1, 31), "FREQ=WEEKLY");
    EXPECT_EQ(WriteFor("FREQ=MONTHLY", 2027, 1, 31), "FREQ=MONTHLY"); // as it is written
}

TEST(RepeatWords, WeekdaysBeginOnTheFirstOfThem) {
    std::string error;
    const std::optional<RepeatRule> rule = ReadRepeat("weekly on mon,thu", kNow, error);
    ASSERT_TRUE(rule) << error;
    const rules::DayNumber wednesday = rules::DayFromCivil(2026, 11, 25);
    EXPECT_EQ(FindFirstDay(*rule, wednesday), wednesday + 1);
    EXPECT_EQ(FindFirstDay(*rule, wednesday + 1), wednesday + 1);
    EXPECT_EQ(FindFirstDay(*rule, wednesday + 2), wednesday + 5);
    EXPECT_EQ(FindFirstDay(RepeatRule{"FREQ=DAILY", true, 0}, wednesday), wednesday);
}

} // namespace
} // namespace tavo::tools

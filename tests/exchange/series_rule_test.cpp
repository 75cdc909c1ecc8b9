// Which rules become one of the six types, and which stay as they are.
#include "host/exchange/series_rule.h"
#include "host/rules/calendar_value.h"

#include <gtest/gtest.h>

#include <string>

namespace tavo::exchange {

namespace {

// The rule as one line, "foreign" when no type says it. `start` as in iCalendar.
std::string Recognise(const char* rule, const char* start) {
    rules::RuleText text;
    std::string fault;
    EXPECT_TRUE(rules::ReadRuleText(rule, text, fault)) << rule;
    const std::optional<SeriesRule> series =
        RecogniseRule(text, rules::ReadCalendarTime(start).value_or(rules::CalendarTime()).ToSeconds());
    if (!series) {
        return "foreign";
    }
    return "type " + std::to_string(series->Type) + " every " + std::to_string(series->Interval) + " mask " +
           std::to_string(series->DayOfWeekMask) + " day " + std::to_string(series->DayOfMonth) + " nth " +
           std::to_string(series->Instance) + " month " + std::to_string(series->MonthOfYear);
}

// 2026-03-02 is a Monday.
TEST(SeriesRule, DailyRules) {
    EXPECT_EQ(Recognise("FREQ=DAILY", "20260302T090000"), "type 0 every 1 mask 0 day 0 nth 0 month 0");
    EXPECT_EQ(Recognise("FREQ=DAILY;INTERVAL=3", "20260302T090000"), "type 0 every 3 mask 0 day 0 nth 0 month 0");
    EXPECT_EQ(Recognise("FREQ=DAILY;INTERVAL=1000", "20260302T090000"), "foreign");
}

TEST(SeriesRule, DailyOnWeekdaysIsDailyWithTheWeekdayMask) {
    EXPECT_EQ(Recognise("FREQ=DAILY;BYDAY=MO,TU,WE,TH,FR", "20260302T090000"),
              "type 0 every 1 mask 62 day 0 nth 0 month 0");
}

TEST(SeriesRule, DailyOnOtherDaysIsWeekly) {
    EXPECT_EQ(Recognise("FREQ=DAILY;BYDAY=MO,SA", "20260302T090000"), "type 1 every 1 mask 66 day 0 nth 0 month 0");
    EXPECT_EQ(Recognise("FREQ=DAILY;INTERVAL=2;BYDAY=MO,SA", "20260302T090000"), "foreign");
}

TEST(SeriesRule, WeeklyRules) {
    EXPECT_EQ(Recognise("FREQ=WEEKLY", "20260302T090000"), "type 1 every 1 mask 2 day 0 nth 0 month 0");
    EXPECT_EQ(Recognise("FREQ=WEEKLY;BYDAY=MO,TU,WE,TH,FR", "20260302T090000"),
              "type 1 every 1 mask 62 day 0 nth 0 month 0");
    EXPECT_EQ(Recognise("FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,TH", "20260302T090000"),
              "type 1 every 2 mask 18 day 0 nth 0 month 0");
}

TEST(SeriesRule, AWeekThatBeginsElsewhereMattersOnlyWhenItMovesADay) {
    // Weeks from Monday put Sunday behind the Monday it starts with, weeks from Sunday before it.
    EXPECT_EQ(Recognise("FREQ=WEEKLY;INTERVAL=2;BYDAY=SU,MO", "20260302T090000"), "foreign");
    EXPECT_EQ(Recognise("FREQ=WEEKLY;INTERVAL=2;WKST=SU;BYDAY=SU,MO", "20260302T090000"),
              "type 1 every 2 mask 3 day 0 nth 0 month 0");
    EXPECT_EQ(Recognise("FREQ=WEEKLY;INTERVAL=1;BYDAY=SU,MO", "20260302T090000"),
              "type 1 every 1 mask 3 day 0 nth 0 month 0");
}

TEST(SeriesRule, AStartOutsideTheRuleKeepsTheRule) {
    EXPECT_EQ(Recognise("FREQ=WEEKLY;BYDAY=TU", "20260302T090000"), "foreign");
    EXPECT_EQ(Recognise("FREQ=MONTHLY;BYMONTHDAY=3", "20260302T090000"), "foreign");
    EXPECT_EQ(Recognise("FREQ=MONTHLY;BYDAY=2MO", "20260302T090000"), "foreign");
    EXPECT_EQ(Recognise("FREQ=YEARLY;BYMONTH=4", "20260302T090000"), "foreign");
}

TEST(SeriesRule, MonthlyOnADayThatEveryMonthHas) {
    EXPECT_EQ(Recognise("FREQ=MONTHLY", "20260328T090000"), "type 2 every 1 mask 0 day 28 nth 0 month 0");
    EXPECT_EQ(Recognise("FREQ=MONTHLY;INTERVAL=3;BYMONTHDAY=15", "20260315T090000"),
              "type 2 every 3 mask 0 day 15 nth 0 month 0");
}

TEST(SeriesRule, MonthlyOnThe29thSkipsFebruaryWhichNoTypeSays) {
    EXPECT_EQ(Recognise("FREQ=MONTHLY", "20260329T090000"), "foreign");
    EXPECT_EQ(Recognise("FREQ=MONTHLY;BYMONTHDAY=31", "20260331T090000"), "foreign");
}

TEST(SeriesRule, TheLastDayOfTheMonthIsTheThirtyFirst) {
    EXPECT_EQ(Recognise("FREQ=MONTHLY;BYMONTHDAY=-1", "20260430T090000"), "type 2 every 1 mask 0 day 31 nth 0 month 0");
    EXPECT_EQ(Recognise("FREQ=MONTHLY;BYMONTHDAY=-1", "20260429T090000"), "foreign");
    EXPECT_EQ(Recognise("FREQ=MONTHLY;BYMONTHDAY=-2", "20260429T090000"), "foreign");
}

TEST(SeriesRule, MonthlyOnTheNthWeekday) {
    EXPECT_EQ(Recognise("FREQ=MONTHLY;BYDAY=1MO", "20260302T090000"), "type 3 every 1 mask 2 day 0 nth 1 month 0");
    EXPECT_EQ(Recognise("FREQ=MONTHLY;BYDAY=-1FR", "20260327T090000"), "type 3 every 1 mask 32 day 0 nth 5 month 0");
    EXPECT_EQ(Recognise("FREQ=MONTHLY;BYDAY=5MO", "20260330T090000"), "foreign"); // not every month has five
    EXPECT_EQ(Recognise("FREQ=MONTHLY;BYDAY=1MO,3MO", "20260302T090000"), "foreign");
    EXPECT_EQ(Recognise("FREQ=MONTHLY;BYDAY=MO", "20260302T090000"), "foreign");
}

TEST(SeriesRule, MonthlyOnTheNthOfSeveralWeekdays) {
    // The first working day; the last one.
    EXPECT_EQ(Recognise("FREQ=MONTHLY;BYDAY=MO,TU,WE,TH,FR;BYSETPOS=1", "20260302T090000"),
              "type 3 every 1 mask 62 day 0 nth 1 month 0");
    EXPECT_EQ(Recognise("FREQ=MONTHLY;BYDAY=MO,TU,WE,TH,FR;BYSETPOS=-1", "20260331T090000"),
              "type 3 every 1 mask 62 day 0 nth 5 month 0");
    EXPECT_EQ(Recognise("FREQ=MONTHLY;BYDAY=MO,TU,WE,TH,FR;BYSETPOS=1,2", "20260302T090000"), "foreign");
    EXPECT_EQ(Recognise("FREQ=MONTHLY;BYDAY=1MO,1TU", "20260302T090000"), "foreign");
}

TEST(SeriesRule, YearlyRules) {
    EXPECT_EQ(Recognise("FREQ=YEARLY", "20260731T090000"), "type 5 every 1 mask 0 day 31 nth 0 month 7");
    EXPECT_EQ(Recognise("FREQ=YEARLY;BYMONTH=12;BYMONTHDAY=25", "20261225T090000"),
              "type 5 every 1 mask 0 day 25 nth 0 month 12");
    EXPECT_EQ(Recognise("FREQ=YEARLY;INTERVAL=2", "20260731T090000"), "foreign");
    EXPECT_EQ(Recognise("FREQ=YEARLY;BYMONTHDAY=25", "20261225T090000"), "foreign"); // of every month
    EXPECT_EQ(Recognise("FREQ=YEARLY;BYMONTH=1,7", "20260101T090000"), "foreign");
}

TEST(SeriesRule, YearlyOnThe29thOfFebruarySkipsYearsWhichNoTypeSays) {
    EXPECT_EQ(Recognise("FREQ=YEARLY", "20280229T090000"), "foreign");
    EXPECT_EQ(Recognise("FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=-1", "20280229T090000"),
              "type 5 every 1 mask 0 day 29 nth 0 month 2");
}

TEST(SeriesRule, YearlyOnTheNthWeekdayOfItsMonth) {
    EXPECT_EQ(Recognise("FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU", "20260329T010000"),
              "type 6 every 1 mask 1 day 0 nth 5 month 3");
    EXPECT_EQ(Recognise("FREQ=YEARLY;BYMONTH=11;BYDAY=4TH", "20261126T000000"),
              "type 6 every 1 mask 16 day 0 nth 4 month 11");
    EXPECT_EQ(Recognise("FREQ=YEARLY;BYDAY=1MO", "20260105T090000"), "foreign"); // of the year
}

TEST(SeriesRule, TimesOtherThanTheStartsKeepTheRule) {
    EXPECT_EQ(Recognise("FREQ=DAILY;BYHOUR=9;BYMINUTE=0", "20260302T090000"),
              "type 0 every 1 mask 0 day 0 nth 0 month 0");
    EXPECT_EQ(Recognise("FREQ=DAILY;BYHOUR=9,17", "20260302T090000"), "foreign");
    EXPECT_EQ(Recognise("FREQ=HOURLY;INTERVAL=6", "20260302T090000"), "foreign");
    EXPECT_EQ(Recognise("FREQ=YEARLY;BYYEARDAY=100", "20260410T090000"), "foreign");
    EXPECT_EQ(Recognise("FREQ=YEARLY;BYWEEKNO=10", "20260302T090000"), "foreign");
}

} // namespace
} // namespace tavo::exchange

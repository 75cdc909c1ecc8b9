// Recurrence patterns in words.
#include "store/describe_recurrence.h"

#include <gtest/gtest.h>

namespace tavo {

namespace {

constexpr std::int32_t kMonday = 2;
constexpr std::int32_t kThursday = 16;
constexpr std::int32_t kFriday = 32;

constexpr SYSTEMTIME kFridayThe15th{2006, 9, 5, 15, 10, 0, 0, 0};
constexpr SYSTEMTIME kChristmas{2006, 12, 1, 25, 0, 0, 0, 0};

// An appointment on Friday, 15 September 2006.
AppointmentData Recurring(std::int32_t type, std::int32_t choice, std::int32_t interval) {
    AppointmentData record;
    record.Start = kFridayThe15th;
    record.RecurType = type;
    record.RecurChoice = choice;
    record.Interval = interval;
    return record;
}

AppointmentData Weekly(std::int32_t interval, std::int32_t mask) {
    AppointmentData record = Recurring(kRecursWeekly, kChoiceWeekly, interval);
    record.DayOfWeekMask = mask;
    return record;
}

AppointmentData Nth(std::int32_t type, std::int32_t instance, std::int32_t interval = 1) {
    AppointmentData record = Recurring(type, kChoiceCustom, interval);
    record.Instance = instance;
    return record;
}

TEST(DescribeRecurrence, OnceWhenNotRecurring) {
    EXPECT_EQ(DescribeRecurrence(Recurring(kRecursOnce, kChoiceOnce, 1)), u"Once");
    EXPECT_EQ(DescribeRecurrence(Recurring(kRecursOnce, kChoiceWeekdays, 3)), u"Once");
}

TEST(DescribeRecurrence, Daily) {
    EXPECT_EQ(DescribeRecurrence(Recurring(kRecursDaily, kChoiceEveryday, 1)), u"Everyday");
    EXPECT_EQ(DescribeRecurrence(Recurring(kRecursDaily, kChoiceCustom, 10)), u"Every 10 days");
    EXPECT_EQ(DescribeRecurrence(Recurring(kRecursDaily, kChoiceCustom, 0)), u"Every 0 days");
}

TEST(DescribeRecurrence, WeekdaysWhetherDailyOrWeekly) {
    EXPECT_EQ(DescribeRecurrence(Recurring(kRecursDaily, kChoiceWeekdays, 1)), u"Every Weekdays(Mon-Fri)");
    EXPECT_EQ(DescribeRecurrence(Recurring(kRecursWeekly, kChoiceWeekdays, 1)), u"Every Weekdays(Mon-Fri)");
    EXPECT_EQ(DescribeRecurrence(Recurring(kRecursDaily, kChoiceWeekdays, 2)), u"Every 2 Weekdays(Mon-Fri)");
    EXPECT_EQ(DescribeRecurrence(Recurring(kRecursWeekly, kChoiceWeekdays, 3)), u"Every 3 Weekdays(Mon-Fri)");
}

TEST(DescribeRecurrence, WeeklyNamesItsDays) {
    EXPECT_EQ(DescribeRecurrence(Weekly(1, kMonday | kFriday)), u"Every Mon.,Fri.");
    EXPECT_EQ(DescribeRecurrence(Weekly(1, 127)), u"Every Sun.,Mon.,Tue.,Wed.,Thu.,Fri.,Sat.");
    EXPECT_EQ(DescribeRecurrence(Weekly(1, kWeekdaysMask)), u"Every Mon.,Tue.,Wed.,Thu.,Fri.");
}

TEST(DescribeRecurrence, AWeekHasSevenDaysWhateverTheMaskHolds) {
    EXPECT_EQ(DescribeRecurrence(Weekly(1, 128 | kMonday)), u"Every Mon.");
}

TEST(DescribeRecurrence, EveryFewWeeksHasNoBlankAfterOn) {
    EXPECT_EQ(DescribeRecurrence(Weekly(2, kMonday | kThursday)), u"Every 2 week(s) onMon.,Thu.");
}

TEST(DescribeRecurrence, WeeklyWithoutADayLosesTheLastCharacterOfItsPrefix) {
    EXPECT_EQ(DescribeRecurrence(Weekly(1, 0)), u"Every");
    EXPECT_EQ(DescribeRecurrence(Weekly(2, 0)), u"Every 2 week(s) o");
}

TEST(DescribeRecurrence, MonthlyEndsWithABlank) {
    AppointmentData record = Recurring(kRecursMonthly, kChoiceMonthly, 3);
    record.DayOfMonth = 15;
    EXPECT_EQ(DescribeRecurrence(record), u"Day 15 of every 3 months ");
    record.Interval = 1;
    record.DayOfMonth = 31;
    EXPECT_EQ(DescribeRecurrence(record), u"Day 31 of every month ");
}

TEST(DescribeRecurrence, MonthlyOnTheNthWeekday) {
    EXPECT_EQ(DescribeRecurrence(Nth(kRecursMonthNth, 5)), u"The last Fri. of every month");
    EXPECT_EQ(DescribeRecurrence(Nth(kRecursMonthNth, 1)), u"The 1st Fri. of every month");
    EXPECT_EQ(DescribeRecurrence(Nth(kRecursMonthNth, 2, 6)), u"The 2nd Fri. of every 6 months");
}

TEST(DescribeRecurrence, MonthNthTakesTheWeekdayOfTheStartWhateverTheMaskHolds) {
    AppointmentData record = Nth(kRecursMonthNth, 3);
    record.DayOfWeekMask = kMonday;
    EXPECT_EQ(DescribeRecurrence(record), u"The 3rd Fri. of every month");
}

TEST(DescribeRecurrence, YearlyNamesTheStart) {
    AppointmentData record = Recurring(kRecursYearly, kChoiceYearly, 1);
    record.Start = kChristmas;
    EXPECT_EQ(DescribeRecurrence(record), u"Dec. 25 of every year");
}

TEST(DescribeRecurrence, YearlyIgnoresTheMonthAndDayOfThePattern) {
    AppointmentData record = Recurring(kRecursYearly, kChoiceYearly, 1);
    record.Start = kChristmas;
    record.MonthOfYear = 3;
    record.DayOfMonth = 7;
    EXPECT_EQ(DescribeRecurrence(record), u"Dec. 25 of every year");
}

TEST(DescribeRecurrence, YearlyOnTheNthWeekdayIgnoresTheMonthOfThePattern) {
    AppointmentData record = Nth(kRecursYearNth, 4);
    record.MonthOfYear = 2;
    EXPECT_EQ(DescribeRecurrence(record), u"The 4th Fri. of every Sep.");
}

TEST(DescribeRecurrence, ATypeThatTheStoreDoesNotKnowHasNoWords) {
    EXPECT_EQ(DescribeRecurrence(Recurring(4, kChoiceCustom, 1)), u"");
    EXPECT_EQ(DescribeRecurrence(Recurring(kRecursForeign, kChoiceCustom, 1)), u"");
    EXPECT_EQ(DescribeRecurrence(Recurring(-2, kChoiceWeekdays, 1)), u"");
}

TEST(DescribeRecurrence, NumbersOutsideTheTablesHaveNoWord) {
    EXPECT_EQ(DescribeRecurrence(Nth(kRecursMonthNth, 0)), u"The  Fri. of every month");
    EXPECT_EQ(DescribeRecurrence(Nth(kRecursMonthNth, 6)), u"The  Fri. of every month");
    AppointmentData record = Nth(kRecursYearNth, 1);
    record.Start = {2006, 13, 7, 15, 0, 0, 0, 0};
    EXPECT_EQ(DescribeRecurrence(record), u"The 1st  of every ");
    record.Start.Month = 0;
    EXPECT_EQ(DescribeRecurrence(record), u"The 1st  of every ");
}

} // namespace

} // namespace tavo

// Rules that are walked from day to day, and the budget of a walk.
#include "host/rules/rule_text.h"
#include "tests/rules/item_words.h"

#include <gmock/gmock.h>

namespace tavo::rules::test {

using ::testing::ElementsAre;

namespace {

RecurrenceRule RuleOf(const std::string& text) {
    RuleText read;
    std::string fault;
    EXPECT_TRUE(ReadRuleText(text, read, fault)) << text << ": " << fault;
    return read.Rule;
}

// The first few from `from` on.
std::vector<std::string> WalkFrom(const std::string& text, const std::string& start, const std::string& from,
                                  std::size_t most = 4) {
    ExpansionBudget budget(kStepsOfExpansion);
    RuleWalk walk(RuleOf(text), At(start), At(from), budget);
    std::vector<std::string> times;
    while (times.size() < most) {
        const std::optional<Seconds> time = walk.Next();
        if (!time) {
            break;
        }
        times.push_back(TextOf(*time));
    }
    EXPECT_FALSE(budget.IsSpent());
    return times;
}

std::vector<std::string> WalkAll(const std::string& text, const std::string& start) {
    return WalkFrom(text, start, start);
}

} // namespace

TEST(RuleWalk, FollowsEachPartOfARule) {
    EXPECT_THAT(WalkAll("FREQ=HOURLY;INTERVAL=24;BYHOUR=9", "2026-01-01 09:30"),
                ElementsAre("2026-01-01 09:30", "2026-01-02 09:30", "2026-01-03 09:30", "2026-01-04 09:30"));
    EXPECT_THAT(WalkAll("FREQ=DAILY;INTERVAL=2;BYHOUR=18,6;BYMINUTE=30,0", "2026-01-01 09:00"),
                ElementsAre("2026-01-01 18:00", "2026-01-01 18:30", "2026-01-03 06:00", "2026-01-03 06:30"));
    EXPECT_THAT(WalkAll("FREQ=WEEKLY;INTERVAL=2;BYDAY=TU,SU;WKST=MO", "1997-08-05 09:00"),
                ElementsAre("1997-08-05 09:00", "1997-08-10 09:00", "1997-08-19 09:00", "1997-08-24 09:00"));
    EXPECT_THAT(WalkAll("FREQ=WEEKLY;INTERVAL=2;BYDAY=TU,SU;WKST=SU", "1997-08-05 09:00"),
                ElementsAre("1997-08-05 09:00", "1997-08-17 09:00", "1997-08-19 09:00", "1997-08-31 09:00"));
    EXPECT_THAT(WalkAll("FREQ=MONTHLY;BYMONTHDAY=-1", "2026-01-31 09:00"),
                ElementsAre("2026-01-31 09:00", "2026-02-28 09:00", "2026-03-31 09:00", "2026-04-30 09:00"));
    EXPECT_THAT(WalkAll("FREQ=MONTHLY;BYDAY=FR;BYMONTHDAY=13", "1997-09-02 09:00"),
                ElementsAre("1998-02-13 09:00", "1998-03-13 09:00", "1998-11-13 09:00", "1999-08-13 09:00"));
    EXPECT_THAT(WalkAll("FREQ=MONTHLY;BYDAY=MO,TU,WE,TH,FR;BYSETPOS=-2", "1997-09-29 09:00"),
                ElementsAre("1997-09-29 09:00", "1997-10-30 09:00", "1997-11-27 09:00", "1997-12-30 09:00"));
    EXPECT_THAT(WalkAll("FREQ=YEARLY;BYDAY=20MO", "1997-05-19 09:00"),
                ElementsAre("1997-05-19 09:00", "1998-05-18 09:00", "1999-05-17 09:00", "2000-05-15 09:00"));
    EXPECT_THAT(WalkAll("FREQ=YEARLY;BYWEEKNO=1;BYDAY=MO", "1997-05-12 09:00"),
                ElementsAre("1997-12-29 09:00", "1999-01-04 09:00", "2000-01-03 09:00", "2001-01-01 09:00"));
    EXPECT_THAT(WalkAll("FREQ=YEARLY;INTERVAL=3;BYYEARDAY=1,100,200;COUNT=3", "1997-01-01 09:00"),
                ElementsAre("1997-01-01 09:00", "1997-04-10 09:00", "1997-07-19 09:00"));
    EXPECT_THAT(WalkAll("FREQ=YEARLY;BYMONTH=3;BYDAY=TH;UNTIL=19970320T090000", "1997-03-13 09:00"),
                ElementsAre("1997-03-13 09:00", "1997-03-20 09:00"));
}

TEST(RuleWalk, ADayThatItsMonthDoesNotHaveIsLeftOutOrMoved) {
    EXPECT_THAT(WalkAll("FREQ=YEARLY", "2024-02-29 09:00"),
                ElementsAre("2024-02-29 09:00", "2028-02-29 09:00", "2032-02-29 09:00", "2036-02-29 09:00"));
    RecurrenceRule rule = RuleOf("FREQ=YEARLY;COUNT=3");
    const auto days = [&rule] {
        ExpansionBudget budget(kStepsOfExpansion);
        RuleWalk walk(rule, At("2024-02-29"), At("2024-02-29"), budget);
        std::vector<std::string> times;
        while (const auto time = walk.Next()) {
            times.push_back(TextOf(*time).substr(0, 10));
        }
        return times;
    };
    rule.Missing = MissingDay::Before;
    EXPECT_THAT(days(), ElementsAre("2024-02-29", "2025-02-28", "2026-02-28"));
    rule.Missing = MissingDay::After;
    EXPECT_THAT(days(), ElementsAre("2024-02-29", "2025-03-01", "2026-03-01"));
}

// The standard gives these no meaning, yet files have them.
TEST(RuleWalk, APartThatItsFrequencyDoesNotHaveLimits) {
    EXPECT_THAT(WalkAll("FREQ=WEEKLY;BYMONTHDAY=13", "2026-01-13 09:00"),
                ElementsAre("2026-01-13 09:00", "2026-10-13 09:00", "2027-04-13 09:00", "2027-07-13 09:00"));
    EXPECT_THAT(WalkAll("FREQ=WEEKLY;BYDAY=FR;BYMONTHDAY=13", "2026-01-01 09:00"),
                ElementsAre("2026-02-13 09:00", "2026-03-13 09:00", "2026-11-13 09:00", "2027-08-13 09:00"));
    EXPECT_THAT(WalkAll("FREQ=MONTHLY;BYWEEKNO=20;BYDAY=MO", "2026-01-01 09:00"),
                ElementsAre("2026-05-11 09:00", "2027-05-17 09:00", "2028-05-15 09:00", "2029-05-14 09:00"));
    EXPECT_THAT(WalkAll("FREQ=DAILY;BYYEARDAY=100", "2026-01-01 09:00"),
                ElementsAre("2026-04-10 09:00", "2027-04-10 09:00", "2028-04-09 09:00", "2029-04-10 09:00"));
}

TEST(RuleWalk, ANumberBeforeAWeekdayCountsOnlyInMonthsAndYears) {
    for (const char* const rule : {"FREQ=DAILY;BYDAY=2MO", "FREQ=WEEKLY;BYDAY=2MO"}) {
        EXPECT_THAT(WalkAll(rule, "2026-01-01 09:00"),
                    ElementsAre("2026-01-05 09:00", "2026-01-12 09:00", "2026-01-19 09:00", "2026-01-26 09:00"))
            << rule;
    }
    EXPECT_THAT(WalkAll("FREQ=YEARLY;BYWEEKNO=20;BYDAY=2MO", "2026-01-01 09:00"),
                ElementsAre("2026-05-11 09:00", "2027-05-17 09:00", "2028-05-15 09:00", "2029-05-14 09:00"));
}

TEST(RuleWalk, TheSixtiethSecondIsTheNextMinute) {
    EXPECT_THAT(WalkAll("FREQ=DAILY;BYHOUR=23;BYMINUTE=59;BYSECOND=60", "2026-01-01 09:00"),
                ElementsAre("2026-01-02 00:00", "2026-01-03 00:00", "2026-01-04 00:00", "2026-01-05 00:00"));
}

TEST(RuleWalk, BeginsNearTheTimeThatIsAskedFor) {
    EXPECT_THAT(WalkFrom("FREQ=HOURLY;INTERVAL=37", "1990-01-01 09:00", "2950-01-01 00:00", 1),
                ElementsAre("2950-01-01 23:00"));
    EXPECT_THAT(WalkFrom("FREQ=DAILY;INTERVAL=7", "1990-01-01 09:00", "2950-01-01", 1),
                ElementsAre("2950-01-05 09:00"));
    EXPECT_THAT(WalkFrom("FREQ=YEARLY;INTERVAL=100", "1999-12-31 09:00", "2950-01-01", 3),
                ElementsAre("2999-12-31 09:00"));
    // The last week of a year belongs to it also where it lies in the next.
    EXPECT_THAT(WalkFrom("FREQ=YEARLY;BYWEEKNO=53;BYDAY=SU", "2020-01-01 09:00", "2021-01-02", 1),
                ElementsAre("2021-01-03 09:00"));
}

TEST(RuleWalk, ARuleThatNeverMatchesEndsSoonAndWithinItsBudget) {
    for (const char* text : {"FREQ=HOURLY;BYMONTH=2;BYMONTHDAY=30", "FREQ=DAILY;BYMONTH=2;BYMONTHDAY=30",
                             "FREQ=MONTHLY;BYMONTH=2;BYMONTHDAY=30", "FREQ=DAILY;INTERVAL=7;BYDAY=WE",
                             "FREQ=MONTHLY;BYSETPOS=2", "FREQ=MONTHLY;INTERVAL=24;BYMONTHDAY=29;BYMONTH=2"}) {
        ExpansionBudget budget(kStepsOfExpansion);
        EXPECT_EQ(RuleWalk(RuleOf(text), At("2025-02-15 09:00"), At("2025-02-15 09:00"), budget).Next(), std::nullopt)
            << text;
        EXPECT_FALSE(budget.IsSpent()) << text;
    }
}

TEST(RuleWalk, StopsWhenItsBudgetIsSpent) {
    ExpansionBudget budget(100);
    RuleWalk walk(RuleOf("FREQ=DAILY"), At("2026-01-01"), At("2026-01-01"), budget);
    int days = 0;
    while (walk.Next()) {
        ++days;
    }
    EXPECT_TRUE(budget.IsSpent());
    EXPECT_GT(days, 10);
    EXPECT_LT(days, 100);
}

TEST(RuleWalk, TimesThatAreMadeInVainCountToo) {
    const std::string times = ";BYMINUTE=0,15,30,45;BYSETPOS=1";
    ExpansionBudget ofHours(100);
    EXPECT_TRUE(RuleWalk(RuleOf("FREQ=HOURLY" + times), At("2026-01-01"), At("2026-01-01"), ofHours).Next());
    int hours = 0;
    for (RuleWalk walk(RuleOf("FREQ=HOURLY" + times), At("2026-01-01"), At("2026-01-01"), ofHours); walk.Next();) {
        ++hours;
    }
    EXPECT_EQ(hours, 19);
    ExpansionBudget ofYears(5000);
    EXPECT_EQ(RuleWalk(RuleOf("FREQ=YEARLY;BYDAY=SU,MO,TU,WE,TH,FR,SA;BYHOUR=0,6,12,18" + times), At("2026-01-01"),
                       At("2026-01-01"), ofYears)
                  .Next(),
              std::nullopt);
    EXPECT_TRUE(ofYears.IsSpent());
}

TEST(RuleWalk, CountsTheTimesOfADay) {
    EXPECT_EQ(CountStartsPerDay(RuleOf("FREQ=HOURLY")), 24);
    EXPECT_EQ(CountStartsPerDay(RuleOf("FREQ=HOURLY;INTERVAL=48")), 1);
    EXPECT_EQ(CountStartsPerDay(RuleOf("FREQ=HOURLY;BYHOUR=9,10;BYMINUTE=0,30")), 4);
    EXPECT_EQ(CountStartsPerDay(RuleOf("FREQ=MONTHLY;BYHOUR=9,10;BYMINUTE=0,30;BYSECOND=1,2,3")), 12);
}

} // namespace tavo::rules::test

// Reading recurrence rules, beside what libical reads in them.
#include "host/rules/rule_text.h"
#include "tests/rules/ical_rule.h"
#include "tests/rules/item_words.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace tavo::rules::test {

namespace {

void AppendList(std::string& text, const char* name, const std::vector<int>& list) {
    if (list.empty()) {
        return;
    }
    text += name;
    for (const int number : list) {
        text += std::to_string(number) + ',';
    }
}

std::string Describe(const RecurrenceRule& rule) {
    std::string text = "every " + std::to_string(static_cast<int>(rule.Every)) + '*' + std::to_string(rule.Interval) +
                       " week " + std::to_string(rule.WeekStart) + " missing " +
                       std::to_string(static_cast<int>(rule.Missing));
    text += rule.Count > 0 ? " count " + std::to_string(rule.Count) : "";
    text += rule.Until ? " until " + TextOf(*rule.Until) : "";
    AppendList(text, " months ", rule.Months);
    AppendList(text, " month days ", rule.MonthDays);
    AppendList(text, " year days ", rule.YearDays);
    AppendList(text, " weeks ", rule.Weeks);
    AppendList(text, " hours ", rule.Hours);
    AppendList(text, " minutes ", rule.Minutes);
    AppendList(text, " seconds ", rule.OfMinute);
    AppendList(text, " positions ", rule.Positions);
    std::vector<RuleDay> days = rule.Days; // libical sorts them
    std::sort(days.begin(), days.end());
    for (const RuleDay& day : days) {
        text += " day " + std::to_string(day.Ordinal) + ':' + std::to_string(day.Weekday);
    }
    return text;
}

// What is read, or why nothing is.
std::string Read(std::string_view value) {
    RuleText read;
    std::string fault;
    if (!ReadRuleText(value, read, fault)) {
        return fault.empty() ? "no rule" : fault;
    }
    return Describe(read.Rule) + (read.IsUntilUtc ? " UTC" : "") + (read.HasScale ? " scale" : "");
}

// A rule of the grammar, its parts in any order.
std::string MakeRule(std::mt19937& random) {
    const auto below = [&random](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    const char* const frequencies[] = {"HOURLY", "DAILY", "WEEKLY", "MONTHLY", "YEARLY"};
    const char* const weekdays[] = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};
    std::vector<std::string> parts{std::string("FREQ=") + frequencies[below(5)]};
    const auto list = [&](const char* name, int lowest, int highest) {
        if (below(4) != 0) {
            return;
        }
        std::string part = std::string(name) + '=';
        std::vector<int> numbers;
        for (int index = 1 + below(4); index > 0; --index) {
            const int number = lowest + below(highest - lowest + 1);
            if ((number != 0 || lowest == 0) && std::find(numbers.begin(), numbers.end(), number) == numbers.end()) {
                numbers.push_back(number);
            }
        }
        if (numbers.empty()) {
            return;
        }
        for (const int number : numbers) {
            part += (part.back() == '=' ? "" : ",") + std::to_string(number);
        }
        parts.push_back(part);
    };
    list("BYMONTH", 1, 12);
    list("BYMONTHDAY", -31, 31);
    list("BYHOUR", 0, 23);
    list("BYMINUTE", 0, 59);
    list("BYSETPOS", -5, 5);
    if (below(3) == 0) {
        std::string part = "BYDAY=";
        for (int index = 1 + below(3); index > 0; --index) {
            const int ordinal = below(2) == 0 ? 0 : below(11) - 5;
            part +=
                (part.back() == '=' ? "" : ",") + (ordinal != 0 ? std::to_string(ordinal) : "") + weekdays[below(7)];
        }
        parts.push_back(part);
    }
    if (below(2) == 0) {
        parts.push_back("INTERVAL=" + std::to_string(1 + below(50)));
    }
    if (below(3) == 0) {
        parts.push_back("COUNT=" + std::to_string(1 + below(5000)));
    } else if (below(3) == 0) {
        const char* const ends[] = {"20301231", "20270315T083000", "20270315T083000Z"};
        parts.push_back(std::string("UNTIL=") + ends[below(3)]);
    }
    if (below(4) == 0) {
        parts.push_back(std::string("WKST=") + weekdays[below(7)]);
    }
    std::string text;
    for (const std::string& part : parts) {
        text += (text.empty() ? "" : ";") + part;
    }
    return text;
}

} // namespace

TEST(RuleText, HasPartsInAnyOrderAndCase) {
    EXPECT_EQ(Read("FREQ=DAILY"), "every 1*1 week 1 missing 0");
    EXPECT_EQ(Read("byday=mo,-1fr,+2tu;freq=Monthly;interval=2;wkst=su"),
              "every 3*2 week 0 missing 0 day 0:1 day 2:2 day -1:5");
    EXPECT_EQ(
        Read("FREQ=YEARLY;BYMONTH=2,3;BYMONTHDAY=-1;BYYEARDAY=366;BYWEEKNO=-53;BYHOUR=0,23;BYMINUTE=59;BYSECOND=60;"
             "BYSETPOS=-366;COUNT=7"),
        "every 4*1 week 1 missing 0 count 7 months 2,3, month days -1, year days 366, weeks -53, hours 0,23, "
        "minutes 59, seconds 60, positions -366,");
}

TEST(RuleText, EndsOnADayOrAtAMoment) {
    EXPECT_EQ(Read("FREQ=DAILY;UNTIL=20260503"), "every 1*1 week 1 missing 0 until 2026-05-03 23:59:59");
    EXPECT_EQ(Read("FREQ=DAILY;UNTIL=20260503T090000"), "every 1*1 week 1 missing 0 until 2026-05-03 09:00");
    EXPECT_EQ(Read("FREQ=DAILY;UNTIL=20260503T090000Z"), "every 1*1 week 1 missing 0 until 2026-05-03 09:00 UTC");
}

TEST(RuleText, OnlyAScaleMovesDaysThatThereAreNot) {
    EXPECT_EQ(Read("RSCALE=gregorian;FREQ=MONTHLY;SKIP=FORWARD"), "every 3*1 week 1 missing 2 scale");
    EXPECT_EQ(Read("FREQ=MONTHLY;SKIP=BACKWARD;RSCALE=GREGORIAN"), "every 3*1 week 1 missing 1 scale");
    EXPECT_EQ(Read("FREQ=MONTHLY;SKIP=OMIT;RSCALE=GREGORIAN"), "every 3*1 week 1 missing 0 scale");
    EXPECT_EQ(Read("FREQ=MONTHLY;SKIP=FORWARD"), "every 3*1 week 1 missing 0");
    EXPECT_EQ(Read("RSCALE=HEBREW;FREQ=YEARLY"), "it recurs by another calendar than the Gregorian");
}

TEST(RuleText, PassesOverBlanksSpareSemicolonsAndExperiments) {
    EXPECT_EQ(Read(" FREQ = WEEKLY ; BYDAY = MO , TU ;; X-RULE=1;"), "every 2*1 week 1 missing 0 day 0:1 day 0:2");
    EXPECT_EQ(Read("FREQ=WEEKLY;BYDAY=MO,"), "every 2*1 week 1 missing 0 day 0:1");
}

TEST(RuleText, WhatRecursTooOftenIsARuleAllTheSame) {
    EXPECT_EQ(Read("FREQ=MINUTELY"), "it recurs more often than once an hour");
    EXPECT_EQ(Read("INTERVAL=5;FREQ=SECONDLY"), "it recurs more often than once an hour");
}

TEST(RuleText, WhatCannotBeReadIsNoRule) {
    for (const std::string_view text : {"",
                                        ";",
                                        "FREQ",
                                        "FREQ=",
                                        "FREQ=OFTEN",
                                        "INTERVAL=2",
                                        "FREQ=DAILY;FREQ=DAILY",
                                        "FREQ=DAILY;NONSENSE=1",
                                        "FREQ=DAILY;INTERVAL=0",
                                        "FREQ=DAILY;INTERVAL=-1",
                                        "FREQ=DAILY;INTERVAL=99999999999999999999",
                                        "FREQ=DAILY;COUNT=-1",
                                        "FREQ=DAILY;COUNT=x",
                                        "FREQ=DAILY;UNTIL=someday",
                                        "FREQ=DAILY;UNTIL=20261301",
                                        "FREQ=DAILY;WKST=1",
                                        "FREQ=DAILY;BYDAY=",
                                        "FREQ=DAILY;BYDAY=XX",
                                        "FREQ=DAILY;BYDAY=0MO",
                                        "FREQ=DAILY;BYDAY=54MO",
                                        "FREQ=DAILY;BYDAY=MO;BYDAY=TU",
                                        "FREQ=DAILY;BYMONTH=0",
                                        "FREQ=DAILY;BYMONTH=13",
                                        "FREQ=DAILY;BYMONTH=5L",
                                        "FREQ=DAILY;BYMONTHDAY=0",
                                        "FREQ=DAILY;BYMONTHDAY=32",
                                        "FREQ=DAILY;BYHOUR=1;BYHOUR=2",
                                        "FREQ=DAILY;BYYEARDAY=-367",
                                        "FREQ=DAILY;BYWEEKNO=54",
                                        "FREQ=DAILY;BYHOUR=24",
                                        "FREQ=DAILY;BYHOUR=-1",
                                        "FREQ=DAILY;BYMINUTE=60",
                                        "FREQ=DAILY;BYSECOND=61",
                                        "FREQ=DAILY;BYSETPOS=0",
                                        "FREQ=DAILY;BYSETPOS=+-1",
                                        "FREQ=DAILY;SKIP=SOMETIMES"}) {
        EXPECT_EQ(Read(text), "no rule") << text;
    }
}

TEST(RuleText, IsReadAsLibicalReadsIt) {
    std::mt19937 random(20261123);
    for (int round = 0; round < 20000; ++round) {
        const std::string text = MakeRule(random);
        RecurrenceRule other;
        std::string fault;
        ASSERT_TRUE(ReadIcalRule(icalrecurrencetype_from_string(text.c_str()), other, fault)) << text;
        RuleText read;
        ASSERT_TRUE(ReadRuleText(text, read, fault)) << text;
        ASSERT_EQ(Describe(read.Rule), Describe(other)) << text;
    }
}

} // namespace tavo::rules::test

// The six types as rules of other calendars: the same days, however they are walked.
#include "host/exchange/rule_writer.h"
#include "host/exchange/series_rule.h"
#include "host/rules/recurrence.h"
#include "host/rules/rule_text.h"
#include "tests/rules/random_patterns.h"

#include <gtest/gtest.h>

#include <libical/ical.h>

namespace tavo::exchange {
namespace {

using rules::DayNumber;
using rules::StoredPattern;

constexpr int kYears = 10;
constexpr std::size_t kMostDays = 200;
constexpr int kLastYearOfLibical = 2500; // about where it stops

std::vector<DayNumber> WalkPattern(const StoredPattern& pattern, DayNumber start, DayNumber last) {
    const rules::RecurrenceDays days(pattern, start);
    std::vector<DayNumber> found;
    DayNumber day = days.FirstOnOrAfter(start);
    while (day <= last && found.size() < kMostDays) {
        found.push_back(day);
        day = days.FirstOnOrAfter(day + 1);
    }
    return found;
}

std::vector<DayNumber> WalkText(const WrittenRule& rule, DayNumber last) {
    rules::RuleText text;
    std::string fault;
    EXPECT_TRUE(rules::ReadRuleText(rule.Value, text, fault)) << rule.Value << ": " << fault;
    rules::ExpansionBudget budget(rules::kStepsOfExpansion);
    const rules::Seconds first = rules::MidnightOf(rule.FirstDay);
    rules::RuleWalk walk(text.Rule, first, first, budget);
    std::vector<DayNumber> found;
    for (auto next = walk.Next(); next && rules::DayOf(*next) <= last && found.size() < kMostDays; next = walk.Next()) {
        found.push_back(rules::DayOf(*next));
    }
    return found;
}

std::vector<DayNumber> WalkWithLibical(const WrittenRule& rule, DayNumber last) {
    const rules::CivilDate date = rules::CivilFromDay(rule.FirstDay);
    icaltimetype start = icaltime_null_time();
    start.year = date.Year;
    start.month = date.Month;
    start.day = date.Day;
    start.hour = 9; // of a date alone it makes nothing of some rules
    icalrecur_iterator* const walk = icalrecur_iterator_new(icalrecurrencetype_from_string(rule.Value.c_str()), start);
    std::vector<DayNumber> found;
    if (walk == nullptr) {
        ADD_FAILURE() << rule.Value;
        return found;
    }
    for (icaltimetype next = icalrecur_iterator_next(walk);
         icaltime_is_null_time(next) == 0 && found.size() < kMostDays; next = icalrecur_iterator_next(walk)) {
        const DayNumber day = rules::DayFromCivil(next.year, next.month, next.day);
        if (day > last) {
            break;
        }
        found.push_back(day);
    }
    icalrecur_iterator_free(walk);
    return found;
}

} // namespace

TEST(RuleWriter, RandomPatternsHaveTheSameDaysInTenYears) {
    const unsigned seed = rules::test::ReadSeed();
    SCOPED_TRACE(seed);
    rules::test::Dice dice(seed);
    int compared = 0;
    for (int round = 0; round < 3000 && !HasFailure(); ++round) {
        const rules::test::PaperDate paper = dice.DrawDate();
        const rules::test::PaperRule drawn = dice.DrawRule(paper);
        const StoredPattern pattern = rules::test::ToPattern(drawn);
        if (rules::FindPatternFault(pattern) != rules::PatternFault::None) {
            continue;
        }
        const DayNumber last = std::min<DayNumber>(paper.Number + kYears * DayNumber{366}, rules::kLastStoredDay);
        const std::vector<DayNumber> expected = WalkPattern(pattern, paper.Number, last);
        const WrittenRule rule = WriteRule(pattern, paper.Number, "");
        if (expected.empty()) {
            continue; // its first day lies beyond
        }
        SCOPED_TRACE(rules::test::Describe(drawn, paper) + " is " + rule.Value);
        EXPECT_EQ(rule.FirstDay, expected.front());
        EXPECT_EQ(WalkText(rule, last), expected);
        if (paper.Year < kLastYearOfLibical) {
            EXPECT_EQ(WalkWithLibical(rule, last), expected);
            ++compared;
        }
    }
    EXPECT_GT(compared, 1000);
}

} // namespace tavo::exchange

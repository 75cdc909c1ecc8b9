// Random rules of all shapes: the walk against the definition.
#include "tests/rules/item_words.h"
#include "tests/rules/random_patterns.h"
#include "tests/rules/rule_definition.h"
#include "tests/support/processor_time.h"

#include <gmock/gmock.h>

#include <cstdio>
#include <cstdlib>

namespace tavo::rules::test {

using ::testing::ElementsAre;

namespace {

// TAVO_RULES_DRAWN, or as many as a check has time for.
int ReadRounds() {
    constexpr int usual = static_cast<int>(100000 / tavo::test::kSlowdown);
    const char* text = std::getenv("TAVO_RULES_DRAWN");
    return text == nullptr ? usual : static_cast<int>(std::strtol(text, nullptr, 10));
}

class RuleDice : public Dice {
  public:
    using Dice::Dice;

    RecurrenceRule DrawWholeRule() {
        RecurrenceRule rule;
        rule.Every = static_cast<Frequency>(Draw(0, 4));
        const bool isYearly = rule.Every == Frequency::Yearly;
        rule.Interval = static_cast<int>(Happens(2) ? 1 : Draw(1, rule.Every == Frequency::Hourly ? 30 : 5));
        rule.WeekStart = static_cast<int>(Happens(2) ? 1 : Draw(0, 6));
        DrawList(4, 1, 12, rule.Months);
        if (rule.Every != Frequency::Weekly) {
            DrawList(4, -31, 31, rule.MonthDays);
        }
        if (isYearly || rule.Every == Frequency::Hourly) {
            DrawList(6, -366, 366, rule.YearDays);
        }
        if (isYearly) {
            DrawList(5, -53, 53, rule.Weeks);
        }
        DrawDays(rule);
        DrawList(5, 0, 23, rule.Hours);
        DrawList(6, 0, 59, rule.Minutes);
        DrawList(10, 0, 59, rule.OfMinute);
        if (Happens(4)) {
            DrawList(1, -4, 4, rule.Positions);
        }
        rule.Count = Happens(4) ? Draw(1, 30) : 0;
        return rule;
    }

  private:
    void DrawList(long oneIn, int lowest, int highest, std::vector<int>& list) {
        for (long left = Happens(oneIn) ? Draw(1, 4) : 0; left > 0; --left) {
            const auto number = static_cast<int>(Draw(lowest, highest));
            if (number != 0 || lowest == 0) {
                list.push_back(number);
            }
        }
    }

    void DrawDays(RecurrenceRule& rule) {
        const bool hasOrdinals = rule.Every >= Frequency::Monthly && rule.Weeks.empty();
        const int most = rule.Every == Frequency::Yearly && rule.Months.empty() ? 53 : 5;
        for (long left = Happens(3) ? Draw(1, 4) : 0; left > 0; --left) {
            const auto ordinal = static_cast<int>(hasOrdinals && Happens(2) ? Draw(-most, most) : 0);
            rule.Days.push_back({static_cast<int>(Draw(0, 6)), ordinal});
        }
    }
};

std::string Describe(const RecurrenceRule& rule) {
    std::string text = "frequency " + std::to_string(static_cast<int>(rule.Every)) + " interval " +
                       std::to_string(rule.Interval) + " week start " + std::to_string(rule.WeekStart) + " count " +
                       std::to_string(rule.Count);
    const auto append = [&text](const char* name, const std::vector<int>& list) {
        text += list.empty() ? "" : std::string(" ") + name;
        for (const int number : list) {
            text += ' ' + std::to_string(number);
        }
    };
    append("months", rule.Months);
    append("month days", rule.MonthDays);
    append("year days", rule.YearDays);
    append("weeks", rule.Weeks);
    append("hours", rule.Hours);
    append("minutes", rule.Minutes);
    append("seconds", rule.OfMinute);
    append("positions", rule.Positions);
    for (const RuleDay& day : rule.Days) {
        text += " day " + std::to_string(day.Ordinal) + ':' + std::to_string(day.Weekday);
    }
    return text;
}

Seconds SpanOf(Frequency frequency) {
    constexpr DayNumber days[] = {12, 300, 600, 1500, 2600};
    return days[static_cast<std::size_t>(frequency)] * kSecondsPerDay;
}

std::vector<Seconds> Walk(const RecurrenceRule& rule, Seconds start, Seconds from, Seconds last) {
    RecurrenceRule bounded = rule;
    bounded.Until = std::min(rule.Until.value_or(last), last);
    ExpansionBudget budget(kStepsOfNextReminder);
    RuleWalk walk(bounded, start, from, budget);
    std::vector<Seconds> times;
    while (const std::optional<Seconds> time = walk.Next()) {
        times.push_back(*time);
    }
    EXPECT_FALSE(budget.IsSpent());
    return times;
}

std::vector<std::string> Texts(const std::vector<Seconds>& times) {
    std::vector<std::string> texts;
    texts.reserve(times.size());
    for (const Seconds time : times) {
        texts.push_back(TextOf(time));
    }
    return texts;
}

} // namespace

TEST(RuleDefinition, SaysWhatExamplesSay) {
    RecurrenceRule rule; // the last working day but one of each month
    rule.Every = Frequency::Monthly;
    rule.Days = {{1, 0}, {2, 0}, {3, 0}, {4, 0}, {5, 0}};
    rule.Positions = {-2};
    EXPECT_THAT(Texts(DefineOccurrences(rule, At("1997-09-29 09:00"), At("1998-01-01"))),
                ElementsAre("1997-09-29 09:00", "1997-10-30 09:00", "1997-11-27 09:00", "1997-12-30 09:00"));
    rule = {}; // the Monday of week 20
    rule.Every = Frequency::Yearly;
    rule.Weeks = {20};
    rule.Days = {{1, 0}};
    EXPECT_THAT(Texts(DefineOccurrences(rule, At("1997-05-12 09:00"), At("1999-12-31"))),
                ElementsAre("1997-05-12 09:00", "1998-05-11 09:00", "1999-05-17 09:00"));
    rule = {}; // every other week counted from Sunday
    rule.Every = Frequency::Weekly;
    rule.Interval = 2;
    rule.WeekStart = 0;
    rule.Days = {{2, 0}, {0, 0}};
    EXPECT_THAT(Texts(DefineOccurrences(rule, At("1997-08-05 09:00"), At("1997-09-01"))),
                ElementsAre("1997-08-05 09:00", "1997-08-17 09:00", "1997-08-19 09:00", "1997-08-31 09:00"));
}

TEST(RuleDefinition, RandomRulesAreWalkedAsItSays) {
    const unsigned seed = ReadSeed();
    std::printf("seed %u\n", seed);
    RuleDice dice(seed);
    std::size_t occurrences = 0;
    for (int round = ReadRounds(); round > 0; --round) {
        const RecurrenceRule rule = dice.DrawWholeRule();
        const Seconds start = MidnightOf(dice.Draw(DayFromCivil(1990, 1, 1), DayFromCivil(2040, 1, 1))) +
                              dice.Draw(0, kSecondsPerDay - 1);
        const Seconds last = start + SpanOf(rule.Every);
        const std::vector<Seconds> defined = DefineOccurrences(rule, start, last);
        if (const std::vector<Seconds> walked = Walk(rule, start, start, last); walked != defined) {
            FAIL() << "from " << TextOf(start) << ": " << Describe(rule) << "\nwalked  "
                   << testing::PrintToString(Texts(walked)) << "\ndefined " << testing::PrintToString(Texts(defined));
        }
        // And from a moment between.
        const Seconds from = start + dice.Draw(0, last - start);
        std::vector<Seconds> rest;
        std::copy_if(defined.begin(), defined.end(), std::back_inserter(rest),
                     [from](Seconds time) { return time >= from; });
        if (const std::vector<Seconds> walked = Walk(rule, start, from, last); walked != rest) {
            FAIL() << "from " << TextOf(start) << " on " << TextOf(from) << ": " << Describe(rule) << "\nwalked  "
                   << testing::PrintToString(Texts(walked)) << "\ndefined " << testing::PrintToString(Texts(rest));
        }
        occurrences += defined.size();
    }
    EXPECT_GT(occurrences, 0U);
    std::printf("%zu occurrences\n", occurrences);
}

} // namespace tavo::rules::test

// Recurrence drawn by lot.
#pragma once

#include "host/rules/stored_item.h"
#include "tests/rules/naive_expansion.h"

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace tavo::rules::test {

constexpr long kLastPaperDay = 401768; // 2999-12-31

// TAVO_TEST_SEED, or one that is the same in every run.
unsigned ReadSeed();

// Draws rules, starts, ends and windows. Plain remainders, so that a seed means the same with every library.
class Dice {
  public:
    explicit Dice(unsigned seed) : Source(seed) {
        // Every first of a month is a place to start walking from.
        for (PaperDate date; date.Number <= kLastPaperDay; date.GoToNextDay()) {
            if (date.Day == 1) {
                Months.push_back(date);
            }
        }
    }

    long Draw(long from, long to) {
        return from + static_cast<long>(Source() % static_cast<unsigned long>(to - from + 1));
    }

    bool Happens(long oneIn) { return Draw(1, oneIn) == 1; }

    PaperDate DrawDate() {
        PaperDate date = Months[static_cast<std::size_t>(Draw(0, static_cast<long>(Months.size()) - 1))];
        for (long steps = Draw(0, 30); steps > 0 && date.Number < kLastPaperDay; --steps) {
            date.GoToNextDay();
        }
        return date;
    }

    PaperRule DrawRule(const PaperDate& start) {
        constexpr int kTypes[] = {0, 1, 2, 3, 5, 6};
        constexpr int kLengths[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        PaperRule rule;
        rule.Type = kTypes[Draw(0, 5)];
        rule.Interval = static_cast<int>(Happens(10) ? Draw(1, 999) : Happens(2) ? 1 : Draw(1, 12));
        rule.Mask = static_cast<int>(Happens(3) ? 1 << Draw(0, 6) : Happens(6) ? 62 : Draw(1, 127));
        rule.MonthOfYear = static_cast<int>(Happens(3) ? start.Month : Draw(1, 12));
        rule.DayOfMonth = static_cast<int>(Happens(3) ? start.Day : Happens(3) ? Draw(28, 31) : Draw(1, 31));
        if (rule.Type == 5) {
            rule.DayOfMonth = std::min(rule.DayOfMonth, kLengths[rule.MonthOfYear - 1]);
        }
        rule.Instance = static_cast<int>(Draw(1, 5));
        return rule;
    }

    // How far a walk may go: mostly some years, seldom to the end of time.
    long DrawReach(long from) {
        return std::min(kLastPaperDay, from + (Happens(500) ? kLastPaperDay : Draw(0, 366L * 12)));
    }

  private:
    std::mt19937 Source;
    std::vector<PaperDate> Months;
};

StoredPattern ToPattern(const PaperRule& rule);
std::string Describe(const PaperRule& rule, const PaperDate& start);

// Those of the days, which ascend, from one to another.
std::vector<long> Between(const std::vector<long>& days, long from, long to);

} // namespace tavo::rules::test

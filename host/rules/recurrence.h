// The six kinds of recurrence that the device can say, as arithmetic on day numbers: nothing here walks from the start.
#pragma once

#include "host/rules/stored_item.h"

#include <cstdint>

namespace tavo::rules {

constexpr DayNumber kNoDay = INT64_MAX;

// The days on which a rule recurs, counted from the pattern's start and without its end.
// The fields must be in range (see FindPatternFault); nothing recurs after the last day that can be stored.
class RecurrenceDays {
  public:
    // Daily: every Interval days; with the mask of Monday to Friday only those of them. Weekly: weeks begin on Sunday
    // and are counted from the week of `start`. Monthly types count from the month of `start`; yearly types recur
    // every year.
    RecurrenceDays(const StoredPattern& pattern, DayNumber start);

    // kNoDay when there is none.
    DayNumber FirstOnOrAfter(DayNumber day) const;
    // How many lie on or before `day`.
    std::int64_t CountThrough(DayNumber day) const;
    // The nth day of all, n from 1; kNoDay when the rule ends before.
    DayNumber Nth(std::int64_t n) const;

  private:
    enum class Family { Daily, DailyWeekdays, Weekly, OneInMonths };

    // The weekday mask repeats after seven steps of a daily rule.
    bool IsStepOnWeekday(std::int64_t step) const;
    int CountStepsOnWeekday(std::int64_t steps) const; // of the first `steps` < 8 of a cycle
    int CountMaskBelow(int weekday) const;             // days of the mask on earlier weekdays
    DayNumber DayOfRound(std::int64_t round) const;    // of rules with one day in each of their months
    DayNumber FirstWeekday(DayNumber day) const;
    DayNumber FirstOfWeeks(DayNumber day) const;
    DayNumber FirstOfMonths(DayNumber day) const;

    std::int64_t FirstRound() const { return DayOfRound(0) >= Start ? 0 : 1; }

    Family Kind = Family::Daily;
    std::int64_t Interval = 1; // days, weeks or months
    std::int32_t Mask = 0;
    int MaskDays = 0;            // how many days the mask has
    std::int32_t DayOfMonth = 0; // 0: by mask and instance
    std::int32_t Instance = 0;
    std::int64_t FirstMonth = 0; // of round 0: year * 12 + month - 1
    DayNumber Start = 0;
    DayNumber FirstSunday = 0; // of the week of the start
};

enum class PatternFault { None, Type, Interval, Mask, DayOfMonth, Month, Instance, NeverInMonth };

// What Save refuses in the rule itself, its end left aside. Looks only at the fields that the type uses.
PatternFault FindPatternFault(const StoredPattern& pattern);

// The same rule for the purpose of keeping exceptions: fields that the type does not use do not matter, nor does which
// of last day and count was given. Both patterns must have their ends derived.
bool IsSameRule(const StoredPattern& left, const StoredPattern& right);

// Works out the count from the date or the date from the count. False when that leaves less than one occurrence,
// or puts the end before the start.
bool DerivePatternEnd(StoredPattern& pattern, DayNumber start);

} // namespace tavo::rules

// Walks one recurrence rule of another calendar (an RRULE) from day to day, within a budget of steps.
#pragma once

#include "host/rules/expansion_budget.h"
#include "host/rules/wall_time.h"

#include <compare>
#include <cstddef>
#include <optional>
#include <vector>

namespace tavo::rules {

enum class Frequency { Hourly, Daily, Weekly, Monthly, Yearly };
// What becomes of a day that its month does not have.
enum class MissingDay { Omit, Before, After };

struct RuleDay {
    int Weekday = 0; // 0 Sunday
    int Ordinal = 0; // of the month or year, negative from its end; 0: all
    friend auto operator<=>(const RuleDay&, const RuleDay&) = default;
};

// The parts of a rule; an empty list does not limit. Negative numbers count from the end.
struct RecurrenceRule {
    Frequency Every = Frequency::Daily;
    int Interval = 1;             // at least 1
    int WeekStart = 1;            // 0 Sunday
    std::int64_t Count = 0;       // 0: not counted
    std::optional<Seconds> Until; // the last moment, on the clock of the walk
    MissingDay Missing = MissingDay::Omit;
    std::vector<int> Months;    // 1..12
    std::vector<int> MonthDays; // 1..31
    std::vector<int> YearDays;  // 1..366
    std::vector<int> Weeks;     // 1..53
    std::vector<RuleDay> Days;
    std::vector<int> Hours;
    std::vector<int> Minutes;
    std::vector<int> OfMinute;  // seconds 0..60
    std::vector<int> Positions; // of the times of one period

    bool IsEndless() const { return Count == 0 && !Until; }
};

// The most times that the rule can make on one day.
std::int64_t CountStartsPerDay(const RecurrenceRule& rule);

// The occurrences of a rule in order, of which a start that does not follow the rule is none. Nothing occurs after
// 2999-12-31.
class RuleWalk {
  public:
    // Gives what occurs at `from` or later. A rule with a count is walked from its start all the same.
    RuleWalk(const RecurrenceRule& rule, Seconds start, Seconds from, ExpansionBudget& budget);

    // Nothing at the end of the rule, and when the budget is spent.
    std::optional<Seconds> Next();

  private:
    bool FillPeriod();
    bool FillHour();
    void FindSpan(DayNumber& first, DayNumber& last) const;
    bool CollectDays(DayNumber first, DayNumber last);
    void AddMissingDays(DayNumber first, DayNumber last);
    // False when the budget does not suffice.
    bool AddTimes();
    void ChoosePositions();
    bool Matches(DayNumber day) const;
    bool IsOneOfDays(DayNumber day, const CivilDate& date) const;
    bool IsInWeeks(DayNumber day) const;

    RecurrenceRule Rule;
    Seconds Start;
    Seconds From;
    Seconds End; // nothing later
    ExpansionBudget& Budget;
    std::int64_t Period = 0;
    std::vector<DayNumber> Days; // of the period
    std::vector<Seconds> Times;  // of the period
    std::size_t At = 0;
    std::int64_t Counted = 0;
    std::optional<Seconds> Last;
    bool Ended = false;
};

} // namespace tavo::rules

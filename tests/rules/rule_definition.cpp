// One predicate for each part of a rule.
#include "tests/rules/rule_definition.h"

#include <algorithm>
#include <map>

namespace tavo::rules::test {

namespace {

template <class Value> bool Holds(const std::vector<Value>& list, const Value& value) {
    return std::find(list.begin(), list.end(), value) != list.end();
}

// A place counted from the front, 1 the first, or from the back, -1 the last.
bool HoldsPlace(const std::vector<int>& list, int place, int size) {
    return Holds(list, place) || Holds(list, place - size - 1);
}

int LengthOfYear(int year) {
    return DaysInMonth(year, 2) == 29 ? 366 : 365;
}

// A week and the year that it belongs to: the one with its fourth day.
struct Week {
    int Year = 0;
    int Number = 0;
    int Count = 0; // of its year
};

Week WeekOf(DayNumber day, int weekStart) {
    const auto firstDayOf = [weekStart](int year) {
        DayNumber fourth = DayFromCivil(year, 1, 4); // always in the first week
        while (WeekdayOf(fourth) != weekStart) {
            --fourth;
        }
        return fourth;
    };
    int year = CivilFromDay(day).Year + 1;
    while (firstDayOf(year) > day) {
        --year;
    }
    const DayNumber first = firstDayOf(year);
    return {year, static_cast<int>((day - first) / 7) + 1, static_cast<int>((firstDayOf(year + 1) - first) / 7)};
}

class Definition {
  public:
    Definition(const RecurrenceRule& rule, Seconds start) : Rule(rule), Start(start) {
        const CivilDate date = CivilFromDay(DayOf(start));
        const bool isYearly = rule.Every == Frequency::Yearly;
        if (rule.MonthDays.empty() && rule.YearDays.empty() && rule.Days.empty()) {
            if (rule.Every == Frequency::Weekly || (isYearly && !rule.Weeks.empty())) {
                Rule.Days = {{WeekdayOf(DayOf(start)), 0}};
            } else if (isYearly || rule.Every == Frequency::Monthly) {
                Rule.MonthDays = {date.Day};
                if (isYearly && rule.Months.empty()) {
                    Rule.Months = {date.Month};
                }
            }
        }
        const auto ofDay = static_cast<int>(TimeOfDay(start));
        if (rule.Hours.empty() && rule.Every != Frequency::Hourly) {
            Rule.Hours = {ofDay / 3600};
        }
        if (rule.Minutes.empty()) {
            Rule.Minutes = {ofDay / 60 % 60};
        }
        if (rule.OfMinute.empty()) {
            Rule.OfMinute = {ofDay % 60};
        }
    }

    bool IsDay(DayNumber day) const {
        const CivilDate date = CivilFromDay(day);
        return (Rule.Months.empty() || Holds(Rule.Months, date.Month)) &&
               (Rule.MonthDays.empty() || HoldsPlace(Rule.MonthDays, date.Day, DaysInMonth(date.Year, date.Month))) &&
               (Rule.YearDays.empty() ||
                HoldsPlace(Rule.YearDays, static_cast<int>(day - DayFromCivil(date.Year, 1, 1)) + 1,
                           LengthOfYear(date.Year))) &&
               (Rule.Weeks.empty() || IsOfWeeks(day)) && (Rule.Days.empty() || IsOfWeekdays(day));
    }

    // The times of each day, in order.
    std::vector<Seconds> FindTimesOfDay() const {
        std::vector<Seconds> times;
        for (int ofDay = 0; ofDay < kSecondsPerDay; ++ofDay) {
            if ((Rule.Hours.empty() || Holds(Rule.Hours, ofDay / 3600)) && Holds(Rule.Minutes, ofDay / 60 % 60) &&
                Holds(Rule.OfMinute, ofDay % 60)) {
                times.push_back(ofDay);
            }
        }
        return times;
    }

    // The period that a time is in, counted from the start's; the interval leaves some out.
    std::int64_t PeriodOf(Seconds time) const {
        // Weeks are of years, but years are counted from the one that the start's date names.
        const bool isYearly = Rule.Every == Frequency::Yearly;
        return IndexOf(time) - (isYearly ? CivilFromDay(DayOf(Start)).Year : IndexOf(Start));
    }

    bool IsPeriod(std::int64_t period) const { return period >= 0 && period % Rule.Interval == 0; }

    // Those of a period that BYSETPOS means.
    std::vector<Seconds> Choose(const std::vector<Seconds>& times) const {
        if (Rule.Positions.empty()) {
            return times;
        }
        std::vector<Seconds> chosen;
        for (std::size_t i = 0; i < times.size(); ++i) {
            if (HoldsPlace(Rule.Positions, static_cast<int>(i) + 1, static_cast<int>(times.size()))) {
                chosen.push_back(times[i]);
            }
        }
        return chosen;
    }

  private:
    bool IsOfWeeks(DayNumber day) const {
        const Week week = WeekOf(day, Rule.WeekStart);
        return HoldsPlace(Rule.Weeks, week.Number, week.Count);
    }

    bool IsOfWeekdays(DayNumber day) const {
        const CivilDate date = CivilFromDay(day);
        const bool isOfMonth = Rule.Every == Frequency::Monthly || !Rule.Months.empty();
        const int before = isOfMonth ? date.Day - 1 : static_cast<int>(day - DayFromCivil(date.Year, 1, 1));
        const int behind = (isOfMonth ? DaysInMonth(date.Year, date.Month) : LengthOfYear(date.Year)) - 1 - before;
        return std::any_of(Rule.Days.begin(), Rule.Days.end(), [&](const RuleDay& wanted) {
            if (wanted.Weekday != WeekdayOf(day)) {
                return false;
            }
            return wanted.Ordinal == 0 || wanted.Ordinal == before / 7 + 1 || wanted.Ordinal == -(behind / 7 + 1);
        });
    }

    std::int64_t IndexOf(Seconds time) const {
        const DayNumber day = DayOf(time);
        const CivilDate date = CivilFromDay(day);
        switch (Rule.Every) {
        case Frequency::Hourly:
            return day * 24 + TimeOfDay(time) / 3600;
        case Frequency::Daily:
            return day;
        case Frequency::Weekly:
            return (day - (WeekdayOf(day) - Rule.WeekStart + 7) % 7 + DayNumber{7} * 100'000) / 7; // by its first day
        case Frequency::Monthly:
            return std::int64_t{date.Year} * 12 + date.Month;
        case Frequency::Yearly:
            break;
        }
        return Rule.Weeks.empty() ? date.Year : WeekOf(day, Rule.WeekStart).Year;
    }

    RecurrenceRule Rule;
    Seconds Start;
};

} // namespace

std::vector<Seconds> DefineOccurrences(const RecurrenceRule& rule, Seconds start, Seconds last) {
    const Definition definition(rule, start);
    const std::vector<Seconds> timesOfDay = definition.FindTimesOfDay();
    constexpr DayNumber longestPeriod = 380; // whole ones at both ends: positions are of the whole
    std::map<std::int64_t, std::vector<Seconds>> periods;
    for (DayNumber day = DayOf(start) - longestPeriod; day <= DayOf(last) + longestPeriod; ++day) {
        if (!definition.IsDay(day)) {
            continue;
        }
        for (const Seconds ofDay : timesOfDay) {
            const Seconds time = MidnightOf(day) + ofDay;
            if (const std::int64_t period = definition.PeriodOf(time); definition.IsPeriod(period)) {
                periods[period].push_back(time);
            }
        }
    }
    std::vector<Seconds> occurrences;
    for (const auto& [period, times] : periods) {
        for (const Seconds time : definition.Choose(times)) {
            const bool isCounted = rule.Count == 0 || static_cast<std::int64_t>(occurrences.size()) < rule.Count;
            if (time >= start && isCounted && (!rule.Until || time <= *rule.Until) && time <= last) {
                occurrences.push_back(time);
            }
        }
    }
    return occurrences;
}

} // namespace tavo::rules::test

// One period of a rule after the other: its days, their times, and which of them the rule means.
#include "host/rules/rule_walk.h"

#include <algorithm>

namespace tavo::rules {

namespace {

constexpr Seconds kHour = 3600;
constexpr Seconds kMinute = 60;
constexpr int kDaysPerWeek = 7;
constexpr int kMonthsPerYear = 12;
constexpr Seconds kLastMoment = (kLastStoredDay + 1) * kSecondsPerDay - 1;

template <class Value> void SortOnce(std::vector<Value>& values) {
    std::sort(values.begin(), values.end());
    values.erase(std::unique(values.begin(), values.end()), values.end());
}

// A number counted from the front, or from the back of so many.
bool HoldsPlace(const std::vector<int>& sorted, int place, int size) {
    return std::binary_search(sorted.begin(), sorted.end(), place) ||
           std::binary_search(sorted.begin(), sorted.end(), place - size - 1);
}

int DaysInYear(int year) {
    return static_cast<int>(DayFromCivil(year + 1, 1, 1) - DayFromCivil(year, 1, 1));
}

int MonthIndexOf(Seconds time) {
    const CivilDate date = CivilFromDay(DayOf(time));
    return date.Year * kMonthsPerYear + date.Month - 1;
}

// What the rule leaves open follows from its start.
void TakeDefaults(RecurrenceRule& rule, Seconds start) {
    const CivilDate date = CivilFromDay(DayOf(start));
    const RuleDay weekday{WeekdayOf(DayOf(start)), 0};
    const auto ofDay = static_cast<int>(TimeOfDay(start));
    const bool noDays = rule.YearDays.empty() && rule.MonthDays.empty() && rule.Days.empty();
    if (rule.Every == Frequency::Yearly && noDays && !rule.Weeks.empty()) {
        rule.Days = {weekday};
    } else if (rule.Every == Frequency::Yearly && noDays) {
        if (rule.Months.empty()) {
            rule.Months = {date.Month};
        }
        rule.MonthDays = {date.Day};
    } else if (rule.Every == Frequency::Monthly && noDays) {
        rule.MonthDays = {date.Day};
    } else if (rule.Every == Frequency::Weekly && rule.Days.empty()) {
        rule.Days = {weekday};
    }
    // Only within a month or a year a weekday has a number.
    if (rule.Every < Frequency::Monthly || !rule.Weeks.empty()) {
        for (RuleDay& day : rule.Days) {
            day.Ordinal = 0;
        }
    }
    if (rule.Hours.empty() && rule.Every != Frequency::Hourly) {
        rule.Hours = {ofDay / static_cast<int>(kHour)};
    }
    if (rule.Minutes.empty()) {
        rule.Minutes = {ofDay / static_cast<int>(kMinute) % 60};
    }
    if (rule.OfMinute.empty()) {
        rule.OfMinute = {ofDay % 60};
    }
    for (std::vector<int>* list : {&rule.Months, &rule.MonthDays, &rule.YearDays, &rule.Weeks, &rule.Hours,
                                   &rule.Minutes, &rule.OfMinute, &rule.Positions}) {
        SortOnce(*list);
    }
    SortOnce(rule.Days);
}

template <class Value> std::int64_t SizeOf(const std::vector<Value>& values) {
    return static_cast<std::int64_t>(values.size());
}

std::int64_t CountOf(const std::vector<int>& values) {
    return std::max<std::int64_t>(SizeOf(values), 1);
}

} // namespace

std::int64_t CountStartsPerDay(const RecurrenceRule& rule) {
    const std::int64_t within = CountOf(rule.Minutes) * CountOf(rule.OfMinute);
    if (rule.Every != Frequency::Hourly) {
        return CountOf(rule.Hours) * within;
    }
    const std::int64_t hours = std::max(24 / rule.Interval, 1);
    return (rule.Hours.empty() ? hours : std::min(hours, CountOf(rule.Hours))) * within;
}

RuleWalk::RuleWalk(const RecurrenceRule& rule, Seconds start, Seconds from, ExpansionBudget& budget)
    : Rule(rule), Start(start), From(std::max(start, from)),
      End(std::min(rule.Until.value_or(kLastMoment), kLastMoment)), Budget(budget) {
    TakeDefaults(Rule, start);
    if (From > End) {
        Ended = true;
        return;
    }
    const Seconds first = Rule.Count > 0 ? Start : From;
    std::int64_t passed = 0;
    switch (Rule.Every) {
    case Frequency::Hourly:
        passed = (first - Start) / kHour;
        break;
    case Frequency::Daily:
        passed = DayOf(first) - DayOf(Start);
        break;
    case Frequency::Weekly:
        passed = (DayOf(first) - DayOf(Start)) / kDaysPerWeek;
        break;
    case Frequency::Monthly:
        passed = MonthIndexOf(first) - MonthIndexOf(Start);
        break;
    case Frequency::Yearly:
        passed = CivilFromDay(DayOf(first)).Year - CivilFromDay(DayOf(Start)).Year;
        break;
    }
    // A day may belong to the period before: the last week of a year, what is moved out of a short month.
    Period = std::max<std::int64_t>(passed / Rule.Interval - 1, 0);
}

std::optional<Seconds> RuleWalk::Next() {
    while (!Ended) {
        while (At < Times.size()) {
            const Seconds time = Times[At++];
            if (time < Start || (Last && time <= *Last)) {
                continue;
            }
            if (time > End || (Rule.Count > 0 && ++Counted > Rule.Count)) {
                Ended = true;
                return std::nullopt;
            }
            Last = time;
            if (time >= From) {
                return time;
            }
        }
        Times.clear();
        At = 0;
        Ended = !(Rule.Every == Frequency::Hourly ? FillHour() : FillPeriod());
    }
    return std::nullopt;
}

bool RuleWalk::FillHour() {
    const Seconds step = Rule.Interval * kHour;
    const Seconds hour = Start - Start % kHour + Period * step;
    if (hour > End || !Budget.Take()) {
        return false;
    }
    const DayNumber day = DayOf(hour);
    if (!Matches(day)) {
        Period += (MidnightOf(day + 1) - hour + step - 1) / step;
        return true;
    }
    ++Period;
    if (!Rule.Hours.empty() &&
        !std::binary_search(Rule.Hours.begin(), Rule.Hours.end(), static_cast<int>(TimeOfDay(hour) / kHour))) {
        return true;
    }
    if (!Budget.Take(SizeOf(Rule.Minutes) * SizeOf(Rule.OfMinute))) {
        return false;
    }
    for (const int minute : Rule.Minutes) {
        for (const int second : Rule.OfMinute) {
            Times.push_back(hour + minute * kMinute + second);
        }
    }
    ChoosePositions();
    return true;
}

void RuleWalk::FindSpan(DayNumber& first, DayNumber& last) const {
    const std::int64_t offset = Period * Rule.Interval;
    const DayNumber startDay = DayOf(Start);
    switch (Rule.Every) {
    case Frequency::Hourly:
    case Frequency::Daily:
        first = startDay + offset;
        last = first;
        return;
    case Frequency::Weekly:
        first = startDay - (WeekdayOf(startDay) - Rule.WeekStart + kDaysPerWeek) % kDaysPerWeek + offset * kDaysPerWeek;
        last = first + kDaysPerWeek - 1;
        return;
    case Frequency::Monthly: {
        const auto index = static_cast<int>(MonthIndexOf(Start) + offset);
        first = DayFromCivil(index / kMonthsPerYear, index % kMonthsPerYear + 1, 1);
        last = first + DaysInMonth(index / kMonthsPerYear, index % kMonthsPerYear + 1) - 1;
        return;
    }
    case Frequency::Yearly:
        break;
    }
    const auto year = static_cast<int>(CivilFromDay(startDay).Year + offset);
    first = DayFromCivil(year, 1, 1);
    last = first + DaysInYear(year) - 1;
}

bool RuleWalk::FillPeriod() {
    DayNumber first = 0;
    DayNumber last = 0;
    if (Period * Rule.Interval > kLastStoredDay - kFirstStoredDay) {
        return false; // beyond all time, whatever the period
    }
    FindSpan(first, last);
    ++Period;
    if (MidnightOf(first) > End + kDaysPerWeek * kSecondsPerDay || !Budget.Take()) {
        return false;
    }
    Days.clear();
    if (!CollectDays(first, last)) {
        return false;
    }
    if (Rule.Missing != MissingDay::Omit && Rule.Every >= Frequency::Monthly) {
        AddMissingDays(first, last);
    }
    if (!AddTimes()) {
        return false;
    }
    ChoosePositions();
    return true;
}

bool RuleWalk::CollectDays(DayNumber first, DayNumber last) {
    const bool byWeeks = Rule.Every == Frequency::Yearly && !Rule.Weeks.empty();
    const int year = CivilFromDay(first).Year;
    if (byWeeks) {
        // The weeks of a year begin up to three days before it and end up to three days after it.
        constexpr int kSpill = 3;
        first -= kSpill;
        last += kSpill;
    }
    for (DayNumber day = first; day <= last; ++day) {
        if (!Budget.Take()) {
            return false;
        }
        const CivilDate date = CivilFromDay(day);
        if (!byWeeks && !Rule.Months.empty() &&
            !std::binary_search(Rule.Months.begin(), Rule.Months.end(), date.Month)) {
            day += DaysInMonth(date.Year, date.Month) - date.Day; // on to the next month
            continue;
        }
        if (Matches(day) &&
            (!byWeeks ||
             CivilFromDay(day - (WeekdayOf(day) - Rule.WeekStart + kDaysPerWeek) % kDaysPerWeek + 3).Year == year)) {
            Days.push_back(day);
        }
    }
    return true;
}

void RuleWalk::AddMissingDays(DayNumber first, DayNumber last) {
    for (DayNumber day = first; day <= last;) {
        const CivilDate date = CivilFromDay(day);
        const int size = DaysInMonth(date.Year, date.Month);
        const bool wanted =
            Rule.Months.empty() || std::binary_search(Rule.Months.begin(), Rule.Months.end(), date.Month);
        if (wanted && !Rule.MonthDays.empty() && Rule.MonthDays.back() > size && Rule.Days.empty()) {
            Days.push_back(day + size - (Rule.Missing == MissingDay::Before ? 1 : 0));
        }
        day += size;
    }
    SortOnce(Days);
}

bool RuleWalk::AddTimes() {
    if (!Budget.Take(SizeOf(Days) * SizeOf(Rule.Hours) * SizeOf(Rule.Minutes) * SizeOf(Rule.OfMinute))) {
        return false;
    }
    for (const DayNumber day : Days) {
        for (const int hour : Rule.Hours) {
            for (const int minute : Rule.Minutes) {
                for (const int second : Rule.OfMinute) {
                    Times.push_back(MidnightOf(day) + hour * kHour + minute * kMinute + second);
                }
            }
        }
    }
    return true;
}

void RuleWalk::ChoosePositions() {
    if (Rule.Positions.empty()) {
        return;
    }
    const auto size = static_cast<std::int64_t>(Times.size());
    std::vector<Seconds> chosen;
    for (const std::int64_t position : Rule.Positions) {
        const std::int64_t index = position > 0 ? position - 1 : size + position;
        if (index >= 0 && index < size) {
            chosen.push_back(Times[static_cast<std::size_t>(index)]);
        }
    }
    SortOnce(chosen);
    Times = std::move(chosen);
}

bool RuleWalk::Matches(DayNumber day) const {
    const CivilDate date = CivilFromDay(day);
    if (!Rule.Months.empty() && !std::binary_search(Rule.Months.begin(), Rule.Months.end(), date.Month)) {
        return false;
    }
    if (!Rule.MonthDays.empty() && !HoldsPlace(Rule.MonthDays, date.Day, DaysInMonth(date.Year, date.Month))) {
        return false;
    }
    if (!Rule.YearDays.empty()) {
        const auto place = static_cast<int>(day - DayFromCivil(date.Year, 1, 1)) + 1;
        if (!HoldsPlace(Rule.YearDays, place, DaysInYear(date.Year))) {
            return false;
        }
    }
    return (Rule.Weeks.empty() || IsInWeeks(day)) && (Rule.Days.empty() || IsOneOfDays(day, date));
}

bool RuleWalk::IsOneOfDays(DayNumber day, const CivilDate& date) const {
    const int weekday = WeekdayOf(day);
    const auto holds = [this, weekday](int ordinal) {
        return std::binary_search(Rule.Days.begin(), Rule.Days.end(), RuleDay{weekday, ordinal});
    };
    if (holds(0)) {
        return true;
    }
    if (Rule.Every < Frequency::Monthly) {
        return false;
    }
    const bool ofMonth = Rule.Every == Frequency::Monthly || !Rule.Months.empty();
    const int before = ofMonth ? date.Day - 1 : static_cast<int>(day - DayFromCivil(date.Year, 1, 1));
    const int size = ofMonth ? DaysInMonth(date.Year, date.Month) : DaysInYear(date.Year);
    return holds(before / kDaysPerWeek + 1) || holds(-((size - 1 - before) / kDaysPerWeek + 1));
}

// A week belongs to the year that has its fourth day.
bool RuleWalk::IsInWeeks(DayNumber day) const {
    const DayNumber fourth = day - (WeekdayOf(day) - Rule.WeekStart + kDaysPerWeek) % kDaysPerWeek + 3;
    const int year = CivilFromDay(fourth).Year;
    const auto before = static_cast<int>(fourth - DayFromCivil(year, 1, 1));
    const int number = before / kDaysPerWeek + 1;
    const int fromEnd = -((DaysInYear(year) - 1 - before) / kDaysPerWeek + 1);
    return std::binary_search(Rule.Weeks.begin(), Rule.Weeks.end(), number) ||
           std::binary_search(Rule.Weeks.begin(), Rule.Weeks.end(), fromEnd);
}

} // namespace tavo::rules

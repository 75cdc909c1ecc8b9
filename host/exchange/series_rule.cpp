// Tells which repetition rules of other calendars say exactly what one of the store's six types says.
#include "host/exchange/series_rule.h"

#include "platform/outlook.h"

#include <array>
#include <bit>
#include <vector>

namespace tavo::exchange {
namespace {

constexpr int kLargestInterval = 999;
constexpr int kLastInstance = 5;
constexpr int kLastDayOfMonth = 31;
constexpr int kShortestMonth = 28; // days that every month has
constexpr int kFebruary = 2;
constexpr int kDaysPerWeek = 7;

struct StartDay {
    int Day = 0;
    int Month = 0;
    int Weekday = 0; // 0 Sunday
    int DaysInMonth = 0;
};

StartDay DescribeStart(rules::Seconds start) {
    const rules::DayNumber day = rules::DayOf(start);
    const rules::CivilDate date = rules::CivilFromDay(day);
    return {date.Day, date.Month, rules::WeekdayOf(day), rules::DaysInMonth(date.Year, date.Month)};
}

bool IsEmptyOr(const std::vector<int>& values, int only) {
    return values.empty() || (values.size() == 1 && values[0] == only);
}

// The weekdays of BYDAY and the ordinal that they share: 0 for plain days.
struct DayList {
    int Mask = 0;
    int Ordinal = 0;
    bool Mixed = false;
};

DayList ReadDays(const std::vector<rules::RuleDay>& days) {
    DayList list;
    for (const rules::RuleDay& day : days) {
        list.Mixed = list.Mixed || (list.Mask != 0 && day.Ordinal != list.Ordinal);
        list.Ordinal = day.Ordinal;
        list.Mask |= 1 << day.Weekday;
    }
    // "The second Monday and the second Tuesday" are two days of a month, "the second of Mondays and Tuesdays" is one.
    list.Mixed = list.Mixed || (list.Ordinal != 0 && std::popcount(static_cast<unsigned>(list.Mask)) > 1);
    return list;
}

// The store counts weeks from Sunday. Another first day changes a rule only when it moves one of its days into
// another week than the start's.
bool IsWeekStartHarmless(int mask, int startWeekday, int weekStart) {
    const int startOffset = (startWeekday - weekStart + kDaysPerWeek) % kDaysPerWeek;
    for (int day = 0; day < kDaysPerWeek; ++day) {
        if ((mask >> day & 1) != 0) {
            const int offset = (day - weekStart + kDaysPerWeek) % kDaysPerWeek;
            if ((offset - startOffset) != (day - startWeekday)) {
                return false;
            }
        }
    }
    return true;
}

class Recogniser {
  public:
    Recogniser(const rules::RecurrenceRule& rule, rules::Seconds start)
        : Rule(rule), Start(DescribeStart(start)), Days(ReadDays(rule.Days)), MonthDays(rule.MonthDays),
          Months(rule.Months), Positions(rule.Positions) {}

    std::optional<SeriesRule> RecogniseDaily() const {
        if (!Months.empty() || !MonthDays.empty() || !Positions.empty() || Days.Ordinal != 0) {
            return std::nullopt;
        }
        SeriesRule series{.Type = kRecursDaily, .Interval = Rule.Interval};
        if (Days.Mask == 0) {
            return series;
        }
        if (Rule.Interval != 1 || !HoldsStart(Days.Mask)) {
            return std::nullopt;
        }
        series.Type = Days.Mask == kWeekdaysMask ? kRecursDaily : kRecursWeekly;
        series.DayOfWeekMask = Days.Mask;
        return series;
    }

    std::optional<SeriesRule> RecogniseWeekly() const {
        if (!Months.empty() || !MonthDays.empty() || !Positions.empty() || Days.Ordinal != 0) {
            return std::nullopt;
        }
        const int mask = Days.Mask != 0 ? Days.Mask : 1 << Start.Weekday;
        if (!HoldsStart(mask) || (Rule.Interval > 1 && !IsWeekStartHarmless(mask, Start.Weekday, Rule.WeekStart))) {
            return std::nullopt;
        }
        return SeriesRule{.Type = kRecursWeekly, .Interval = Rule.Interval, .DayOfWeekMask = mask};
    }

    std::optional<SeriesRule> RecogniseMonthly() const {
        if (!Months.empty()) {
            return std::nullopt;
        }
        if (Days.Mask != 0) {
            return RecogniseNth(kRecursMonthNth);
        }
        const int day = FindDayOfMonth();
        if (day == 0) {
            return std::nullopt;
        }
        return SeriesRule{.Type = kRecursMonthly, .Interval = Rule.Interval, .DayOfMonth = day};
    }

    std::optional<SeriesRule> RecogniseYearly() const {
        if (Rule.Interval != 1 || !IsEmptyOr(Months, Start.Month)) {
            return std::nullopt;
        }
        if (Days.Mask != 0) {
            // Without a month the ordinal counts within the year, which no type says.
            std::optional<SeriesRule> series = Months.empty() ? std::nullopt : RecogniseNth(kRecursYearNth);
            if (series) {
                series->MonthOfYear = Start.Month;
            }
            return series;
        }
        // A day of every month, unless a month is named.
        if (!MonthDays.empty() && Months.empty()) {
            return std::nullopt;
        }
        int day = FindDayOfMonth();
        if (day == 0 && Start.Month != kFebruary && IsEmptyOr(MonthDays, Start.Day) && Positions.empty()) {
            day = Start.Day; // a day beyond the 28th, of a month that always has it
        }
        if (day == 0) {
            return std::nullopt;
        }
        const bool last = day == kLastDayOfMonth && Start.Month == kFebruary;
        return SeriesRule{.Type = kRecursYearly, .DayOfMonth = last ? 29 : day, .MonthOfYear = Start.Month};
    }

  private:
    bool HoldsStart(int mask) const { return (mask >> Start.Weekday & 1) != 0; }

    // A day that means the same in the store as in the rule: up to 28, or the last. 0 when there is none.
    int FindDayOfMonth() const {
        if (!Positions.empty()) {
            return 0;
        }
        if (MonthDays.size() == 1 && MonthDays[0] == -1 && Start.Day == Start.DaysInMonth) {
            return Rule.Every == rules::Frequency::Yearly && Start.Month != kFebruary ? Start.Day : kLastDayOfMonth;
        }
        return IsEmptyOr(MonthDays, Start.Day) && Start.Day <= kShortestMonth ? Start.Day : 0;
    }

    std::optional<SeriesRule> RecogniseNth(std::int32_t type) const {
        int instance = Days.Ordinal;
        if (Days.Mixed || !MonthDays.empty() || (instance != 0 && !Positions.empty())) {
            return std::nullopt;
        }
        if (instance == 0) {
            if (Positions.size() != 1) {
                return std::nullopt;
            }
            instance = Positions[0];
        }
        // The fifth is not the last: it comes only in months that have five.
        if (instance == -1) {
            instance = kLastInstance;
        } else if (instance < 1 || instance >= kLastInstance) {
            return std::nullopt;
        }
        if (!HoldsStart(Days.Mask) || !IsStartTheNth(instance)) {
            return std::nullopt;
        }
        return SeriesRule{.Type = type, .Interval = Rule.Interval, .DayOfWeekMask = Days.Mask, .Instance = instance};
    }

    // Whether the start's day is the instance-th of the mask's days in its month.
    bool IsStartTheNth(int instance) const {
        if (instance == kLastInstance) {
            for (int day = Start.Day + 1; day <= Start.DaysInMonth; ++day) {
                if ((Days.Mask >> (Start.Weekday + day - Start.Day) % kDaysPerWeek & 1) != 0) {
                    return false;
                }
            }
            return true;
        }
        int count = 0;
        for (int day = 1; day <= Start.Day; ++day) {
            const int weekday = ((Start.Weekday + day - Start.Day) % kDaysPerWeek + kDaysPerWeek) % kDaysPerWeek;
            count += Days.Mask >> weekday & 1;
        }
        return count == instance;
    }

    const rules::RecurrenceRule& Rule;
    StartDay Start;
    DayList Days;
    const std::vector<int>& MonthDays;
    const std::vector<int>& Months;
    const std::vector<int>& Positions;
};

} // namespace

std::optional<SeriesRule> RecogniseRule(const rules::RuleText& text, rules::Seconds start) {
    const rules::RecurrenceRule& rule = text.Rule;
    const auto ofDay = static_cast<int>(rules::TimeOfDay(start));
    const bool timesAreTheStarts = IsEmptyOr(rule.Hours, ofDay / 3600) && IsEmptyOr(rule.Minutes, ofDay / 60 % 60) &&
                                   IsEmptyOr(rule.OfMinute, ofDay % 60);
    if (!timesAreTheStarts || !rule.YearDays.empty() || !rule.Weeks.empty() || text.HasScale ||
        rule.Interval > kLargestInterval) {
        return std::nullopt;
    }
    const Recogniser recogniser(rule, start);
    switch (rule.Every) {
    case rules::Frequency::Daily:
        return recogniser.RecogniseDaily();
    case rules::Frequency::Weekly:
        return recogniser.RecogniseWeekly();
    case rules::Frequency::Monthly:
        return recogniser.RecogniseMonthly();
    case rules::Frequency::Yearly:
        return recogniser.RecogniseYearly();
    default:
        return std::nullopt;
    }
}

} // namespace tavo::exchange

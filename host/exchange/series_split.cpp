// The later series begins where the occurrence was moved to, and so do all that follow it.
#include "host/exchange/series_split.h"

#include "host/rules/recurrence.h"

#include <algorithm>
#include <utility>

namespace tavo::exchange {
namespace {

using rules::DayNumber;
using rules::DayOf;
using rules::PatternEnd;
using rules::Seconds;
using rules::StoredException;
using rules::StoredItem;
using rules::StoredPattern;

constexpr int kDaysPerWeek = 7;

Seconds StartOf(const StoredItem& item) {
    return item.Zone.empty() ? item.Start : item.ZoneStart;
}

// The weekdays so many days later.
std::int32_t ShiftWeekdays(std::int32_t mask, DayNumber days) {
    std::int32_t shifted = 0;
    for (int weekday = 0; weekday < kDaysPerWeek; ++weekday) {
        if ((mask >> weekday & 1) != 0) {
            shifted |= 1 << ((weekday + days % kDaysPerWeek + kDaysPerWeek) % kDaysPerWeek);
        }
    }
    return shifted;
}

// The rule of days that many later, the first of which is `start`. False where no rule of ours says that.
bool ShiftPattern(StoredPattern& pattern, DayNumber start, DayNumber days) {
    const rules::CivilDate date = rules::CivilFromDay(start);
    if (days == 0) {
        return true;
    }
    pattern.LastDay += pattern.End == PatternEnd::OnDate ? days : 0;
    switch (pattern.Type) {
    case kRecursDaily:
        return pattern.DayOfWeekMask == 0;
    case kRecursWeekly:
        pattern.DayOfWeekMask = ShiftWeekdays(pattern.DayOfWeekMask, days);
        return true;
    case kRecursMonthly:
    case kRecursYearly:
        // Days that every month has follow each other in the same order.
        pattern.MonthOfYear = pattern.Type == kRecursYearly ? date.Month : pattern.MonthOfYear;
        return std::max(pattern.DayOfMonth, std::exchange(pattern.DayOfMonth, date.Day)) <= 28 && date.Day <= 28;
    default:
        return false;
    }
}

} // namespace

bool EndSeriesBefore(StoredItem& series, Seconds original) {
    series.Pattern.End = PatternEnd::OnDate;
    series.Pattern.LastDay = DayOf(original) - 1;
    std::erase_if(series.Exceptions,
                  [original](const StoredException& exception) { return exception.Original >= original; });
    return series.Pattern.LastDay >= DayOf(StartOf(series));
}

std::optional<StoredItem> SplitSeries(StoredItem& series, const EventEntry& entry, const StoredException& change,
                                      std::string& reason) {
    StoredItem later = entry.Item;
    const Seconds shift = change.Start - change.Original;
    const DayNumber days = DayOf(change.Start) - DayOf(change.Original);
    later.Pattern = series.Pattern;
    const bool isOurs = series.Pattern.Type != kRecursForeign && series.IsRecurring() &&
                        rules::FindPatternFault(series.Pattern) == rules::PatternFault::None &&
                        series.AllDay == later.AllDay && ShiftPattern(later.Pattern, DayOf(change.Start), days);
    if (!isOurs || later.Zone != series.Zone) {
        reason = "it changes all later occurrences of a series at once (RANGE), in a way that no rule here can say";
        return std::nullopt;
    }
    const DayNumber before = DayOf(change.Original) - 1;
    if (later.Pattern.End == PatternEnd::AfterCount) {
        const rules::RecurrenceDays walk(series.Pattern, DayOf(StartOf(series)));
        later.Pattern.Occurrences -= static_cast<std::int32_t>(walk.CountThrough(before));
    }
    for (const StoredException& exception : series.Exceptions) {
        if (exception.Original > change.Original) {
            later.Exceptions.push_back(exception);
            later.Exceptions.back().Original += shift;
        }
    }
    if (EndSeriesBefore(series, change.Original)) {
        later.Uid += "/" + entry.OccurrenceText;
    } else {
        later.Uid = series.Uid;
        series = std::exchange(later, {});
    }
    return later;
}

} // namespace tavo::exchange

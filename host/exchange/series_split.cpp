// The later series begins where the occurrence was moved to, and so do all that follow it.
#include "host/exchange/series_split.h"

#include "host/exchange/rule_split.h"
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

RuleSeries RuleOf(const StoredItem& series, const rules::ZoneRules* own) {
    return {series.ForeignRule, StartOf(series), series.AllDay, series.Zone, own};
}

// The pattern or rule of what follows an occurrence, counted from where that was moved to. False where no rule here
// can say it.
bool MakeLaterRule(const StoredItem& series, const StoredException& change, const rules::ZoneRules* own,
                   StoredItem& later) {
    later.Pattern = series.Pattern;
    if (series.Pattern.Type == kRecursForeign) {
        std::optional<SplitLines> split =
            SplitRuleLines(RuleOf(series, own), change.Original, change.Start - change.Original);
        if (split && split->After.empty()) {
            later.Pattern = {};
        } else if (split) {
            later.ForeignRule = std::move(split->After);
        }
        return split.has_value();
    }
    const DayNumber days = DayOf(change.Start) - DayOf(change.Original);
    if (rules::FindPatternFault(series.Pattern) != rules::PatternFault::None ||
        !ShiftPattern(later.Pattern, DayOf(change.Start), days)) {
        return false;
    }
    if (later.Pattern.End == PatternEnd::AfterCount) {
        const rules::RecurrenceDays walk(series.Pattern, DayOf(StartOf(series)));
        later.Pattern.Occurrences -= static_cast<std::int32_t>(walk.CountThrough(DayOf(change.Original) - 1));
    }
    return true;
}

} // namespace

SeriesEnd EndSeriesBefore(StoredItem& series, Seconds original, const rules::ZoneRules* own) {
    if (original <= StartOf(series)) {
        return SeriesEnd::NothingLeft;
    }
    if (series.Pattern.Type == kRecursForeign) {
        std::optional<SplitLines> split = SplitRuleLines(RuleOf(series, own), original, 0);
        if (!split) {
            return SeriesEnd::CannotBeSaid;
        }
        series.ForeignRule = std::move(split->Before);
    } else {
        const DayNumber last = DayOf(original) - 1;
        if (last < DayOf(StartOf(series))) {
            return SeriesEnd::NothingLeft;
        }
        series.Pattern.End = PatternEnd::OnDate;
        series.Pattern.LastDay = last;
    }
    std::erase_if(series.Exceptions,
                  [original](const StoredException& exception) { return exception.Original >= original; });
    return SeriesEnd::Ended;
}

std::optional<StoredItem> SplitSeries(StoredItem& series, const EventEntry& entry, const StoredException& change,
                                      std::string& reason) {
    StoredItem later = entry.Item;
    const Seconds shift = change.Start - change.Original;
    const rules::ZoneRules* const own = entry.Start.In == nullptr ? nullptr : entry.Start.In->Rules.get();
    StoredItem earlier = series;
    const bool isOurs = series.IsRecurring() && series.AllDay == later.AllDay && later.Zone == series.Zone &&
                        MakeLaterRule(series, change, own, later);
    const SeriesEnd end = isOurs ? EndSeriesBefore(earlier, change.Original, own) : SeriesEnd::CannotBeSaid;
    if (end == SeriesEnd::CannotBeSaid) {
        reason = "it changes all later occurrences of a series at once (RANGE), in a way that no rule here can say";
        return std::nullopt;
    }
    for (const StoredException& exception : series.Exceptions) {
        if (exception.Original > change.Original) {
            later.Exceptions.push_back(exception);
            later.Exceptions.back().Original += shift;
        }
    }
    if (end == SeriesEnd::Ended) {
        series = std::move(earlier);
        later.Uid += "/" + entry.OccurrenceText;
    } else {
        later.Uid = series.Uid;
        series = std::exchange(later, {});
    }
    return later;
}

} // namespace tavo::exchange

// Patterns in the words that a person would say.
#include "tools/repeat_text.h"

#include "host/locale/harmless_text.h"
#include "tools/store_days.h"

#include <algorithm>
#include <array>

namespace tavo::tools {
namespace {

constexpr int kWeekdays = 7;

std::string ListDays(int mask) {
    std::string text;
    for (int day = 1; day <= kWeekdays; ++day) { // from Monday on
        if ((mask >> day % kWeekdays & 1) != 0) {
            text += (text.empty() ? "" : ", ") +
                    std::string(NameWeekday(static_cast<unsigned>(day % kWeekdays)).substr(0, 3));
        }
    }
    return text;
}

std::string DescribePeriod(int interval, std::string_view word, std::string_view units) {
    return interval == 1 ? std::string(word) : "every " + std::to_string(interval) + " " + std::string(units);
}

std::string DescribeInstance(const rules::StoredPattern& pattern) {
    constexpr std::array<std::string_view, 5> ordinals = {"first", "second", "third", "fourth", "last"};
    return " on the " + std::string(ordinals[static_cast<std::size_t>(std::clamp(pattern.Instance, 1, 5) - 1)]) + " " +
           ListDays(pattern.DayOfWeekMask);
}

std::string DescribePattern(const rules::StoredPattern& pattern) {
    const std::string month(NameMonth(static_cast<unsigned>(std::clamp(pattern.MonthOfYear, 1, 12))));
    switch (pattern.Type) {
    case kRecursDaily:
        return pattern.DayOfWeekMask == kWeekdaysMask ? "on weekdays"
                                                      : DescribePeriod(pattern.Interval, "daily", "days");
    case kRecursWeekly:
        if (pattern.DayOfWeekMask == kWeekdaysMask && pattern.Interval == 1) {
            return "on weekdays";
        }
        return DescribePeriod(pattern.Interval, "weekly", "weeks") + " on " + ListDays(pattern.DayOfWeekMask);
    case kRecursMonthly:
        return DescribePeriod(pattern.Interval, "monthly", "months") + " on day " + std::to_string(pattern.DayOfMonth);
    case kRecursMonthNth:
        return DescribePeriod(pattern.Interval, "monthly", "months") + DescribeInstance(pattern);
    case kRecursYearly:
        return "yearly on " + std::to_string(pattern.DayOfMonth) + " " + month;
    case kRecursYearNth:
        return "yearly" + DescribeInstance(pattern) + " of " + month;
    default:
        return "";
    }
}

} // namespace

std::string DescribeRepetition(const rules::StoredItem& item) {
    const rules::StoredPattern& pattern = item.Pattern;
    if (pattern.Type == kRecursForeign) {
        return "by the rule " + locale::MakeHarmless(item.ForeignRule);
    }
    std::string text = DescribePattern(pattern);
    switch (pattern.End) {
    case rules::PatternEnd::OnDate:
        return text.empty() ? text : text + " until " + WriteDayWithWeekday(DayFromNumber(pattern.LastDay));
    case rules::PatternEnd::AfterCount:
        return text.empty() ? text : text + ", " + std::to_string(pattern.Occurrences) + " times";
    case rules::PatternEnd::Never:
        break;
    }
    return text;
}

} // namespace tavo::tools

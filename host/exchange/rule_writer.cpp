// The six types, each in the words of RFC 5545 that mean the same.
#include "host/exchange/rule_writer.h"

#include "host/rules/recurrence.h"

#include <array>
#include <string_view>

namespace tavo::exchange {
namespace {

using rules::StoredPattern;

constexpr int kShortestMonth = 28; // days that every month has
constexpr int kLastInstance = 5;

std::string WriteWeekdays(std::int32_t mask) {
    constexpr std::array<std::string_view, 7> names = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};
    std::string text;
    for (std::size_t day = 0; day < names.size(); ++day) {
        if ((mask >> day & 1) != 0) {
            text += text.empty() ? "" : ",";
            text += names[day];
        }
    }
    return text;
}

// A day that a month does not have is its last one here, and elsewhere none.
std::string WriteDayOfMonth(std::int32_t day) {
    if (day <= kShortestMonth) {
        return ";BYMONTHDAY=" + std::to_string(day);
    }
    std::string text = ";BYMONTHDAY=" + std::to_string(kShortestMonth);
    for (int other = kShortestMonth + 1; other <= day; ++other) {
        text += "," + std::to_string(other);
    }
    return text + ";BYSETPOS=-1";
}

std::string WriteNth(const StoredPattern& pattern) {
    const int position = pattern.Instance == kLastInstance ? -1 : pattern.Instance;
    return ";BYDAY=" + WriteWeekdays(pattern.DayOfWeekMask) + ";BYSETPOS=" + std::to_string(position);
}

std::string WriteInterval(const StoredPattern& pattern) {
    return pattern.Interval == 1 ? "" : ";INTERVAL=" + std::to_string(pattern.Interval);
}

std::string WriteDays(const StoredPattern& pattern) {
    switch (pattern.Type) {
    case kRecursDaily:
        return "FREQ=DAILY" + WriteInterval(pattern) +
               (pattern.DayOfWeekMask == kWeekdaysMask ? ";BYDAY=" + WriteWeekdays(kWeekdaysMask) : "");
    case kRecursWeekly:
        return "FREQ=WEEKLY" + WriteInterval(pattern) + ";BYDAY=" + WriteWeekdays(pattern.DayOfWeekMask) +
               (pattern.Interval == 1 ? "" : ";WKST=SU");
    case kRecursMonthly:
        return "FREQ=MONTHLY" + WriteInterval(pattern) + WriteDayOfMonth(pattern.DayOfMonth);
    case kRecursMonthNth:
        return "FREQ=MONTHLY" + WriteInterval(pattern) + WriteNth(pattern);
    case kRecursYearly:
        return "FREQ=YEARLY;BYMONTH=" + std::to_string(pattern.MonthOfYear) + WriteDayOfMonth(pattern.DayOfMonth);
    default: // kRecursYearNth
        return "FREQ=YEARLY;BYMONTH=" + std::to_string(pattern.MonthOfYear) + WriteNth(pattern);
    }
}

} // namespace

WrittenRule WriteRule(const StoredPattern& pattern, rules::DayNumber start, const std::string& until) {
    WrittenRule written;
    written.FirstDay = rules::RecurrenceDays(pattern, start).FirstOnOrAfter(start);
    written.Value = WriteDays(pattern);
    if (pattern.End == rules::PatternEnd::AfterCount) {
        written.Value += ";COUNT=" + std::to_string(pattern.Occurrences);
    } else if (pattern.End == rules::PatternEnd::OnDate) {
        written.Value += ";UNTIL=" + until;
    }
    return written;
}

} // namespace tavo::exchange

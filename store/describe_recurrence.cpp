// How each recurrence type is put into words.
#include "store/describe_recurrence.h"

#include "framework/format.h"
#include "store/text_tables.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace tavo {

namespace {

// A number outside the table has no word.
template <std::size_t Size>
std::u16string_view WordAt(const std::array<std::u16string_view, Size>& table, std::int32_t index) {
    return index >= 0 && static_cast<std::size_t>(index) < Size ? table[static_cast<std::size_t>(index)]
                                                                : std::u16string_view();
}

std::u16string_view StartDay(const AppointmentData& record) {
    return WordAt(kDayAbbrevs, record.Start.DayOfWeek);
}

std::u16string_view StartMonth(const AppointmentData& record) {
    return WordAt(kMonthAbbrevs, record.Start.Month - 1);
}

std::u16string_view Ordinal(const AppointmentData& record) {
    return WordAt(kOrdinalNames, record.Instance - 1);
}

std::u16string DescribeMonths(std::int32_t interval) {
    return interval == 1 ? u"every month" : FormatText(u"every %ld months", interval);
}

std::u16string DescribeWeekdays(std::int32_t interval) {
    const std::u16string_view weekdays = kRecurChoiceNames[kChoiceNameWeekdays];
    return interval == 1 ? FormatText(u"Every %s", weekdays) : FormatText(u"Every %ld %s", interval, weekdays);
}

std::u16string DescribeDaily(std::int32_t interval) {
    return interval == 1 ? FormatText(u"%s", kRecurChoiceNames[kChoiceNameEveryday])
                         : FormatText(u"Every %ld days", interval);
}

std::u16string DescribeWeekly(const AppointmentData& record) {
    // Kept on purpose: no blank after "on".
    std::u16string text = record.Interval == 1 ? u"Every " : FormatText(u"Every %ld week(s) on", record.Interval);
    for (std::size_t day = 0; day < kDayAbbrevs.size(); ++day) {
        if ((record.DayOfWeekMask & (1 << day)) != 0) {
            text += FormatText(u"%s,", kDayAbbrevs[day]);
        }
    }
    text.pop_back(); // Kept on purpose: without any day the prefix loses its last character.
    return text;
}

} // namespace

std::u16string DescribeRecurrence(const AppointmentData& record) {
    const bool weekdays = record.RecurChoice == kChoiceWeekdays;
    switch (record.RecurType) {
    case kRecursOnce:
        return FormatText(u"%s", kRecurChoiceNames[kChoiceNameOnce]);
    case kRecursDaily:
        return weekdays ? DescribeWeekdays(record.Interval) : DescribeDaily(record.Interval);
    case kRecursWeekly:
        return weekdays ? DescribeWeekdays(record.Interval) : DescribeWeekly(record);
    case kRecursMonthly:
        // Kept on purpose: the blank at the end.
        return FormatText(u"Day %ld of %s ", record.DayOfMonth, DescribeMonths(record.Interval));
    case kRecursMonthNth:
        return FormatText(u"The %s %s of %s", Ordinal(record), StartDay(record), DescribeMonths(record.Interval));
    case kRecursYearly:
        return FormatText(u"%s %d of every year", StartMonth(record), record.Start.Day);
    case kRecursYearNth:
        return FormatText(u"The %s %s of every %s", Ordinal(record), StartDay(record), StartMonth(record));
    default:
        return {};
    }
}

} // namespace tavo

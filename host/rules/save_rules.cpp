// The rules of Save, one after the other.
#include "host/rules/save_rules.h"

#include "host/rules/recurrence.h"

#include <algorithm>

namespace tavo::rules {

namespace {

bool IsStoredTime(Seconds time) {
    const DayNumber day = DayOf(time);
    return day >= kFirstStoredDay && day <= kLastStoredDay;
}

SaveFault CheckTimes(Seconds start, Seconds end) {
    // An item that ends with the last day of all ends on the midnight after it.
    if (!IsStoredTime(start) || !(IsStoredTime(end) || end == MidnightOf(kLastStoredDay + 1))) {
        return SaveFault::DateOutOfRange;
    }
    if (end < start) {
        return SaveFault::EndBeforeStart;
    }
    return end - start > kLongestAppointment ? SaveFault::TooLong : SaveFault::None;
}

SaveFault FromPatternFault(PatternFault fault) {
    switch (fault) {
    case PatternFault::None:
        return SaveFault::None;
    case PatternFault::Type:
        return SaveFault::BadType;
    case PatternFault::Interval:
        return SaveFault::BadInterval;
    case PatternFault::Mask:
        return SaveFault::BadMask;
    case PatternFault::DayOfMonth:
        return SaveFault::BadDayOfMonth;
    case PatternFault::Month:
        return SaveFault::BadMonth;
    case PatternFault::Instance:
        return SaveFault::BadInstance;
    case PatternFault::NeverInMonth:
        return SaveFault::DayNeverInMonth;
    }
    return SaveFault::BadType;
}

SaveFault CheckPattern(StoredItem& item, Seconds ownStart) {
    StoredPattern& pattern = item.Pattern;
    if (pattern.Type == kRecursForeign) {
        return item.ForeignRule.empty() ? SaveFault::BadType : SaveFault::None;
    }
    if (const PatternFault fault = FindPatternFault(pattern); fault != PatternFault::None) {
        return FromPatternFault(fault);
    }
    const DayNumber startDay = DayOf(ownStart);
    if (pattern.End == PatternEnd::OnDate) {
        if (pattern.LastDay < startDay) {
            return SaveFault::PatternEndBeforeStart;
        }
        if (pattern.LastDay > kLastStoredDay) {
            return SaveFault::DateOutOfRange;
        }
    }
    return DerivePatternEnd(pattern, startDay) ? SaveFault::None : SaveFault::NoOccurrence;
}

SaveFault CheckExceptions(std::vector<StoredException>& exceptions) {
    std::sort(exceptions.begin(), exceptions.end(),
              [](const StoredException& left, const StoredException& right) { return left.Original < right.Original; });
    for (std::size_t index = 0; index < exceptions.size(); ++index) {
        const bool twice = index > 0 && exceptions[index - 1].Original == exceptions[index].Original;
        if (twice || CheckException(exceptions[index]) != SaveFault::None) {
            return SaveFault::BadException;
        }
    }
    return SaveFault::None;
}

} // namespace

SaveFault CheckException(const StoredException& exception) {
    const bool moved = exception.Kind == ExceptionKind::Moved;
    const bool isGood = exception.Carried.size() <= kMaxCarriedByOccurrence &&
                        (!moved || CheckTimes(exception.Start, exception.End) == SaveFault::None);
    return isGood ? SaveFault::None : SaveFault::BadException;
}

SaveFault CheckAndDerive(StoredItem& item) {
    const bool zoned = !item.Zone.empty();
    const Seconds start = zoned ? item.ZoneStart : item.Start;
    const Seconds end = zoned ? item.ZoneEnd : item.End;
    if (const SaveFault fault = CheckTimes(start, end); fault != SaveFault::None) {
        return fault;
    }
    if (item.Subject.size() + item.Location.size() + item.Categories.size() + item.Body.size() +
                item.ReminderSound.size() + item.ForeignRule.size() >
            kMaxTextLength ||
        item.Carried.size() > kMaxCarriedBytes) {
        return SaveFault::TextTooLong;
    }
    if (item.Ink.size() > kMaxInkBytes) {
        return SaveFault::InkTooLarge;
    }
    if (!item.IsRecurring()) {
        return SaveFault::None;
    }
    if (const SaveFault fault = CheckPattern(item, start); fault != SaveFault::None) {
        return fault;
    }
    return CheckExceptions(item.Exceptions);
}

std::string_view DescribeFault(SaveFault fault) {
    switch (fault) {
    case SaveFault::None:
        return "";
    case SaveFault::EndBeforeStart:
        return "it ends before it starts";
    case SaveFault::TooLong:
        return "it lasts longer than 31 days";
    case SaveFault::DateOutOfRange:
        return "a date lies outside the years 1900 to 2999";
    case SaveFault::BadType:
        return "its kind of recurrence is not known";
    case SaveFault::BadInterval:
        return "its interval lies outside 1 to 999";
    case SaveFault::BadMask:
        return "it names no weekday";
    case SaveFault::BadDayOfMonth:
        return "its day of the month lies outside 1 to 31";
    case SaveFault::BadMonth:
        return "its month lies outside 1 to 12";
    case SaveFault::BadInstance:
        return "its week of the month lies outside 1 to 5";
    case SaveFault::DayNeverInMonth:
        return "its month never has that day";
    case SaveFault::NoOccurrence:
        return "it never takes place";
    case SaveFault::PatternEndBeforeStart:
        return "its recurrence ends before it starts";
    case SaveFault::TextTooLong:
        return "its texts are longer than a million characters";
    case SaveFault::InkTooLarge:
        return "its ink note is larger than 4 MiB";
    case SaveFault::BadException:
        return "a moved occurrence is impossible";
    }
    return "";
}

} // namespace tavo::rules

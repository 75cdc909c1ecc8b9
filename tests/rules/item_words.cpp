// Times as text, items and patterns.
#include "tests/rules/item_words.h"

#include <array>
#include <cstdio>

namespace tavo::rules::test {

Seconds At(const std::string& text) {
    std::array<int, 6> fields{}; // from the year to the second; what is not written is 0
    std::size_t begin = 0;
    for (int& field : fields) {
        begin = text.find_first_of("0123456789", begin);
        if (begin == std::string::npos) {
            break;
        }
        std::size_t length = 0;
        field = std::stoi(text.substr(begin), &length);
        begin += length;
    }
    const auto [year, month, day, hour, minute, second] = fields;
    return MakeTime(year, month, day, hour, minute, second);
}

DATE DateAt(const std::string& text) {
    return DateFromSeconds(At(text));
}

std::string TextOf(Seconds time) {
    const CivilDate date = CivilFromDay(DayOf(time));
    const auto ofDay = static_cast<int>(TimeOfDay(time));
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d", date.Year, date.Month, date.Day, ofDay / 3600,
                  ofDay / 60 % 60);
    std::string result = text;
    if (ofDay % 60 != 0) {
        std::snprintf(text, sizeof text, ":%02d", ofDay % 60);
        result += text;
    }
    return result;
}

StoredItem MakeItem(const std::string& uid, const std::string& start, const std::string& end,
                    const std::u16string& subject) {
    StoredItem item;
    item.Uid = uid;
    item.Subject = subject;
    item.Start = At(start);
    item.End = At(end);
    return item;
}

StoredPattern Daily(std::int32_t interval) {
    StoredPattern pattern;
    pattern.Type = kRecursDaily;
    pattern.Interval = interval;
    return pattern;
}

StoredPattern Weekly(std::int32_t mask, std::int32_t interval) {
    StoredPattern pattern;
    pattern.Type = kRecursWeekly;
    pattern.DayOfWeekMask = mask;
    pattern.Interval = interval;
    return pattern;
}

StoredPattern Monthly(std::int32_t day, std::int32_t interval) {
    StoredPattern pattern;
    pattern.Type = kRecursMonthly;
    pattern.DayOfMonth = day;
    pattern.Interval = interval;
    return pattern;
}

StoredPattern MonthNth(std::int32_t instance, std::int32_t mask, std::int32_t interval) {
    StoredPattern pattern;
    pattern.Type = kRecursMonthNth;
    pattern.Instance = instance;
    pattern.DayOfWeekMask = mask;
    pattern.Interval = interval;
    return pattern;
}

StoredPattern Yearly(std::int32_t month, std::int32_t day) {
    StoredPattern pattern;
    pattern.Type = kRecursYearly;
    pattern.MonthOfYear = month;
    pattern.DayOfMonth = day;
    return pattern;
}

StoredPattern YearNth(std::int32_t month, std::int32_t instance, std::int32_t mask) {
    StoredPattern pattern;
    pattern.Type = kRecursYearNth;
    pattern.MonthOfYear = month;
    pattern.Instance = instance;
    pattern.DayOfWeekMask = mask;
    return pattern;
}

StoredPattern Counted(StoredPattern pattern, std::int32_t count) {
    pattern.End = PatternEnd::AfterCount;
    pattern.Occurrences = count;
    return pattern;
}

StoredPattern Until(StoredPattern pattern, const std::string& lastDay) {
    pattern.End = PatternEnd::OnDate;
    pattern.LastDay = DayOf(At(lastDay));
    return pattern;
}

} // namespace tavo::rules::test

// One part of a rule after the other: NAME=VALUE,VALUE.
#include "host/rules/rule_text.h"

#include "host/locale/ascii.h"
#include "host/rules/calendar_value.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

namespace tavo::rules {

namespace {

constexpr int kLongestYear = 366;
constexpr int kMostWeeks = 53;
constexpr std::size_t kWeekdaySize = 2;
constexpr std::array<std::string_view, 7> kWeekdays{"SU", "MO", "TU", "WE", "TH", "FR", "SA"};
constexpr std::array<std::pair<std::string_view, Frequency>, 5> kFrequencies{{{"HOURLY", Frequency::Hourly},
                                                                              {"DAILY", Frequency::Daily},
                                                                              {"WEEKLY", Frequency::Weekly},
                                                                              {"MONTHLY", Frequency::Monthly},
                                                                              {"YEARLY", Frequency::Yearly}}};

// A list of numbers, and what each may be.
struct NumberList {
    std::string_view Name;
    std::vector<int> RecurrenceRule::*List;
    int Lowest; // below 0: numbers count from either end, and 0 is none
    int Highest;
};

constexpr std::array<NumberList, 8> kNumberLists{
    {{"BYMONTH", &RecurrenceRule::Months, 1, 12},
     {"BYMONTHDAY", &RecurrenceRule::MonthDays, -31, 31},
     {"BYYEARDAY", &RecurrenceRule::YearDays, -kLongestYear, kLongestYear},
     {"BYWEEKNO", &RecurrenceRule::Weeks, -kMostWeeks, kMostWeeks},
     {"BYHOUR", &RecurrenceRule::Hours, 0, 23},
     {"BYMINUTE", &RecurrenceRule::Minutes, 0, 59},
     {"BYSECOND", &RecurrenceRule::OfMinute, 0, 60},
     {"BYSETPOS", &RecurrenceRule::Positions, -kLongestYear, kLongestYear}}};

// Takes what stands before the separator off the front, without blanks around it.
std::string_view TakeUntil(std::string_view& text, char separator) {
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view taken = locale::TrimBlanks(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    return taken;
}

std::optional<std::int64_t> ReadInteger(std::string_view text) {
    if (text.size() > 1 && text.front() == '+' && text[1] != '-') {
        text.remove_prefix(1);
    }
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

std::optional<int> ReadWeekday(std::string_view text) {
    const auto found = std::find_if(kWeekdays.begin(), kWeekdays.end(),
                                    [text](std::string_view name) { return locale::EqualsIgnoringCase(name, text); });
    return found == kWeekdays.end() ? std::nullopt : std::optional(static_cast<int>(found - kWeekdays.begin()));
}

bool ReadNumbers(std::string_view value, const NumberList& part, std::vector<int>& list) {
    do {
        const std::optional<std::int64_t> number = ReadInteger(TakeUntil(value, ','));
        if (!number || *number < part.Lowest || *number > part.Highest || (*number == 0 && part.Lowest < 0)) {
            return false;
        }
        list.push_back(static_cast<int>(*number));
    } while (!value.empty());
    return true;
}

bool ReadDays(std::string_view value, std::vector<RuleDay>& days) {
    do {
        const std::string_view text = TakeUntil(value, ',');
        const std::size_t digits = text.size() - std::min(text.size(), kWeekdaySize);
        const std::optional<int> weekday = ReadWeekday(text.substr(digits));
        const std::optional<std::int64_t> ordinal =
            digits == 0 ? std::optional<std::int64_t>(0) : ReadInteger(text.substr(0, digits));
        if (!weekday || !ordinal || *ordinal < -kMostWeeks || *ordinal > kMostWeeks || (digits > 0 && *ordinal == 0)) {
            return false;
        }
        days.push_back({*weekday, static_cast<int>(*ordinal)});
    } while (!value.empty());
    return true;
}

class RuleReader {
  public:
    RuleReader(RuleText& read, std::string& fault) : Read(read), Fault(fault) {}

    bool ReadAll(std::string_view value) {
        while (!value.empty()) {
            std::string_view part = TakeUntil(value, ';');
            if (part.empty()) {
                continue; // a semicolon too many
            }
            const std::string_view name = TakeUntil(part, '=');
            const std::string_view words = locale::TrimBlanks(part);
            if (words.empty() || !ReadPart(name, words)) {
                return false;
            }
        }
        if (HasFrequency && !Read.HasScale) {
            Read.Rule.Missing = MissingDay::Omit; // only with a scale days may be moved
        }
        return HasFrequency;
    }

  private:
    bool ReadPart(std::string_view name, std::string_view value) {
        const auto is = [name](std::string_view other) { return locale::EqualsIgnoringCase(name, other); };
        if (is("FREQ")) {
            return ReadFrequency(value);
        }
        if (is("RSCALE")) {
            return ReadScale(value);
        }
        if (is("SKIP")) {
            return ReadSkip(value);
        }
        if (is("INTERVAL")) {
            return ReadInterval(value);
        }
        if (is("COUNT")) {
            return ReadCount(value);
        }
        if (is("UNTIL")) {
            return ReadUntil(value);
        }
        if (is("WKST")) {
            const std::optional<int> weekday = ReadWeekday(value);
            Read.Rule.WeekStart = weekday.value_or(1);
            return weekday.has_value();
        }
        if (is("BYDAY")) {
            return Read.Rule.Days.empty() && ReadDays(value, Read.Rule.Days);
        }
        for (const NumberList& part : kNumberLists) {
            if (is(part.Name)) {
                std::vector<int>& list = Read.Rule.*part.List;
                return list.empty() && ReadNumbers(value, part, list);
            }
        }
        return locale::EqualsIgnoringCase(name.substr(0, 2), "X-");
    }

    bool ReadFrequency(std::string_view value) {
        for (const auto& [word, frequency] : kFrequencies) {
            if (locale::EqualsIgnoringCase(value, word)) {
                Read.Rule.Every = frequency;
                return !std::exchange(HasFrequency, true);
            }
        }
        if (locale::EqualsIgnoringCase(value, "MINUTELY") || locale::EqualsIgnoringCase(value, "SECONDLY")) {
            Fault = "it recurs more often than once an hour";
        }
        return false;
    }

    bool ReadScale(std::string_view value) {
        Read.HasScale = true;
        if (locale::EqualsIgnoringCase(value, "GREGORIAN")) {
            return true;
        }
        Fault = "it recurs by another calendar than the Gregorian";
        return false;
    }

    bool ReadSkip(std::string_view value) {
        if (locale::EqualsIgnoringCase(value, "BACKWARD")) {
            Read.Rule.Missing = MissingDay::Before;
        } else if (locale::EqualsIgnoringCase(value, "FORWARD")) {
            Read.Rule.Missing = MissingDay::After;
        } else {
            return locale::EqualsIgnoringCase(value, "OMIT");
        }
        return true;
    }

    bool ReadInterval(std::string_view value) {
        constexpr std::int64_t most = std::numeric_limits<std::int16_t>::max();
        const std::optional<std::int64_t> number = ReadInteger(value);
        if (!number || *number < 1 || *number > most) {
            return false;
        }
        Read.Rule.Interval = static_cast<int>(*number);
        return true;
    }

    bool ReadCount(std::string_view value) {
        const std::optional<std::int64_t> number = ReadInteger(value);
        if (!number || *number < 0 || *number > std::numeric_limits<std::int32_t>::max()) {
            return false;
        }
        Read.Rule.Count = *number;
        return true;
    }

    bool ReadUntil(std::string_view value) {
        const std::optional<CalendarTime> time = ReadCalendarTime(value);
        if (!time || time->Month < 1 || time->Month > 12 || time->Year < 1) {
            return false;
        }
        Read.IsUntilUtc = time->Utc;
        Read.Rule.Until = time->ToSeconds() + (time->DateOnly ? kSecondsPerDay - 1 : 0);
        return true;
    }

    RuleText& Read;
    std::string& Fault;
    bool HasFrequency = false;
};

} // namespace

bool ReadRuleText(std::string_view value, RuleText& read, std::string& fault) {
    read = {};
    return RuleReader(read, fault).ReadAll(value);
}

} // namespace tavo::rules

// Compiled time zone files: their table of transitions and the rule for all time after it.
#include "host/rules/zone_rules.h"

#include <cstddef>
#include <optional>

namespace tavo::rules {

namespace {

constexpr Seconds kUnixEpoch = kUnixEpochDay * kSecondsPerDay;
constexpr std::size_t kHeaderSize = 44;
constexpr int kFirstRuleYear = 1900;

struct Counts {
    std::size_t Utc = 0;
    std::size_t Standard = 0;
    std::size_t Leap = 0;
    std::size_t Times = 0;
    std::size_t Types = 0;
    std::size_t Characters = 0;

    std::size_t DataSize(std::size_t timeSize) const {
        return Times * (timeSize + 1) + Types * 6 + Characters + Leap * (timeSize + 4) + Standard + Utc;
    }
};

std::int64_t ReadBigEndian(std::string_view bytes, std::size_t at, std::size_t size) {
    std::uint64_t value = (static_cast<unsigned char>(bytes[at]) & 0x80) != 0 ? ~std::uint64_t{0} : 0;
    for (std::size_t index = 0; index < size; ++index) {
        value = value << 8 | static_cast<unsigned char>(bytes[at + index]);
    }
    return static_cast<std::int64_t>(value);
}

std::optional<Counts> ReadCounts(std::string_view bytes, std::size_t at) {
    if (bytes.size() < at + kHeaderSize || bytes.substr(at, 4) != "TZif") {
        return std::nullopt;
    }
    std::size_t numbers[6];
    for (std::size_t index = 0; index < 6; ++index) {
        const std::int64_t number = ReadBigEndian(bytes, at + 20 + index * 4, 4);
        if (number < 0 || number > static_cast<std::int64_t>(bytes.size())) {
            return std::nullopt;
        }
        numbers[index] = static_cast<std::size_t>(number);
    }
    return Counts{numbers[0], numbers[1], numbers[2], numbers[3], numbers[4], numbers[5]};
}

// When in a year the clock changes: day by month, week and weekday, or by number.
struct YearRule {
    enum class Form { MonthWeek, DayWithoutLeap, DayWithLeap };
    Form By = Form::DayWithLeap;
    int Month = 1;
    int Week = 1;
    int Day = 0;
    std::int32_t Time = 2 * 3600;

    Seconds LocalTimeIn(int year) const {
        if (By == Form::MonthWeek) {
            const DayNumber first = DayFromCivil(year, Month, 1);
            int offset = (Day - WeekdayOf(first) + 7) % 7 + (Week - 1) * 7;
            if (offset >= DaysInMonth(year, Month)) {
                offset -= 7;
            }
            return MidnightOf(first + offset) + Time;
        }
        const bool afterLeapDay = By == Form::DayWithoutLeap && Day >= 60 && DaysInMonth(year, 2) == 29;
        const int index = By == Form::DayWithoutLeap ? Day - 1 + (afterLeapDay ? 1 : 0) : Day;
        return MidnightOf(DayFromCivil(year, 1, 1) + index) + Time;
    }
};

// Reads the closing line of a zone file, such as CET-1CEST,M3.5.0,M10.5.0/3.
class RuleReader {
  public:
    explicit RuleReader(std::string_view text) : Text(text) {}

    bool SkipName() {
        const std::size_t start = At;
        if (Take('<')) {
            while (!AtEnd() && !Take('>')) {
                ++At;
            }
            return true;
        }
        while (!AtEnd() && ((Text[At] | 0x20) >= 'a' && (Text[At] | 0x20) <= 'z')) {
            ++At;
        }
        return At > start;
    }

    bool ReadNumber(int& number) {
        const std::size_t start = At;
        number = 0;
        while (!AtEnd() && Text[At] >= '0' && Text[At] <= '9' && At < start + 5) {
            number = number * 10 + (Text[At++] - '0');
        }
        return At > start;
    }

    bool ReadTime(std::int32_t& seconds) {
        const bool negative = Take('-');
        if (!negative) {
            Take('+');
        }
        int parts[3] = {0, 0, 0};
        bool read = ReadNumber(parts[0]);
        for (int index = 1; read && index < 3 && Take(':'); ++index) {
            read = ReadNumber(parts[index]);
        }
        seconds = parts[0] * 3600 + parts[1] * 60 + parts[2];
        seconds = negative ? -seconds : seconds;
        return read && parts[0] <= 168;
    }

    bool ReadRule(YearRule& rule) {
        bool read = Take(',');
        if (read && Take('M')) {
            rule.By = YearRule::Form::MonthWeek;
            read = ReadNumber(rule.Month) && Take('.') && ReadNumber(rule.Week) && Take('.') && ReadNumber(rule.Day) &&
                   rule.Month >= 1 && rule.Month <= 12 && rule.Week >= 1 && rule.Week <= 5 && rule.Day <= 6;
        } else if (read) {
            rule.By = Take('J') ? YearRule::Form::DayWithoutLeap : YearRule::Form::DayWithLeap;
            read = ReadNumber(rule.Day) && rule.Day <= 366;
        }
        return read && (!Take('/') || ReadTime(rule.Time));
    }

    bool Take(char wanted) {
        const bool there = !AtEnd() && Text[At] == wanted;
        At += there ? 1 : 0;
        return there;
    }

    bool AtEnd() const { return At >= Text.size(); }

    char Peek() const { return AtEnd() ? '\0' : Text[At]; }

  private:
    std::string_view Text;
    std::size_t At = 0;
};

// Adds what the closing line says for all years after the last transition of the table.
void AppendEndlessRule(std::string_view line, std::vector<ZoneTransition>& transitions, std::int32_t& firstOffset) {
    RuleReader reader(line);
    std::int32_t standard = 0;
    if (!reader.SkipName() || !reader.ReadTime(standard)) {
        return;
    }
    standard = -standard; // such lines count westward
    if (reader.AtEnd()) {
        if (transitions.empty()) {
            firstOffset = standard;
        }
        return;
    }
    std::int32_t summer = standard + 3600;
    YearRule begin;
    YearRule end;
    if (!reader.SkipName()) {
        return;
    }
    if (reader.Peek() != ',') {
        if (!reader.ReadTime(summer)) {
            return;
        }
        summer = -summer;
    }
    if (!reader.ReadRule(begin) || !reader.ReadRule(end)) {
        return;
    }
    const Seconds last = transitions.empty() ? INT64_MIN : transitions.back().Utc;
    for (int year = kFirstRuleYear; year <= kZoneHorizonYear; ++year) {
        const ZoneTransition toSummer{begin.LocalTimeIn(year) - standard, summer};
        const ZoneTransition toStandard{end.LocalTimeIn(year) - summer, standard};
        for (const ZoneTransition& step : {toSummer, toStandard}) {
            if (step.Utc > last) {
                transitions.push_back(step);
            }
        }
    }
}

} // namespace

std::unique_ptr<ZoneRules> ParseZoneFile(std::string_view bytes) {
    const std::optional<Counts> old = ReadCounts(bytes, 0);
    if (!old || bytes[4] < '2') {
        return nullptr; // the first version of the format ends in 2037
    }
    const std::size_t second = kHeaderSize + old->DataSize(4);
    const std::optional<Counts> counts = ReadCounts(bytes, second);
    const std::size_t data = second + kHeaderSize;
    if (!counts || counts->Types == 0 || bytes.size() < data + counts->DataSize(8)) {
        return nullptr;
    }
    const std::size_t indexes = data + counts->Times * 8;
    const std::size_t types = indexes + counts->Times;
    const auto offsetOf = [&](std::size_t type) {
        return static_cast<std::int32_t>(ReadBigEndian(bytes, types + type * 6, 4));
    };
    std::vector<ZoneTransition> transitions;
    for (std::size_t index = 0; index < counts->Times; ++index) {
        const auto type = static_cast<unsigned char>(bytes[indexes + index]);
        if (type >= counts->Types) {
            return nullptr;
        }
        transitions.push_back({ReadBigEndian(bytes, data + index * 8, 8) + kUnixEpoch, offsetOf(type)});
    }
    std::int32_t firstOffset = offsetOf(0);
    const std::size_t footer = data + counts->DataSize(8);
    const std::size_t close = bytes.find('\n', footer + 1);
    if (footer < bytes.size() && bytes[footer] == '\n' && close != std::string_view::npos) {
        AppendEndlessRule(bytes.substr(footer + 1, close - footer - 1), transitions, firstOffset);
    }
    return std::make_unique<ZoneRules>(firstOffset, std::move(transitions));
}

} // namespace tavo::rules

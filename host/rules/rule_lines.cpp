// Reads the lines of foreign rules: rules by libical, lists of dates here, as they may be long.
#include "host/rules/rule_lines.h"

#include "host/locale/ascii.h"
#include "host/rules/expansion_budget.h"
#include "host/rules/ical_rule.h"
#include "host/rules/ical_time.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <memory>

namespace tavo::rules {

namespace {

constexpr std::size_t kMaxLines = 5000;

struct PropertyCloser {
    void operator()(icalproperty* property) const { icalproperty_free(property); }
};

using PropertyPtr = std::unique_ptr<icalproperty, PropertyCloser>;

// A date or time as it stands in a list.
struct Stamp {
    Seconds Digits = 0;
    bool DateOnly = false;
    bool Utc = false;
};

// The number that so many digits make; -1 when one is none.
int ReadNumber(std::string_view digits) {
    int number = 0;
    for (const char digit : digits) {
        if (digit < '0' || digit > '9') {
            return -1;
        }
        number = number * 10 + (digit - '0');
    }
    return number;
}

// 20260503, 20260503T090000 or 20260503T090000Z. Lists may have tens of thousands of them.
bool ReadStamp(std::string_view text, Stamp& stamp) {
    constexpr std::size_t kDateSize = 8;
    constexpr std::size_t kTimeSize = 15;
    constexpr int kHours = 24;
    stamp.DateOnly = text.size() == kDateSize;
    stamp.Utc = text.size() == kTimeSize + 1 && text.back() == 'Z';
    if (!stamp.DateOnly && text.size() != kTimeSize && !stamp.Utc) {
        return false;
    }
    const int year = ReadNumber(text.substr(0, 4));
    const int month = ReadNumber(text.substr(4, 2));
    const int day = ReadNumber(text.substr(6, 2));
    // A day beyond its month is one of the next, as lists of other programs have been taken so far.
    if (year < 1 || year > 3000 || month < 1 || month > 12 || day < 1 || day > 31) {
        return false;
    }
    stamp.Digits = MakeTime(year, month, day);
    if (stamp.DateOnly) {
        return true;
    }
    const int hour = ReadNumber(text.substr(9, 2));
    const int minute = ReadNumber(text.substr(11, 2));
    const int second = ReadNumber(text.substr(13, 2));
    if (text[kDateSize] != 'T' || hour < 0 || hour >= kHours || minute < 0 || minute >= 60 || second < 0 ||
        second > 60) {
        return false;
    }
    stamp.Digits += hour * 3600 + minute * 60 + second;
    return true;
}

bool IsDateList(std::string_view line) {
    constexpr std::string_view kAdded = "RDATE";
    constexpr std::string_view kCancelled = "EXDATE";
    const auto beginsWith = [line](std::string_view name) {
        return line.size() > name.size() && locale::EqualsIgnoringCase(line.substr(0, name.size()), name);
    };
    return beginsWith(kAdded) || beginsWith(kCancelled);
}

// Reads the lines of one series into the parts of its rule.
class LineReader {
  public:
    LineReader(const ZoneRules* own, const ZoneLookup& lookup) : Own(own), Lookup(lookup) {}

    bool Read(const std::string& line, RuleParts& parts, std::string& fault) {
        // Of a list its first value tells all that libical is asked.
        const std::size_t end = IsDateList(line) ? line.find(',', std::min(line.rfind(':'), line.size())) : line.size();
        const PropertyPtr property(icalproperty_new_from_string(line.substr(0, end).c_str()));
        const icalproperty_kind kind = property == nullptr ? ICAL_NO_PROPERTY : icalproperty_isa(property.get());
        bool read = false;
        if (kind == ICAL_RRULE_PROPERTY || kind == ICAL_EXRULE_PROPERTY) {
            const bool adds = kind == ICAL_RRULE_PROPERTY;
            RecurrenceRule rule;
            read = ReadRule(adds ? icalproperty_get_rrule(property.get()) : icalproperty_get_exrule(property.get()),
                            rule, fault);
            parts.StartsPerDay += read ? CountStartsPerDay(rule) : 0;
            if (parts.StartsPerDay > kMostStartsPerDay) {
                fault = "it recurs more often than " + std::to_string(kMostStartsPerDay) + " times a day";
                return false;
            }
            (adds ? parts.Rules : parts.ExceptRules).push_back(std::move(rule));
        } else if (kind == ICAL_RDATE_PROPERTY || kind == ICAL_EXDATE_PROPERTY) {
            read = ReadDates(property.get(), line, kind == ICAL_RDATE_PROPERTY, parts);
        }
        if (!read && fault.empty()) {
            fault = "the recurrence line cannot be read: " + line.substr(0, 60);
        }
        return read;
    }

  private:
    bool ReadRule(const icalrecurrencetype& ical, RecurrenceRule& rule, std::string& fault) const {
        if (!ReadIcalRule(ical, rule, fault)) {
            return false;
        }
        if (rule.Until && icaltime_is_utc(ical.until) != 0 && ical.until.is_date == 0 && Own != nullptr) {
            rule.Until = Own->ToLocal(*rule.Until); // the walk goes by the series' own clock
        }
        return true;
    }

    // From the clock that the line names to the series' own.
    Seconds ToOwn(Seconds time, bool utc, const ZoneRules* zone) const {
        if (utc) {
            return Own != nullptr ? Own->ToLocal(time) : time;
        }
        return zone != nullptr && Own != nullptr ? Own->ToLocal(zone->ToUtc(time)) : time;
    }

    bool ReadDates(icalproperty* property, const std::string& line, bool adds, RuleParts& parts) const {
        const ZoneRules* zone = nullptr;
        if (icalparameter* name = icalproperty_get_first_parameter(property, ICAL_TZID_PARAMETER); name != nullptr) {
            zone = Lookup(icalparameter_get_tzid(name));
        }
        const std::size_t colon = line.rfind(':');
        bool read = colon != std::string::npos;
        for (std::size_t at = colon + 1; read && at <= line.size();) {
            const std::size_t comma = std::min(line.find(',', at), line.size());
            read = ReadDate(line.substr(at, comma - at), zone, adds, parts);
            at = comma + 1;
        }
        return read;
    }

    bool ReadDate(const std::string& text, const ZoneRules* zone, bool adds, RuleParts& parts) const {
        const std::size_t slash = text.find('/');
        Stamp stamp;
        if (!ReadStamp(text.substr(0, slash), stamp)) {
            return false;
        }
        const Seconds digits = stamp.Digits;
        if (!adds) {
            if (stamp.DateOnly) {
                parts.ExceptDays.push_back(DayOf(digits));
            } else {
                parts.ExceptDates.push_back(ToOwn(digits, stamp.Utc, zone));
            }
            return true;
        }
        RuleOccurrence occurrence;
        // A date alone recurs at the series' own time of day.
        occurrence.Start = stamp.DateOnly ? digits + TimeOfDay(parts.Start) : ToOwn(digits, stamp.Utc, zone);
        if (slash != std::string::npos) {
            const icalperiodtype period = icalperiodtype_from_string(text.c_str());
            if (!icaltime_is_null_time(period.end)) {
                occurrence.Length = SecondsFromIcal(period.end) - digits;
            } else {
                occurrence.Length = icaldurationtype_as_int(period.duration);
            }
            if (*occurrence.Length < 0) {
                return false;
            }
        }
        parts.Dates.push_back(occurrence);
        return true;
    }

    const ZoneRules* Own;
    const ZoneLookup& Lookup;
};

} // namespace

bool ReadRuleLines(std::string_view lines, const ZoneRules* own, const ZoneLookup& lookup, RuleParts& parts,
                   std::string& fault) {
    LineReader reader(own, lookup);
    std::size_t count = 0;
    for (std::size_t at = 0; at < lines.size();) {
        const std::size_t end = std::min(lines.find('\n', at), lines.size());
        std::string line(lines.substr(at, end - at));
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        at = end + 1;
        if (line.empty()) {
            continue;
        }
        if (++count > kMaxLines) {
            fault = "it has too many recurrence lines";
            return false;
        }
        if (!reader.Read(line, parts, fault)) {
            return false;
        }
    }
    if (parts.Rules.empty()) {
        parts.Dates.push_back({parts.Start, std::nullopt}); // a series of dates alone begins with its start
    }
    const auto byStart = [](const RuleOccurrence& left, const RuleOccurrence& right) {
        return left.Start < right.Start;
    };
    std::stable_sort(parts.Dates.begin(), parts.Dates.end(), byStart);
    std::sort(parts.ExceptDates.begin(), parts.ExceptDates.end());
    std::sort(parts.ExceptDays.begin(), parts.ExceptDays.end());
    return true;
}

std::int64_t CostOfRuleLines(std::string_view lines) {
    constexpr std::size_t kToBegin = 200;
    constexpr std::size_t kPerCharacter = 3; // of a rule
    constexpr std::size_t kPerStep = 4;      // characters of a list of dates
    std::size_t steps = kToBegin;
    for (std::size_t at = 0; at < lines.size();) {
        const std::size_t end = std::min(lines.find('\n', at), lines.size());
        steps += IsDateList(lines.substr(at, end - at)) ? (end - at) / kPerStep : (end - at) * kPerCharacter;
        at = end + 1;
    }
    return static_cast<std::int64_t>(steps);
}

std::string ShiftRuleTimes(std::string_view lines, Seconds shift) {
    constexpr std::size_t kDateDigits = 8;
    constexpr std::size_t kTokenSize = 15; // 20260503T090000
    std::string out;
    for (std::size_t at = 0; at < lines.size();) {
        const std::string_view token = lines.substr(at, kTokenSize);
        bool isTime = token.size() == kTokenSize && token[kDateDigits] == 'T';
        for (std::size_t index = 0; isTime && index < kTokenSize; ++index) {
            isTime = index == kDateDigits || (token[index] >= '0' && token[index] <= '9');
        }
        if (!isTime) {
            out.push_back(lines[at++]);
            continue;
        }
        const icaltimetype time = icaltime_from_string(std::string(token).c_str());
        const icaltimetype shifted = IcalFromSeconds(SecondsFromIcal(time) + shift);
        char text[32];
        std::snprintf(text, sizeof text, "%04d%02d%02dT%02d%02d%02d", shifted.year, shifted.month, shifted.day,
                      shifted.hour, shifted.minute, shifted.second);
        out += text;
        at += kTokenSize;
    }
    return out;
}

} // namespace tavo::rules

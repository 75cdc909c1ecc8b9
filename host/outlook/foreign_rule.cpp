// Foreign rules: read by libical, walked by libical, put together here.
#include "host/outlook/foreign_rule.h"

#include "host/outlook/ical_time.h"
#include "host/outlook/schema.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>

namespace tavo::outlook {

namespace {

constexpr std::size_t kMaxLines = 5000;
constexpr int kMaxWalk = 200000; // occurrences walked to find a counted rule's end
constexpr Seconds kFirstSpan = 400 * kSecondsPerDay;
constexpr Seconds kEndOfTime = (kLastStoredDay + 1) * kSecondsPerDay;

struct IteratorCloser {
    void operator()(icalrecur_iterator* iterator) const { icalrecur_iterator_free(iterator); }
};

struct PropertyCloser {
    void operator()(icalproperty* property) const { icalproperty_free(property); }
};

using PropertyPtr = std::unique_ptr<icalproperty, PropertyCloser>;

bool IsCounted(const icalrecurrencetype& rule) {
    return rule.count > 0;
}

bool IsEndless(const icalrecurrencetype& rule) {
    return !IsCounted(rule) && icaltime_is_null_time(rule.until);
}

// Walks one rule from a time on. `visit` returns false to stop.
template <class Visit> void WalkRule(const icalrecurrencetype& rule, Seconds start, Seconds from, Visit&& visit) {
    if (rule.freq == ICAL_HOURLY_RECURRENCE && from > start && !IsCounted(rule)) {
        // Beginning anywhere in its step gives the same hours; the iterator itself only skips whole days.
        const Seconds step = std::max<Seconds>(rule.interval, 1) * 3600;
        start += (from - start) / step * step;
    }
    const std::unique_ptr<icalrecur_iterator, IteratorCloser> iterator(
        icalrecur_iterator_new(rule, IcalFromSeconds(start)));
    if (iterator == nullptr) {
        return;
    }
    if (from > start && !IsCounted(rule) && rule.freq != ICAL_HOURLY_RECURRENCE) {
        icalrecur_iterator_set_start(iterator.get(), IcalFromSeconds(from));
    }
    for (;;) {
        const icaltimetype next = icalrecur_iterator_next(iterator.get());
        if (icaltime_is_null_time(next)) {
            return;
        }
        const Seconds time = SecondsFromIcal(next);
        if (time >= kEndOfTime || !visit(time)) {
            return;
        }
    }
}

} // namespace

struct ForeignRule::Parts {
    Seconds Start = 0;
    std::vector<icalrecurrencetype> Rules;
    std::vector<icalrecurrencetype> ExceptRules;
    std::vector<RuleOccurrence> Dates; // sorted
    std::vector<Seconds> ExceptDates;  // sorted
    std::vector<DayNumber> ExceptDays; // sorted: whole days that an EXDATE without a time takes out
};

namespace {

// Reads the lines of one series into the parts of its rule.
class LineReader {
  public:
    LineReader(const ZoneRules* own, const ZoneLookup& lookup) : Own(own), Lookup(lookup) {}

    template <class PartsType> bool Read(const std::string& line, PartsType& parts, std::string& fault) {
        const PropertyPtr property(icalproperty_new_from_string(line.c_str()));
        const icalproperty_kind kind = property == nullptr ? ICAL_NO_PROPERTY : icalproperty_isa(property.get());
        bool read = false;
        if (kind == ICAL_RRULE_PROPERTY || kind == ICAL_EXRULE_PROPERTY) {
            icalrecurrencetype rule = kind == ICAL_RRULE_PROPERTY ? icalproperty_get_rrule(property.get())
                                                                  : icalproperty_get_exrule(property.get());
            read = AdjustRule(rule, fault);
            (kind == ICAL_RRULE_PROPERTY ? parts.Rules : parts.ExceptRules).push_back(rule);
        } else if (kind == ICAL_RDATE_PROPERTY || kind == ICAL_EXDATE_PROPERTY) {
            read = ReadDates(property.get(), line, kind == ICAL_RDATE_PROPERTY, parts);
        }
        if (!read && fault.empty()) {
            fault = "the recurrence line cannot be read: " + line.substr(0, 60);
        }
        return read;
    }

  private:
    bool AdjustRule(icalrecurrencetype& rule, std::string& fault) const {
        if (rule.freq == ICAL_NO_RECURRENCE) {
            return false;
        }
        if (rule.freq == ICAL_SECONDLY_RECURRENCE || rule.freq == ICAL_MINUTELY_RECURRENCE) {
            fault = "it recurs more often than once an hour";
            return false;
        }
        if (!icaltime_is_null_time(rule.until)) {
            // The iterator compares digits: give it the digits of the series' own clock.
            Seconds until = SecondsFromIcal(rule.until);
            if (rule.until.is_date != 0) {
                until += kSecondsPerDay - 1;
            } else if (icaltime_is_utc(rule.until) != 0 && Own != nullptr) {
                until = Own->ToLocal(until);
            }
            rule.until = IcalFromSeconds(until);
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

    template <class PartsType>
    bool ReadDates(icalproperty* property, const std::string& line, bool adds, PartsType& parts) const {
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

    template <class PartsType>
    bool ReadDate(const std::string& text, const ZoneRules* zone, bool adds, PartsType& parts) const {
        const std::size_t slash = text.find('/');
        const icaltimetype time = icaltime_from_string(text.substr(0, slash).c_str());
        if (icaltime_is_null_time(time) || icaltime_is_valid_time(time) == 0) {
            return false;
        }
        const Seconds digits = SecondsFromIcal(time);
        if (!adds) {
            if (time.is_date != 0) {
                parts.ExceptDays.push_back(DayOf(digits));
            } else {
                parts.ExceptDates.push_back(ToOwn(digits, icaltime_is_utc(time) != 0, zone));
            }
            return true;
        }
        RuleOccurrence occurrence;
        // A date alone recurs at the series' own time of day.
        occurrence.Start =
            time.is_date != 0 ? digits + TimeOfDay(parts.Start) : ToOwn(digits, icaltime_is_utc(time) != 0, zone);
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

ForeignRule::ForeignRule(std::unique_ptr<Parts> parts) : Rule(std::move(parts)) {}

ForeignRule::~ForeignRule() = default;

std::unique_ptr<ForeignRule> ForeignRule::Parse(std::string_view lines, Seconds start, const ZoneRules* own,
                                                const ZoneLookup& lookup, std::string& fault) {
    auto parts = std::make_unique<Parts>();
    parts->Start = start;
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
            return nullptr;
        }
        if (!reader.Read(line, *parts, fault)) {
            return nullptr;
        }
    }
    if (parts->Rules.empty()) {
        parts->Dates.push_back({start, std::nullopt}); // a series of dates alone begins with its start
    }
    const auto byStart = [](const RuleOccurrence& left, const RuleOccurrence& right) {
        return left.Start < right.Start;
    };
    std::stable_sort(parts->Dates.begin(), parts->Dates.end(), byStart);
    std::sort(parts->ExceptDates.begin(), parts->ExceptDates.end());
    std::sort(parts->ExceptDays.begin(), parts->ExceptDays.end());
    return std::unique_ptr<ForeignRule>(new ForeignRule(std::move(parts)));
}

void ForeignRule::Expand(Seconds from, Seconds to, std::vector<RuleOccurrence>& occurrences) const {
    std::vector<RuleOccurrence> found;
    for (const RuleOccurrence& date : Rule->Dates) {
        if (date.Start >= from && date.Start <= to) {
            found.push_back(date);
        }
    }
    for (const icalrecurrencetype& rule : Rule->Rules) {
        WalkRule(rule, Rule->Start, from, [&](Seconds time) {
            if (time >= from && time <= to) {
                found.push_back({time, std::nullopt});
            }
            return time <= to;
        });
    }
    std::vector<Seconds> except = Rule->ExceptDates;
    for (const icalrecurrencetype& rule : Rule->ExceptRules) {
        WalkRule(rule, Rule->Start, from, [&](Seconds time) {
            except.push_back(time);
            return time <= to;
        });
    }
    std::sort(except.begin(), except.end());
    // Of equal starts the one from a period of its own length stays.
    std::stable_sort(found.begin(), found.end(), [](const RuleOccurrence& left, const RuleOccurrence& right) {
        return left.Start != right.Start ? left.Start < right.Start
                                         : left.Length.has_value() > right.Length.has_value();
    });
    const std::size_t before = occurrences.size();
    for (const RuleOccurrence& occurrence : found) {
        const bool twice = occurrences.size() > before && occurrences.back().Start == occurrence.Start;
        const bool excepted =
            std::binary_search(except.begin(), except.end(), occurrence.Start) ||
            std::binary_search(Rule->ExceptDays.begin(), Rule->ExceptDays.end(), DayOf(occurrence.Start));
        if (!twice && !excepted) {
            occurrences.push_back(occurrence);
        }
    }
}

std::optional<RuleOccurrence> ForeignRule::FindFirst(const std::function<bool(Seconds)>& isExcepted) const {
    Seconds from = Rule->Dates.empty() ? Rule->Start : std::min(Rule->Start, Rule->Dates.front().Start);
    for (Seconds span = kFirstSpan; from < kEndOfTime; span *= 8) {
        const Seconds to = std::min(from + span, kEndOfTime);
        std::vector<RuleOccurrence> found;
        Expand(from, to, found);
        for (const RuleOccurrence& occurrence : found) {
            if (!isExcepted(occurrence.Start)) {
                return occurrence;
            }
        }
        from = to + 1;
    }
    return std::nullopt;
}

Seconds ForeignRule::FindLastStart() const {
    Seconds last = Rule->Dates.empty() ? Rule->Start : std::max(Rule->Start, Rule->Dates.back().Start);
    for (const icalrecurrencetype& rule : Rule->Rules) {
        if (IsEndless(rule)) {
            return kForever;
        }
        if (!IsCounted(rule)) {
            last = std::max(last, SecondsFromIcal(rule.until));
            continue;
        }
        int walked = 0;
        WalkRule(rule, Rule->Start, Rule->Start, [&](Seconds time) {
            last = std::max(last, time);
            return ++walked < kMaxWalk;
        });
        if (walked >= kMaxWalk) {
            return kForever;
        }
    }
    return last;
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

} // namespace tavo::outlook

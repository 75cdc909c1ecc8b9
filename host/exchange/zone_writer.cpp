// Each change from one offset to another is an observance: what comes every year to the end by a rule, the rest by
// dates.
#include "host/exchange/zone_writer.h"

#include "host/exchange/calendar_lines.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <utility>
#include <vector>

namespace tavo::exchange {
namespace {

using rules::Seconds;

constexpr std::size_t kFewestYears = 3; // that make a rule
constexpr int kDaysPerWeek = 7;

std::string WriteOffset(std::int32_t offset) {
    const std::int32_t size = std::abs(offset);
    char text[16];
    std::snprintf(text, sizeof text, size % 60 == 0 ? "%c%02d%02d" : "%c%02d%02d%02d", offset < 0 ? '-' : '+',
                  size / 3600, size / 60 % 60, size % 60);
    return text;
}

// What a yearly rule says of a day.
struct YearDay {
    int Year = 0;
    int Month = 0;
    int Weekday = 0;
    int FromStart = 0; // the how manieth of its weekday in the month
    bool IsLast = false;
    Seconds Time = 0;
};

YearDay Describe(Seconds onset) {
    const rules::DayNumber day = rules::DayOf(onset);
    const rules::CivilDate date = rules::CivilFromDay(day);
    return {date.Year,
            date.Month,
            rules::WeekdayOf(day),
            (date.Day - 1) / kDaysPerWeek + 1,
            date.Day + kDaysPerWeek > rules::DaysInMonth(date.Year, date.Month),
            rules::TimeOfDay(onset)};
}

// The onsets from `First` to the last, one a year up to the end of what is known, by one rule.
struct YearlyRun {
    std::size_t First = 0;
    int Ordinal = 0; // of its weekday, -1 the last; 0: there is no run
};

YearlyRun FindRun(const std::vector<Seconds>& onsets) {
    const YearDay last = Describe(onsets.back());
    if (last.Year != rules::kZoneHorizonYear) {
        return {};
    }
    YearlyRun best;
    for (const int ordinal : {-1, last.FromStart}) {
        std::size_t first = onsets.size();
        int year = last.Year;
        while (first > 0) {
            const YearDay day = Describe(onsets[first - 1]);
            const bool fits = day.Year == year && day.Month == last.Month && day.Weekday == last.Weekday &&
                              day.Time == last.Time && (ordinal == -1 ? day.IsLast : day.FromStart == ordinal);
            if (!fits) {
                break;
            }
            --first;
            --year;
        }
        if (onsets.size() - first >= kFewestYears && (best.Ordinal == 0 || first < best.First)) {
            best = {first, ordinal};
        }
    }
    return best;
}

class ZoneText {
  public:
    void Line(std::string_view line) { AppendFolded(line, Text); }

    void AddObservance(std::int32_t from, std::int32_t to, const std::vector<Seconds>& onsets, std::string_view rule) {
        const std::string_view kind = to > from ? "DAYLIGHT" : "STANDARD";
        Line("BEGIN:" + std::string(kind));
        Line("DTSTART:" + WriteDateTime(onsets.front()));
        Line("TZOFFSETFROM:" + WriteOffset(from));
        Line("TZOFFSETTO:" + WriteOffset(to));
        if (!rule.empty()) {
            Line(rule);
        }
        for (std::size_t index = rule.empty() ? 1 : onsets.size(); index < onsets.size(); ++index) {
            Line("RDATE:" + WriteDateTime(onsets[index]));
        }
        Line("END:" + std::string(kind));
    }

    std::string Text;
};

std::string WriteRun(const std::vector<Seconds>& onsets, const YearlyRun& run) {
    constexpr std::array<const char*, 7> names = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};
    const YearDay day = Describe(onsets.back());
    return "RRULE:FREQ=YEARLY;BYMONTH=" + std::to_string(day.Month) + ";BYDAY=" + std::to_string(run.Ordinal) +
           names[static_cast<std::size_t>(day.Weekday)];
}

} // namespace

std::string WriteZone(std::string_view name, const rules::ZoneRules& rules) {
    std::map<std::pair<std::int32_t, std::int32_t>, std::vector<Seconds>> changes; // by offsets, on the clock of before
    std::int32_t offset = rules.GetFirstOffset();
    for (const rules::ZoneTransition& transition : rules.GetTransitions()) {
        if (transition.Offset != offset) {
            changes[{offset, transition.Offset}].push_back(transition.Utc + offset);
        }
        offset = transition.Offset;
    }
    ZoneText zone;
    zone.Line("BEGIN:VTIMEZONE");
    zone.Line("TZID:" + std::string(name));
    if (changes.empty()) {
        zone.AddObservance(offset, offset, {rules::MakeTime(1970, 1, 1)}, "");
    }
    for (const auto& [offsets, onsets] : changes) {
        const YearlyRun run = FindRun(onsets);
        const std::size_t dates = run.Ordinal == 0 ? onsets.size() : run.First;
        const auto middle = onsets.begin() + static_cast<std::ptrdiff_t>(dates);
        if (dates > 0) {
            zone.AddObservance(offsets.first, offsets.second, {onsets.begin(), middle}, "");
        }
        if (run.Ordinal != 0) {
            zone.AddObservance(offsets.first, offsets.second, {middle, onsets.end()}, WriteRun(onsets, run));
        }
    }
    zone.Line("END:VTIMEZONE");
    return std::move(zone.Text);
}

} // namespace tavo::exchange

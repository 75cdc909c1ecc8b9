// Looking up offsets.
#include "host/rules/zone_rules.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tavo::rules {

namespace {

constexpr int kCalendarCycle = 28; // years after which dates and weekdays coincide, within a century's leap rule

// Maps a time beyond the horizon to one of the same date and weekday within it.
Seconds FoldIntoHorizon(Seconds time) {
    const DayNumber day = DayOf(time);
    const CivilDate date = CivilFromDay(day);
    if (date.Year <= kZoneHorizonYear) {
        return time;
    }
    const DayNumber newYear = DayFromCivil(date.Year, 1, 1);
    const int february = DaysInMonth(date.Year, 2);
    for (int year = kZoneHorizonYear - kCalendarCycle + 1; year <= kZoneHorizonYear; ++year) {
        const DayNumber candidate = DayFromCivil(year, 1, 1);
        if (WeekdayOf(candidate) == WeekdayOf(newYear) && DaysInMonth(year, 2) == february) {
            return time - MidnightOf(newYear - candidate);
        }
    }
    return time;
}

} // namespace

ZoneRules::ZoneRules(std::int32_t firstOffset, std::vector<ZoneTransition> transitions)
    : FirstOffset(firstOffset), Transitions(std::move(transitions)) {
    std::stable_sort(Transitions.begin(), Transitions.end(),
                     [](const ZoneTransition& left, const ZoneTransition& right) { return left.Utc < right.Utc; });
}

std::int32_t ZoneRules::OffsetAt(Seconds utc) const {
    if (!Transitions.empty() && utc > Transitions.back().Utc) {
        utc = FoldIntoHorizon(utc);
    }
    const auto after = std::upper_bound(Transitions.begin(), Transitions.end(), utc,
                                        [](Seconds time, const ZoneTransition& step) { return time < step.Utc; });
    return after == Transitions.begin() ? FirstOffset : std::prev(after)->Offset;
}

Seconds ZoneRules::ToUtc(Seconds local) const {
    const std::int32_t before = OffsetAt(local - kSecondsPerDay);
    const std::int32_t after = OffsetAt(local + kSecondsPerDay);
    const Seconds early = local - before;
    if (before == after || OffsetAt(early) == before) {
        return early;
    }
    const Seconds late = local - after;
    return OffsetAt(late) == after ? late : early;
}

} // namespace tavo::rules

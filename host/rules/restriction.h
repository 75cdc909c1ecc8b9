// The condition of a restricted collection: bracketed properties compared with values, joined by AND and OR.
#pragma once

#include "host/rules/wall_time.h"
#include "platform/status.h"

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::rules {

enum class Property {
    Start,
    End,
    Subject,
    Location,
    Categories,
    Body,
    ReminderSoundFile,
    Oid,
    Duration,
    AllDayEvent,
    BusyStatus,
    Sensitivity,
    ReminderSet,
    ReminderMinutesBeforeStart,
    ReminderOptions,
    IsRecurring,
};

enum class Comparison { Less, LessOrEqual, Greater, GreaterOrEqual, Equal, NotEqual };

constexpr Seconds kLowestTime = std::numeric_limits<Seconds>::min() / 4;
constexpr Seconds kHighestTime = std::numeric_limits<Seconds>::max() / 4;

// One comparison. Of dates and numbers it is put as a closed range, or its outside.
struct Condition {
    Property Subject = Property::Start;
    std::int64_t Low = 0;
    std::int64_t High = 0;
    bool Outside = false;
    bool WholeDays = false;              // an end is compared by the day it counts for
    Comparison Text = Comparison::Equal; // of texts
    std::u16string Value;
};

// All of these must hold.
using Conjunction = std::vector<Condition>;

// One of the alternatives must hold. No alternative at all: nothing is asked, everything matches.
struct Restriction {
    std::vector<Conjunction> Alternatives;

    // Start times outside these never match. The bounds are wide rather than exact.
    Seconds LowestStart() const;
    Seconds HighestStart() const;
    // Ends before this never match.
    Seconds LowestEnd() const;

    bool BoundsStartFromAbove() const { return HighestStart() < kHighestTime; }

    // Only start and end are compared: an occurrence can be judged without its item.
    bool ComparesTimesOnly() const;
};

// InvalidArgument for anything that is not a restriction; `restriction` is then unchanged.
Status ParseRestriction(std::u16string_view text, Restriction& restriction);

// What matches both. TooLarge when that would grow beyond reason.
Status CombineRestrictions(const Restriction& left, const Restriction& right, Restriction& both);

// An end as it is compared: the last second of the day before, when it is a midnight that counts for that day.
constexpr Seconds ComparedEnd(Seconds start, Seconds end) {
    return end > start && end % kSecondsPerDay == 0 && start % kSecondsPerDay == 0 ? end - 1 : end;
}

inline bool IsInRange(const Condition& condition, std::int64_t value) {
    return (value >= condition.Low && value <= condition.High) != condition.Outside;
}

} // namespace tavo::rules

// One time zone's offsets from UTC over all time.
#pragma once

#include "host/rules/wall_time.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::rules {

// From `Utc` on the zone's clock is ahead of UTC by `Offset` seconds.
struct ZoneTransition {
    Seconds Utc = 0;
    std::int32_t Offset = 0;
};

// Where a rule is endless, transitions are worked out up to the end of this year; a later year behaves like the year
// of the same calendar among the last 28.
constexpr int kZoneHorizonYear = 2137;

// No clock is further from universal time, or as far.
constexpr Seconds kLargestZoneOffset = kSecondsPerDay;

class ZoneRules {
  public:
    // The transitions need not be sorted. `firstOffset` holds before the first of them.
    ZoneRules(std::int32_t firstOffset, std::vector<ZoneTransition> transitions);

    Seconds ToLocal(Seconds utc) const { return utc + OffsetAt(utc); }

    // A local time that comes twice is the first of the two; one that is skipped is read with the offset before the
    // gap.
    Seconds ToUtc(Seconds local) const;

    // What it was made of, in order.
    std::int32_t GetFirstOffset() const { return FirstOffset; }

    const std::vector<ZoneTransition>& GetTransitions() const { return Transitions; }

  private:
    std::int32_t OffsetAt(Seconds utc) const;

    std::int32_t FirstOffset;
    std::vector<ZoneTransition> Transitions;
};

// From the bytes of a compiled time zone file; null when they are not one.
std::unique_ptr<ZoneRules> ParseZoneFile(std::string_view bytes);

// From the text of a VTIMEZONE component; null when it is not one, or none that a clock could follow: `fault` is then a
// phrase for people, as it follows "the time zone".
std::unique_ptr<ZoneRules> ParseZoneComponent(const std::string& text, std::string& fault);

} // namespace tavo::rules

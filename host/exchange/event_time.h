// The times of an event: on whose clock they are, and whether they are dates only.
#pragma once

#include "host/exchange/event_lines.h"
#include "host/exchange/zone_table.h"

#include <optional>
#include <string>
#include <string_view>

namespace tavo::exchange {

struct EventTime {
    rules::Seconds Clock = 0; // on the zone's clock; of a date its midnight
    bool DateOnly = false;
    const Zone* In = nullptr; // null: floating
};

// How the reading of an entry ended: an entry that the calendar cannot hold is refused by itself, one that is
// against the format breaks its file.
enum class Reading { Good, Refused, Broken };

// Reads a value of the line, of which it may have several. Not Good: `reason` says why.
Reading ReadTime(const rules::ContentLine& line, std::string_view value, ZoneTable& zones, EventTime& time,
                 std::string& reason);

// Reads what DTEND or DURATION say; DTEND moves to the start's zone, and of whole days the end is the midnight that the
// store wants.
Reading ReadEnd(const LineList& event, const EventTime& start, ZoneTable& zones, EventTime& end, std::string& reason);

// The same moment on another clock. A floating time, or a floating target, keeps the clock's reading.
rules::Seconds MoveToZone(const EventTime& time, const Zone* zone);

} // namespace tavo::exchange

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

// How the reading of an entry ended. Refused: the calendar cannot hold it. Broken: it is against the format, and
// without what cannot be read there is no entry.
enum class Reading { Good, Refused, Broken };

// What the reading of an entry needs besides its lines.
struct EntryContext {
    const CalendarPiece& Piece;
    ZoneTable& Zones;
    FaultTeller& Faults;
};

// Reads a value of the line, of which it may have several. Not Good: `reason` says why.
Reading ReadTime(const rules::ContentLine& line, std::string_view value, const EntryContext& context, EventTime& time,
                 std::string& reason);

// Reads what DTEND or DURATION say; DTEND moves to the start's zone, and of whole days the end is the midnight that the
// store wants. An end that is none, or before the start, is the start.
Reading ReadEnd(const LineList& event, const EventTime& start, const EntryContext& context, EventTime& end,
                std::string& reason);

// The same moment on another clock. A floating time, or a floating target, keeps the clock's reading.
rules::Seconds MoveToZone(const EventTime& time, const Zone* zone);

} // namespace tavo::exchange

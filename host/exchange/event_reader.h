// Turns one event of a calendar file into what the store keeps.
#pragma once

#include "host/exchange/event_time.h"

#include <optional>

namespace tavo::exchange {

// One VEVENT, read.
struct EventEntry {
    rules::StoredItem Item;     // without an OID
    std::vector<TagList> Kinds; // that an export of ours gives it
    EventTime Start;
    bool Cancelled = false;
    // Of a single occurrence of a series: when the series' rule says it starts.
    std::optional<EventTime> Occurrence;
    int Line = 0;                  // where it began, where that matters
    bool ChangesFollowing = false; // and all later ones (RANGE)
    std::string OccurrenceCarried; // what its series keeps of it as it came
    std::string OccurrenceText;    // that time as it stands in the file
};

class EventReader {
  public:
    explicit EventReader(ZoneTable& zones) : Zones(zones) {}

    // Not Good: `fault` names the line and says why. What cannot be read and is not needed is taken out of the piece.
    Reading Read(CalendarPiece& piece, FaultTeller& faults, EventEntry& entry, FileFault& fault);

  private:
    ZoneTable& Zones;
};

// The moved or cancelled occurrence that an entry describes, on the clock of its series.
rules::StoredException MakeException(const EventEntry& entry, const EventTime& seriesStart,
                                     const rules::StoredItem& series);

// The UID of a piece: its own, or one made of its contents, which is the same for the same contents.
std::string FindUid(const CalendarPiece& piece);

} // namespace tavo::exchange

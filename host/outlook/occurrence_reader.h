// Lists occurrences of plain items and series in a span of days, fast and without item objects.
#pragma once

#include "host/outlook/store.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::outlook {

// What an item is by the store's mirror of the category lists: the first list it stands in.
enum class MirroredKind { Alarm = 0, Holiday = 1, Anniversary = 2, Appointment = 3 };

struct ListedOccurrence {
    Seconds Start = 0; // wall clock of the device
    Seconds End = 0;
    Oid Item = 0;
    bool Recurring = false;
    bool AllDay = false;
    MirroredKind Kind = MirroredKind::Appointment;
    std::string_view Subject;  // UTF-8; valid during the visit only
    std::string_view Location; // likewise
};

class OccurrenceReader {
  public:
    explicit OccurrenceReader(StorePtr store);

    // Every occurrence that touches one of the days first..last, in order of start, then OID. An end at midnight
    // touches the day before it, not its own, when the start is midnight of an earlier day.
    Status ListDays(DayNumber first, DayNumber last, const std::function<void(const ListedOccurrence&)>& visit);

    // Every occurrence with from <= start <= to, in the same order.
    Status ListStarts(Seconds from, Seconds to, const std::function<void(const ListedOccurrence&)>& visit);

    // The series that the last list leaves out: they have a fault, or took too long beside all others.
    const std::vector<Oid>& GetLeftOut() const { return LeftOut; }

    // "" for an item that is gone.
    std::string ReadSubject(Oid item);

  private:
    StorePtr Source;
    std::vector<Oid> LeftOut;
};

} // namespace tavo::outlook

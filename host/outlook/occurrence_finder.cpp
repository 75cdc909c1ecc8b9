// Looks through the lines of a day.
#include "host/outlook/occurrence_finder.h"

#include "host/outlook/appointment.h"
#include "host/outlook/entry_reader.h"

#include <algorithm>

namespace tavo::outlook {

Status FindOccurrence(const StorePtr& store, Oid oid, DayNumber day, ComPtr<IAppointment>& occurrence) {
    StoredItem item;
    if (const Status status = store->ReadItem(oid, item); Failed(status)) {
        return status;
    }
    if (!item.IsRecurring()) {
        return Status::InvalidArgument;
    }
    const ComPtr<Session> session = Make<Session>(store);
    EntrySpan span;
    span.LowestStart = MidnightOf(day);
    span.HighestStart = MidnightOf(day + 1) - 1;
    span.LowestEnd = span.LowestStart;
    span.Series = SeriesAs::Occurrences;
    EntryReader reader(session->Core, span);
    std::vector<Entry> entries;
    while (!reader.AtEnd()) {
        entries.clear();
        if (const Status status = reader.ReadPiece(entries); Failed(status)) {
            return status;
        }
        const auto found = std::find_if(entries.begin(), entries.end(), [oid, day](const Entry& entry) {
            return entry.Item == oid && rules::DayOf(entry.Start) == day;
        });
        if (found != entries.end()) {
            occurrence = As<IAppointment>(Make<Appointment>(*session, *found));
            return Status::Ok;
        }
    }
    return Status::NotFound;
}

} // namespace tavo::outlook

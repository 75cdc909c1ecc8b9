// Walking, restricting and shrinking a list of appointments.
#include "host/outlook/item_collection.h"

#include "host/outlook/appointment.h"
#include "host/outlook/entry_filter.h"

#include <algorithm>
#include <limits>

namespace tavo::outlook {

namespace {

// More lines than anybody walks: a listing over all time of endless series ends here rather than with the memory.
constexpr std::size_t kMaxEntries = 20'000'000;

} // namespace

ItemCollection::ItemCollection(Session& session, Restriction restriction) : Filter(std::move(restriction)) {
    session.AddRef();
    Owner = ComPtr<Session>::Adopt(&session);
    Owner->Core.AddListener(this);
    Entries = Owner->Core.LendRoom();
    Restart(SeriesAs::Themselves);
}

ItemCollection::~ItemCollection() {
    Owner->Core.RemoveListener(this);
    Owner->Core.GiveRoomBack(std::move(Entries));
}

void ItemCollection::Restart(SeriesAs series) {
    Series = series;
    Entries.clear();
    Head = 0;
    EntrySpan span;
    span.LowestStart = Filter.LowestStart();
    span.HighestStart = Filter.HighestStart();
    span.LowestEnd = Filter.LowestEnd();
    span.Series = series;
    Reader.emplace(Owner->Core, span);
}

Status ItemCollection::FilterSince(std::size_t since) {
    return Filter.Alternatives.empty() ? Status::Ok : EntryFilter(Owner->Core, Filter).Apply(Entries, since);
}

Status ItemCollection::ReadUpTo(std::size_t index) {
    while (Size() <= index && !Reader->AtEnd()) {
        const std::size_t since = Entries.size();
        Status status = Reader->ReadPiece(Entries);
        if (Succeeded(status)) {
            status = FilterSince(since);
        }
        if (Succeeded(status) && Entries.size() > kMaxEntries) {
            status = Status::OutOfMemory;
        }
        if (Failed(status)) {
            Restart(Series);
            return status;
        }
    }
    return Status::Ok;
}

Status ItemCollection::get_Count(std::int32_t& count) {
    if (Filter.Alternatives.empty() && Series == SeriesAs::Themselves && !Reader->AtEnd()) {
        // All there is: no need to read it to count it.
        Query query(Owner->Core.Db, "SELECT (SELECT count(*) FROM plain) + (SELECT count(*) FROM series)");
        if (query.Next()) {
            count = query.Small(0);
        }
        return query.Result();
    }
    const Status status = ReadUpTo(std::numeric_limits<std::int32_t>::max());
    if (Succeeded(status)) {
        count = static_cast<std::int32_t>(Size());
    }
    return status;
}

Status ItemCollection::Item(std::int32_t index, ComPtr<IAppointment>& item) {
    if (index < 1) {
        return Status::InvalidArgument;
    }
    const auto wanted = static_cast<std::size_t>(index) - 1;
    if (wanted >= Size()) {
        if (const Status status = ReadUpTo(wanted); Failed(status)) {
            return status;
        }
        if (wanted >= Size()) {
            return Status::InvalidArgument;
        }
    }
    const Entry& entry = Entries[Head + wanted];
    if (LastGiven && item.Get() == LastGiven.Get() && LastGiven->Holders() == 2) {
        LastGiven->Become(entry); // a walk through a month gives thousands of them back
        return Status::Ok;
    }
    LastGiven = Make<Appointment>(*Owner, entry);
    item = As<IAppointment>(LastGiven);
    return Status::Ok;
}

Status ItemCollection::HasMatch(bool& match) {
    Query series(Owner->Core.Db, "SELECT 1 FROM series LIMIT 1");
    match = series.Next();
    if (match || Failed(series.Result())) {
        return series.Result();
    }
    const Status status = ReadUpTo(0);
    match = Size() > 0;
    return status;
}

Status ItemCollection::Restrict(std::u16string_view restriction, ComPtr<IPOutlookItemCollection>& items) {
    items.Reset();
    Restriction asked;
    Restriction both;
    Status status = ParseRestriction(restriction, asked);
    if (Succeeded(status)) {
        status = CombineRestrictions(Filter, asked, both);
    }
    if (Failed(status)) {
        return status;
    }
    auto restricted = Make<ItemCollection>(*Owner, std::move(both));
    bool match = false;
    status = restricted->HasMatch(match);
    if (Succeeded(status) && match) {
        items = As<IPOutlookItemCollection>(std::move(restricted));
    }
    return status;
}

Status ItemCollection::put_IncludeRecurrences(bool include) {
    if (include && !Filter.BoundsStartFromAbove()) {
        return Status::InvalidArgument; // endless series would never come to an end
    }
    const SeriesAs series = include ? SeriesAs::Occurrences : SeriesAs::Themselves;
    if (series != Series) {
        Restart(series);
    }
    return Status::Ok;
}

void ItemCollection::Remove(std::size_t index) {
    const auto begin = Entries.begin() + static_cast<std::ptrdiff_t>(Head);
    const auto place = begin + static_cast<std::ptrdiff_t>(index);
    if (index < Size() / 2) {
        // Deleting from the front, one after the other, must not move all the rest each time.
        std::move_backward(begin, place, place + 1);
        ++Head;
    } else {
        Entries.erase(place);
    }
}

void ItemCollection::OnItemDeleted(Oid oid) {
    for (std::size_t index = 0; index < Size();) {
        if (Entries[Head + index].Item == oid) {
            Remove(index);
            if (Series == SeriesAs::Themselves) {
                return; // it was the only one
            }
        } else {
            ++index;
        }
    }
}

void ItemCollection::OnOccurrenceCancelled(Oid oid, Seconds original) {
    if (Series == SeriesAs::Themselves) {
        return;
    }
    for (std::size_t index = 0; index < Size(); ++index) {
        const Entry& entry = Entries[Head + index];
        if (entry.Item == oid && entry.Original == original) {
            Remove(index);
            return;
        }
    }
}

} // namespace tavo::outlook

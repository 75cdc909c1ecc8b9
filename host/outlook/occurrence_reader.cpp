// Listings straight from the narrow tables, with the subject of each item read once.
#include "host/outlook/occurrence_reader.h"

#include "host/outlook/entry_filter.h"
#include "host/outlook/entry_reader.h"
#include "host/outlook/item_rows.h"
#include "host/outlook/store_core.h"

#include <algorithm>
#include <string>
#include <unordered_map>

namespace tavo::outlook {

namespace {

constexpr std::size_t kManyEntries = 1000;

// What a line shows of its item; of a series it is kept for the other occurrences.
struct ItemFacts {
    std::string Subject;
    std::string Location;
    bool AllDay = false;
    MirroredKind Kind = MirroredKind::Appointment;
};

class Lister {
  public:
    Lister(StoreCore& core, const std::function<void(const ListedOccurrence&)>& visit, std::vector<Oid>& leftOut)
        : Core(core), Visit(visit), LeftOut(leftOut) {}

    Status Run(const EntrySpan& span, const Restriction& restriction) {
        EntryReader reader(Core, span);
        EntryFilter filter(Core, restriction);
        std::vector<Entry> entries;
        while (!reader.AtEnd()) {
            entries.clear();
            Status status = reader.ReadPiece(entries);
            LeftOut = reader.GetLeftOut();
            if (Succeeded(status)) {
                status = filter.Apply(entries, 0);
            }
            if (Succeeded(status) && entries.size() > kManyEntries && !TagsKnown) {
                status = ReadTags();
            }
            for (const Entry& entry : entries) {
                if (Succeeded(status)) {
                    status = Show(entry);
                }
            }
            if (Failed(status)) {
                return status;
            }
        }
        return Status::Ok;
    }

  private:
    Status Show(const Entry& entry) {
        if (entry.Kind == EntryKind::Plain) {
            ItemFacts facts;
            const Status status = ReadFacts(entry.Item, facts);
            return status == Status::Ok ? Tell(entry, facts) : status;
        }
        auto known = Series.find(entry.Item);
        if (known == Series.end()) {
            ItemFacts facts;
            if (const Status status = ReadFacts(entry.Item, facts); status != Status::Ok) {
                return status;
            }
            known = Series.emplace(entry.Item, std::move(facts)).first;
        }
        if (entry.Kind != EntryKind::Moved) {
            return Tell(entry, known->second);
        }
        ItemFacts facts = known->second;
        Query query(Core.Db, "SELECT subject, location FROM exception WHERE oid = ? AND original = ?");
        if (query.Bind(entry.Item).Bind(entry.Original).Next()) {
            facts.Subject = query.IsNull(0) ? facts.Subject : query.Text(0);
            facts.Location = query.IsNull(1) ? facts.Location : query.Text(1);
        }
        return Failed(query.Result()) ? query.Result() : Tell(entry, facts);
    }

    Status Tell(const Entry& entry, const ItemFacts& facts) {
        ListedOccurrence line;
        line.Start = entry.Start;
        line.End = entry.End();
        line.Item = entry.Item;
        line.Recurring = entry.Kind != EntryKind::Plain;
        line.AllDay = facts.AllDay;
        line.Kind = facts.Kind;
        line.Subject = facts.Subject;
        line.Location = facts.Location;
        Visit(line);
        return Status::Ok;
    }

    // False when another process deleted the item in between: no line for it.
    Status ReadFacts(Oid oid, ItemFacts& facts) {
        Query query(Core.Db, "SELECT subject, flags, location FROM item WHERE oid = ?");
        if (!query.Bind(oid).Next()) {
            return Failed(query.Result()) ? query.Result() : Status::False;
        }
        facts.Subject = query.Text(0);
        facts.Location = query.Text(2);
        facts.AllDay = (query.Integer(1) & kFlagAllDay) != 0;
        return TagsKnown ? FindTag(oid, facts) : ReadTag(oid, facts);
    }

    Status ReadTag(Oid oid, ItemFacts& facts) {
        Query query(Core.Db, "SELECT min(list) FROM tag WHERE oid = ?");
        if (query.Bind(oid).Next() && !query.IsNull(0)) {
            facts.Kind = static_cast<MirroredKind>(query.Small(0));
        }
        return query.Result();
    }

    Status FindTag(Oid oid, ItemFacts& facts) const {
        if (const auto tag = Tags.find(oid); tag != Tags.end()) {
            facts.Kind = tag->second;
        }
        return Status::Ok;
    }

    // For a long list: all tags at once cost less than a search for each item.
    Status ReadTags() {
        Query query(Core.Db, "SELECT oid, list FROM tag ORDER BY list, place");
        while (query.Next()) {
            Tags.emplace(query.Small(0), static_cast<MirroredKind>(query.Small(1))); // the first list counts
        }
        TagsKnown = Succeeded(query.Result());
        return query.Result();
    }

    StoreCore& Core;
    const std::function<void(const ListedOccurrence&)>& Visit;
    std::vector<Oid>& LeftOut;
    std::unordered_map<Oid, ItemFacts> Series;
    std::unordered_map<Oid, MirroredKind> Tags;
    bool TagsKnown = false;
};

Status List(StoreCore& core, const Restriction& restriction, const std::function<void(const ListedOccurrence&)>& visit,
            std::vector<Oid>& leftOut) {
    EntrySpan span;
    span.LowestStart = restriction.LowestStart();
    span.HighestStart = restriction.HighestStart();
    span.LowestEnd = restriction.LowestEnd();
    span.Series = SeriesAs::Occurrences;
    leftOut.clear();
    // One look at the store for the whole list: else each of thousands of rows would take and give back the file's
    // lock.
    Status status = core.BeginReading();
    if (Succeeded(status)) {
        status = Lister(core, visit, leftOut).Run(span, restriction);
        static_cast<void>(core.EndReading()); // nothing was written that could be lost
    }
    return status;
}

Condition MakeCondition(Property property, Seconds low, Seconds high) {
    Condition condition;
    condition.Subject = property;
    condition.Low = low;
    condition.High = high;
    condition.WholeDays = true;
    return condition;
}

} // namespace

OccurrenceReader::OccurrenceReader(StorePtr store) : Source(std::move(store)) {}

Status OccurrenceReader::ListDays(DayNumber first, DayNumber last,
                                  const std::function<void(const ListedOccurrence&)>& visit) {
    Restriction restriction;
    restriction.Alternatives.push_back({MakeCondition(Property::Start, kLowestTime, MidnightOf(last + 1) - 1),
                                        MakeCondition(Property::End, MidnightOf(first), kHighestTime)});
    return List(CoreOf(*Source), restriction, visit, LeftOut);
}

Status OccurrenceReader::ListStarts(Seconds from, Seconds to,
                                    const std::function<void(const ListedOccurrence&)>& visit) {
    Restriction restriction;
    restriction.Alternatives.push_back({MakeCondition(Property::Start, from, to)});
    return List(CoreOf(*Source), restriction, visit, LeftOut);
}

std::string OccurrenceReader::ReadSubject(Oid item) {
    Query query(CoreOf(*Source).Db, "SELECT subject FROM item WHERE oid = ?");
    return query.Bind(item).Next() ? std::string(query.Text(0)) : std::string();
}

} // namespace tavo::outlook

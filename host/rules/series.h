// A series as the few numbers that say when it recurs, and the occurrences that follow from it.
#pragma once

#include "host/rules/expansion_budget.h"
#include "host/rules/stored_item.h"
#include "host/rules/zones.h"
#include "platform/status.h"

#include <functional>
#include <string>
#include <vector>

namespace tavo::rules {

enum class EntryKind : std::uint32_t { Plain = 0, Series = 1, Occurrence = 2, Moved = 3 };

// One line of a listing: a plain item, a series that stands for itself, or one occurrence.
struct Entry {
    Seconds Start = 0;    // wall clock of the device
    Seconds Original = 0; // of an occurrence: its recurrence id, on the series' own clock
    Oid Item = 0;
    std::uint32_t Length : 29 = 0; // seconds
    EntryKind Kind : 3 = EntryKind::Plain;

    Seconds End() const { return Start + static_cast<Seconds>(Length); }

    void SetLength(Seconds length) { Length = static_cast<std::uint32_t>(length < 0 ? 0 : length) & 0x1FFFFFFFU; }
};

inline bool ComesBefore(const Entry& left, const Entry& right) {
    return left.Start != right.Start ? left.Start < right.Start : left.Item < right.Item;
}

struct SeriesRow {
    Oid Item = 0;
    Seconds First = 0; // bounds on the device's clock: the first occurrence, and what nothing ends after
    Seconds FirstLength = 0;
    Seconds Until = 0;
    Seconds Start = 0; // on the series' own clock
    Seconds Length = 0;
    ZoneId Zone = kFloating;
    StoredPattern Pattern;
    Seconds CountedEnd = 0; // of a foreign rule: see ForeignRule::GetCountedEnd
    bool HasExceptions = false;
};

// False when its numbers cannot have been saved, so that arithmetic cannot rely on them.
bool IsExpandable(const SeriesRow& row);

// Until of a series without any occurrence: before every time.
constexpr Seconds kNoOccurrence = INT64_MIN / 4;

// What a series has besides its row. Asked only where the row says that there is something.
class ISeriesDetails {
  public:
    virtual ~ISeriesDetails() = default;
    // The content lines of a foreign rule (see StoredItem::ForeignRule).
    virtual Status ReadForeignRule(Oid item, std::string& lines) = 0;
    // Hands over when each exception was to start, when it does and how long it lasts, in order of the original times,
    // until `take` gives false. Texts are left out.
    virtual Status ReadExceptions(Oid item, const std::function<bool(const StoredException&)>& take) = 0;
};

class SeriesExpander {
  public:
    SeriesExpander(ISeriesDetails& details, Zones& zones) : Details(details), Clocks(zones) {}

    // Adds the occurrences that start between `from` and `to` on the device's clock, in no particular order. Nothing is
    // added when the budget does not suffice, and for a series with a fault of its rule (see FindRuleFault): then the
    // budget is given up.
    Status Expand(const SeriesRow& series, Seconds from, Seconds to, std::vector<Entry>& entries,
                  ExpansionBudget& budget);

    // Why the item's foreign rule gives no occurrence: it cannot be read, asks for more work than any item may (also
    // until its first occurrence), or says nothing. One phrase, for people; "" when it is in order, and for all other
    // items.
    std::string FindRuleFault(const StoredItem& item);

    // Works out First, FirstLength and Until from the rest. A rule with a fault has no occurrence.
    void FindBounds(SeriesRow& series, const std::string& foreignRule, const std::vector<StoredException>& exceptions);

  private:
    struct RuleSpan;

    void ExpandPattern(const SeriesRow& series, Seconds from, Seconds to, std::vector<Entry>& entries,
                       ExpansionBudget& budget);
    Status ExpandForeign(const SeriesRow& series, Seconds from, Seconds to, std::vector<Entry>& entries,
                         ExpansionBudget& budget);
    Status ApplyExceptions(const SeriesRow& series, Seconds from, Seconds to, std::size_t since,
                           std::vector<Entry>& entries, ExpansionBudget& budget);
    void ToDeviceClock(const SeriesRow& series, Seconds from, Seconds to, std::size_t since,
                       std::vector<Entry>& entries);
    Entry MakeEntry(const SeriesRow& series, Seconds own, Seconds length) const;

    ISeriesDetails& Details;
    Zones& Clocks;
};

} // namespace tavo::rules

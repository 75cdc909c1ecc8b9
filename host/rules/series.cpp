// Expanding a series: by its rule on its own clock, then its exceptions, then onto the device's clock.
#include "host/rules/series.h"

#include "host/rules/foreign_rule.h"
#include "host/rules/recurrence.h"
#include "host/rules/save_rules.h"

#include <algorithm>

namespace tavo::rules {

namespace {

// Two clocks are never further apart.
constexpr Seconds kClockSlack = 2 * kLargestZoneOffset;
constexpr std::int64_t kStepsOfException = 12; // to read one

ZoneLookup LookupIn(Zones& zones) {
    return [&zones](const std::string& name) { return zones.RulesByName(name); };
}

// Ascending.
std::vector<Seconds> OriginalsOf(const std::vector<StoredException>& exceptions) {
    std::vector<Seconds> originals;
    originals.reserve(exceptions.size());
    for (const StoredException& exception : exceptions) {
        originals.push_back(exception.Original);
    }
    std::sort(originals.begin(), originals.end());
    return originals;
}

} // namespace

bool IsExpandable(const SeriesRow& row) {
    return row.Start >= kFirstStoredDay * kSecondsPerDay && row.Start < (kLastStoredDay + 1) * kSecondsPerDay &&
           row.Length >= 0 && row.Length <= kLongestAppointment + kSecondsPerDay && // and an hour for changing clocks
           (row.Pattern.Type == kRecursForeign || FindPatternFault(row.Pattern) == PatternFault::None);
}

Entry SeriesExpander::MakeEntry(const SeriesRow& series, Seconds own, Seconds length) const {
    Entry entry;
    entry.Start = own;
    entry.Original = own;
    entry.Item = series.Item;
    entry.SetLength(length);
    entry.Kind = EntryKind::Occurrence;
    return entry;
}

void SeriesExpander::ExpandPattern(const SeriesRow& series, Seconds from, Seconds to, std::vector<Entry>& entries,
                                   ExpansionBudget& budget) {
    const DayNumber startDay = DayOf(series.Start);
    const Seconds time = TimeOfDay(series.Start);
    const RecurrenceDays days(series.Pattern, startDay);
    DayNumber last = DayOf(to - time);
    if (series.Pattern.End != PatternEnd::Never) {
        last = std::min(last, series.Pattern.LastDay);
    }
    Entry entry = MakeEntry(series, 0, series.Length);
    for (DayNumber day = days.FirstOnOrAfter(DayOf(from - time + kSecondsPerDay - 1)); day <= last && budget.Take();
         day = days.FirstOnOrAfter(day + 1)) {
        entry.Start = MidnightOf(day) + time;
        entry.Original = entry.Start;
        entries.push_back(entry);
    }
}

Status SeriesExpander::ExpandForeign(const SeriesRow& series, Seconds from, Seconds to, std::vector<Entry>& entries,
                                     ExpansionBudget& budget) {
    std::string lines;
    if (const Status status = Details.ReadForeignRule(series.Item, lines); Failed(status)) {
        return status;
    }
    if (!budget.Take(CostOfRuleLines(lines))) {
        return Status::Ok;
    }
    std::string fault;
    const auto rule = ForeignRule::Parse(lines, series.Start, Clocks.Rules(series.Zone), LookupIn(Clocks), fault);
    if (rule == nullptr) {
        budget.GiveUp();
        return Status::Ok;
    }
    rule->TakeCountedEnd(series.CountedEnd);
    const std::int64_t share = std::min(budget.GetRest(), kStepsOfCount);
    ExpansionBudget ofCount(share);
    if (!rule->FindCountedEnds(ofCount) && share == kStepsOfCount) {
        budget.GiveUp();
        return Status::Ok;
    }
    std::vector<RuleOccurrence> occurrences;
    if (budget.Take(ofCount.IsSpent() ? budget.GetRest() + 1 : share - ofCount.GetRest())) {
        rule->Expand(from, to, occurrences, budget);
    }
    for (const RuleOccurrence& occurrence : occurrences) {
        entries.push_back(MakeEntry(series, occurrence.Start, occurrence.Length.value_or(series.Length)));
    }
    return Status::Ok;
}

Status SeriesExpander::ApplyExceptions(const SeriesRow& series, Seconds from, Seconds to, std::size_t since,
                                       std::vector<Entry>& entries, ExpansionBudget& budget) {
    std::vector<Entry> moved;
    std::vector<Seconds> originals; // ascending, as the table is
    const Status status = Details.ReadExceptions(series.Item, [&](const StoredException& exception) {
        originals.push_back(exception.Original);
        if (exception.Kind == ExceptionKind::Moved && exception.Start >= from && exception.Start <= to) {
            Entry entry = MakeEntry(series, exception.Start, exception.End - exception.Start);
            entry.Original = exception.Original;
            entry.Kind = EntryKind::Moved;
            moved.push_back(entry);
        }
        return budget.Take(kStepsOfException);
    });
    const auto begin = entries.begin() + static_cast<std::ptrdiff_t>(since);
    entries.erase(std::remove_if(begin, entries.end(),
                                 [&](const Entry& entry) {
                                     return std::binary_search(originals.begin(), originals.end(), entry.Original);
                                 }),
                  entries.end());
    entries.insert(entries.end(), moved.begin(), moved.end());
    return status;
}

void SeriesExpander::ToDeviceClock(const SeriesRow& series, Seconds from, Seconds to, std::size_t since,
                                   std::vector<Entry>& entries) {
    std::size_t kept = since;
    for (std::size_t index = since; index < entries.size(); ++index) {
        Entry entry = entries[index];
        const Seconds end = Clocks.ToWall(series.Zone, entry.End());
        entry.Start = Clocks.ToWall(series.Zone, entry.Start);
        entry.SetLength(end - entry.Start);
        if (entry.Start >= from && entry.Start <= to) {
            entries[kept++] = entry;
        }
    }
    entries.resize(kept);
}

Status SeriesExpander::Expand(const SeriesRow& series, Seconds from, Seconds to, std::vector<Entry>& entries,
                              ExpansionBudget& budget) {
    const std::size_t since = entries.size();
    const bool zoned = series.Zone != kFloating;
    const Seconds ownFrom = zoned ? from - kClockSlack : from;
    const Seconds ownTo = zoned ? to + kClockSlack : to;
    Status status = Status::Ok;
    if (series.Pattern.Type == kRecursForeign) {
        status = ExpandForeign(series, ownFrom, ownTo, entries, budget);
    } else {
        ExpandPattern(series, ownFrom, ownTo, entries, budget);
    }
    if (Succeeded(status) && series.HasExceptions && !budget.IsSpent()) {
        status = ApplyExceptions(series, ownFrom, ownTo, since, entries, budget);
    }
    if (budget.IsSpent()) {
        entries.resize(since); // left out whole, with what was moved
        return status;
    }
    if (zoned) {
        ToDeviceClock(series, from, to, since, entries);
    }
    return status;
}

// The first occurrence that the rule leaves in place, and the end of its last one, on the series' own clock.
struct SeriesExpander::RuleSpan {
    bool Any = false;
    Seconds First = 0;
    Seconds FirstEnd = 0;
    Seconds LastEnd = 0;

    void Take(Seconds start, Seconds end) {
        if (!Any || start < First) {
            First = start;
            FirstEnd = end;
        }
        LastEnd = Any ? std::max(LastEnd, end) : end;
        Any = true;
    }
};

std::string SeriesExpander::FindRuleFault(const StoredItem& item) {
    if (item.Pattern.Type != kRecursForeign) {
        return "";
    }
    std::string fault;
    const Seconds start = item.Zone.empty() ? item.Start : item.ZoneStart;
    const ZoneRules* own = item.Zone.empty() ? nullptr : Clocks.RulesByName(item.Zone);
    const auto rule = ForeignRule::Parse(item.ForeignRule, start, own, LookupIn(Clocks), fault);
    if (rule == nullptr) {
        return fault;
    }
    ExpansionBudget ofCount(kStepsOfCount);
    if (!rule->FindCountedEnds(ofCount)) {
        return "its number of occurrences takes too long to count";
    }
    if (!rule->TakesPlace()) {
        return "its recurrence never takes place";
    }
    const std::vector<Seconds> originals = OriginalsOf(item.Exceptions);
    ExpansionBudget budget(kStepsOfExpansion);
    static_cast<void>(rule->FindFirst(
        [&originals](Seconds original) { return std::binary_search(originals.begin(), originals.end(), original); },
        budget));
    return budget.IsSpent() ? "its first occurrence takes too long to find" : "";
}

void SeriesExpander::FindBounds(SeriesRow& series, const std::string& foreignRule,
                                const std::vector<StoredException>& exceptions) {
    RuleSpan span;
    const std::vector<Seconds> originals = OriginalsOf(exceptions);
    const auto isExcepted = [&originals](Seconds original) {
        return std::binary_search(originals.begin(), originals.end(), original);
    };
    bool endless = false;
    bool leftOut = false;
    if (series.Pattern.Type == kRecursForeign) {
        std::string fault;
        const auto rule =
            ForeignRule::Parse(foreignRule, series.Start, Clocks.Rules(series.Zone), LookupIn(Clocks), fault);
        ExpansionBudget ofCount(kStepsOfCount);
        leftOut = rule == nullptr || !rule->FindCountedEnds(ofCount);
        series.CountedEnd = leftOut ? 0 : rule->GetCountedEnd();
        const Seconds last = leftOut ? 0 : rule->FindLastStart();
        endless = last == kForever;
        ExpansionBudget budget(kStepsOfExpansion);
        const std::optional<RuleOccurrence> first = leftOut ? std::nullopt : rule->FindFirst(isExcepted, budget);
        if (first) {
            span.Take(first->Start, first->Start + first->Length.value_or(series.Length));
            // A period of an RDATE may be the longest.
            span.LastEnd = std::max(span.LastEnd, endless ? kForever : last + 32 * kSecondsPerDay);
        }
    } else {
        const RecurrenceDays days(series.Pattern, DayOf(series.Start));
        const Seconds time = TimeOfDay(series.Start);
        endless = series.Pattern.End == PatternEnd::Never;
        const DayNumber last = endless ? kLastStoredDay : series.Pattern.LastDay;
        DayNumber day = days.FirstOnOrAfter(DayOf(series.Start));
        while (day <= last && isExcepted(MidnightOf(day) + time)) {
            day = days.FirstOnOrAfter(day + 1);
        }
        if (day <= last) {
            span.Take(MidnightOf(day) + time, MidnightOf(day) + time + series.Length);
            const DayNumber lastDay = endless ? day : std::min(days.Nth(series.Pattern.Occurrences), last);
            span.LastEnd = std::max(span.LastEnd, MidnightOf(lastDay) + time + series.Length);
        }
    }
    endless = endless && span.Any;
    for (const StoredException& exception : exceptions) {
        if (exception.Kind == ExceptionKind::Moved && !leftOut) {
            span.Take(exception.Start, exception.End);
        }
    }
    if (!span.Any) {
        series.First = Clocks.ToWall(series.Zone, series.Start);
        series.FirstLength = series.Length;
        series.Until = kNoOccurrence;
        return;
    }
    series.First = Clocks.ToWall(series.Zone, span.First);
    series.FirstLength = std::max<Seconds>(Clocks.ToWall(series.Zone, span.FirstEnd) - series.First, 0);
    // Around a change of clocks a later occurrence may end up a little before an earlier one.
    series.Until = endless                    ? kForever
                   : series.Zone == kFloating ? span.LastEnd
                                              : Clocks.ToWall(series.Zone, span.LastEnd) + kSecondsPerDay;
}

} // namespace tavo::rules

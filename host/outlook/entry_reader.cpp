// Pieces of a listing: plain items by two ranges of their clustered table, series by arithmetic.
#include "host/outlook/entry_reader.h"

#include "host/outlook/item_rows.h"
#include "host/outlook/store_core.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <numeric>
#include <span>

namespace tavo::outlook {

namespace {

constexpr Seconds kFirstPiece = 128 * kSecondsPerDay; // holds the two and a half months of a month page
constexpr Seconds kLongestPiece = 64 * kFirstPiece;
constexpr std::size_t kSmallPiece = 1000;
constexpr std::size_t kFewEntries = 200; // up to here comparing is faster than counting
constexpr int kDigitBits = 12;
constexpr std::size_t kDigits = std::size_t{1} << kDigitBits;
constexpr Seconds kLongestLength = 32 * kSecondsPerDay; // 31 days, and an hour for changing clocks

Status FindOne(Database& database, const char* sql, Seconds from, Seconds& found) {
    found = kForever;
    Query query(database, sql);
    if (query.Bind(from).Next() && !query.IsNull(0)) {
        found = query.Integer(0);
    }
    return query.Result();
}

// The earliest time from `from` on at which anything can start; kForever when nothing does.
Status FindNextStart(StoreCore& core, SeriesAs series, Seconds from, Seconds& found) {
    Seconds shortItem = kForever;
    Seconds longItem = kForever;
    Seconds first = kForever;
    Status status = FindOne(core.Db, "SELECT min(start) FROM plain WHERE span = 0 AND start >= ?", from, shortItem);
    if (Succeeded(status)) {
        status = FindOne(core.Db, "SELECT min(start) FROM plain WHERE span = 1 AND start >= ?", from, longItem);
    }
    if (Succeeded(status)) {
        status = FindOne(core.Db,
                         series == SeriesAs::Themselves ? "SELECT min(first) FROM series WHERE first >= ?"
                                                        : "SELECT min(first) FROM series WHERE until >= ?",
                         from, first);
    }
    found = std::min({shortItem, longItem, std::max(first, from)});
    return status;
}

// Stable, from the lowest digit of the distance to the earliest start up to its highest. The other half of each move
// lies behind the entries for as long as it takes.
void SortByStart(std::vector<Entry>& entries, std::size_t since) {
    const std::size_t size = entries.size();
    entries.resize(size + (size - since));
    const auto begin = entries.begin() + static_cast<std::ptrdiff_t>(since);
    const auto end = entries.begin() + static_cast<std::ptrdiff_t>(size);
    const auto byStart = [](const Entry& left, const Entry& right) { return left.Start < right.Start; };
    const auto [earliest, latest] = std::minmax_element(begin, end, byStart);
    const Seconds origin = earliest->Start;
    const Seconds reach = latest->Start - origin;
    for (int shift = 0; (reach >> shift) != 0; shift += kDigitBits) {
        const auto digitOf = [&](const Entry& entry) {
            return static_cast<std::size_t>((entry.Start - origin) >> shift) & (kDigits - 1);
        };
        std::array<std::size_t, kDigits> places{};
        for (auto entry = begin; entry != end; ++entry) {
            ++places[digitOf(*entry)];
        }
        std::exclusive_scan(places.begin(), places.end(), places.begin(), std::size_t{0});
        for (auto entry = begin; entry != end; ++entry) {
            end[static_cast<std::ptrdiff_t>(places[digitOf(*entry)]++)] = *entry;
        }
        std::copy(end, entries.end(), begin);
    }
    entries.resize(size);
}

} // namespace

void SortEntries(std::vector<Entry>& entries, std::size_t since) {
    const auto first = static_cast<std::ptrdiff_t>(since);
    if (entries.size() - since < kFewEntries) {
        std::sort(entries.begin() + first, entries.end(), ComesBefore);
        return;
    }
    // A month of a full calendar is sorted again and again: by digits of the start, then the few of equal start by OID.
    SortByStart(entries, since);
    for (auto run = entries.begin() + first; run != entries.end();) {
        auto next = run + 1;
        bool ordered = true;
        for (; next != entries.end() && next->Start == run->Start; ++next) {
            ordered = ordered && (next - 1)->Item <= next->Item;
        }
        if (!ordered) {
            std::stable_sort(run, next, ComesBefore);
        }
        run = next;
    }
}

Status EntryReader::FindBeginning() {
    Begun = true;
    PieceLength = kFirstPiece;
    Next = std::max(Span.LowestStart, Span.LowestEnd - kLongestLength);
    Ended = Next > Span.HighestStart;
    // A listing that begins in the dark of time begins with the first item there is.
    return Next < kFirstStoredDay * kSecondsPerDay ? SkipEmptyTime() : Status::Ok;
}

Status EntryReader::SkipEmptyTime() {
    Seconds found = 0;
    const Status status = FindNextStart(Core, Span.Series, Next, found);
    Ended = Ended || found == kForever || found > Span.HighestStart;
    Next = std::max(Next, found);
    return status;
}

Status EntryReader::ReadPlain(Seconds from, Seconds to, std::int64_t span, std::vector<Entry>& entries) {
    // What starts earlier has ended by then.
    const Seconds longest = span == kShortItem ? kSecondsPerDay : kLongestLength;
    Query query(Core.Db, "SELECT start, oid, length FROM plain WHERE span = ? AND start BETWEEN ? AND ?");
    query.Bind(span).Bind(std::max(from, Span.LowestEnd - longest)).Bind(to);
    while (query.Next()) {
        Entry& entry = entries.emplace_back();
        entry.Start = query.Integer(0);
        entry.Item = query.Small(1);
        entry.SetLength(query.Integer(2));
    }
    return query.Result();
}

Status EntryReader::ReadSeries(Seconds from, Seconds to, std::vector<Entry>& entries) {
    Query query(Core.Db, "SELECT first, oid, first_length FROM series WHERE first BETWEEN ? AND ?");
    query.Bind(from).Bind(to);
    while (query.Next()) {
        Entry& entry = entries.emplace_back();
        entry.Start = query.Integer(0);
        entry.Item = query.Small(1);
        entry.SetLength(query.Integer(2));
        entry.Kind = EntryKind::Series;
    }
    return query.Result();
}

Status EntryReader::ReadOccurrences(Seconds from, Seconds to, std::vector<Entry>& entries) {
    std::span<const SeriesRow* const> rows;
    Status status = Core.FindSeriesTouching(std::max(from, Span.LowestEnd), to, rows);
    if (Failed(status)) {
        return status;
    }
    std::vector<const SeriesRow*> others;
    if (!LeftOut.empty()) {
        std::copy_if(rows.begin(), rows.end(), std::back_inserter(others), [this](const SeriesRow* row) {
            return !std::binary_search(LeftOut.begin(), LeftOut.end(), row->Item);
        });
        rows = others;
    }
    const auto expand = [&](std::size_t index, ExpansionBudget& budget) {
        const SeriesRow& row = *rows[index];
        const Seconds earliest = std::max(from, Span.LowestEnd - row.Length - kSecondsPerDay);
        status = Core.Items.Series().Expand(row, earliest, to, entries, budget);
        return Succeeded(status);
    };
    for (const std::size_t index : ShareWork(rows.size(), (to - from) / kSecondsPerDay + 1, expand)) {
        LeftOut.push_back(rows[index]->Item);
    }
    std::sort(LeftOut.begin(), LeftOut.end());
    return status;
}

Status EntryReader::ReadPiece(std::vector<Entry>& entries) {
    if (!Begun) {
        if (const Status status = FindBeginning(); Failed(status)) {
            return status;
        }
    }
    const std::size_t since = entries.size();
    while (!Ended && entries.size() == since) {
        const Seconds to = std::min(Span.HighestStart, Next + PieceLength - 1);
        Status status = ReadPlain(Next, to, kShortItem, entries);
        if (Succeeded(status)) {
            status = ReadPlain(Next, to, kLongItem, entries);
        }
        if (Succeeded(status)) {
            status = Span.Series == SeriesAs::Occurrences ? ReadOccurrences(Next, to, entries)
                                                          : ReadSeries(Next, to, entries);
        }
        if (Failed(status)) {
            entries.resize(since);
            return status;
        }
        if (entries.size() - since < kSmallPiece) {
            PieceLength = std::min(PieceLength * 2, kLongestPiece);
        }
        Next = to + 1;
        if (to >= Span.HighestStart) {
            Ended = true;
        } else if (const Status skipped = SkipEmptyTime(); Failed(skipped)) {
            return skipped;
        }
    }
    SortEntries(entries, since);
    return Status::Ok;
}

} // namespace tavo::outlook

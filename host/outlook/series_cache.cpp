// Series rows in memory.
#include "host/outlook/series_cache.h"

#include <algorithm>
#include <limits>

namespace tavo::outlook {
namespace {

constexpr Seconds kAround = 7 * kSecondsPerDay;
constexpr Seconds kEarliest = kNoOccurrence + 1; // a series without any occurrence never touches anything
constexpr Seconds kLatest = std::numeric_limits<Seconds>::max();

} // namespace

Status SeriesCache::Read(const SeriesState& state, Seconds from, Seconds to) {
    Rows.clear();
    Held = SeriesState();
    const Status status = ReadSeriesTouching(Source, from, to, Rows);
    if (Succeeded(status)) {
        Held = state;
        HeldFrom = from;
        HeldTo = to;
    }
    return status;
}

Status SeriesCache::FindTouching(const SeriesState& state, Seconds from, Seconds to,
                                 std::span<const SeriesRow* const>& rows) {
    Status status = Status::Ok;
    if (state != Held) {
        status = Read(state, std::max(from, kEarliest + kAround) - kAround, std::min(to, kLatest - kAround) + kAround);
    } else if (from < HeldFrom || to > HeldTo) {
        status = Read(state, kEarliest, kLatest);
    }
    Found.clear();
    for (const SeriesRow& row : Rows) {
        if (row.First <= to && row.Until >= from) {
            Found.push_back(&row);
        }
    }
    rows = Found;
    return status;
}

} // namespace tavo::outlook

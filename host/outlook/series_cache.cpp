// Series rows in memory.
#include "host/outlook/series_cache.h"

#include <limits>

namespace tavo::outlook {

Status SeriesCache::FindTouching(const SeriesState& state, Seconds from, Seconds to, std::vector<SeriesRow>& rows) {
    if (state != Asked) {
        Asked = state;
        return ReadSeriesTouching(Source, from, to, rows);
    }
    if (state != Cached) {
        Rows.clear();
        Cached = SeriesState();
        // A series without any occurrence never touches anything.
        const Status status = ReadSeriesTouching(Source, kNoOccurrence + 1, std::numeric_limits<Seconds>::max(), Rows);
        if (Failed(status)) {
            return status;
        }
        Cached = state;
    }
    for (const SeriesRow& row : Rows) {
        if (row.First <= to && row.Until >= from) {
            rows.push_back(row);
        }
    }
    return Status::Ok;
}

} // namespace tavo::outlook

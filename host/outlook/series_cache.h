// Keeps the narrow rows of all series in memory for a process that asks for one window after the other.
#pragma once

#include "host/outlook/series_table.h"

#include <cstdint>
#include <span>
#include <vector>

namespace tavo::outlook {

// Tells one state of the series table from another.
struct SeriesState {
    std::int64_t ItemChanges = -1; // by anybody, as counted in the store
    std::int64_t OwnChanges = -1;  // by this connection, also those that are not committed yet
    friend bool operator==(const SeriesState&, const SeriesState&) = default;
};

class SeriesCache {
  public:
    explicit SeriesCache(Database& database) : Source(database) {}

    // As ReadSeriesTouching finds them; they stand until the next call. The first time it reads what touches the week
    // before and after too: hardly more, and a program that starts asks for a day and the next one. Asked for more in
    // the same state, it reads all and answers from memory from then on.
    Status FindTouching(const SeriesState& state, Seconds from, Seconds to, std::span<const SeriesRow* const>& rows);

  private:
    Status Read(const SeriesState& state, Seconds from, Seconds to);

    Database& Source;
    std::vector<SeriesRow> Rows;
    std::vector<const SeriesRow*> Found; // kept for its room: asked for month after month
    SeriesState Held;                    // of the rows; that of no store while there are none
    Seconds HeldFrom = 0;                // what touches this span is among them
    Seconds HeldTo = 0;
};

} // namespace tavo::outlook

// Series of which everything from one occurrence on was changed: two series, one after the other.
#pragma once

#include "host/exchange/event_reader.h"

#include <optional>
#include <string>

namespace tavo::exchange {

// The later series, with what the entry says; `series` keeps what comes before, and its exceptions of before. Where
// nothing comes before, `series` is the later one, and what is given does not recur. `change` is the entry as an
// exception of the series. Nothing, with the reason for people, where the later one cannot be told by a rule of ours:
// then `series` is as it was.
std::optional<rules::StoredItem> SplitSeries(rules::StoredItem& series, const EventEntry& entry,
                                             const rules::StoredException& change, std::string& reason);

enum class SeriesEnd { Ended, NothingLeft, CannotBeSaid };

// Ends the series before that occurrence. `own`: the rules of its zone, null for none. Where it gives another result
// than Ended the series is as it was.
SeriesEnd EndSeriesBefore(rules::StoredItem& series, rules::Seconds original, const rules::ZoneRules* own);

} // namespace tavo::exchange

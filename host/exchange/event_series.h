// How an event repeats: by one of the store's types where it says the same, else by its own rule, kept whole.
#pragma once

#include "host/exchange/event_time.h"

namespace tavo::exchange {

// Fills the item's pattern, foreign rule and cancelled occurrences from RRULE, EXRULE, RDATE and EXDATE.
// Not Good: `fault` names the line and says why.
Reading ReadSeries(const LineList& event, const EventTime& start, const EntryContext& context, rules::StoredItem& item,
                   FileFault& fault);

} // namespace tavo::exchange

// How an event repeats: by one of the store's types where it says the same, else by its own rule, kept whole.
#pragma once

#include "host/exchange/event_time.h"

namespace tavo::exchange {

// Fills the item's pattern, foreign rule and cancelled occurrences from RRULE, EXRULE, RDATE and EXDATE.
// Not Good: `fault` names the line and says why.
Reading ReadSeries(const LineList& event, const EventTime& start, const EntryContext& context, rules::StoredItem& item,
                   FileFault& fault);

// The same from the value of one RRULE alone, for an item on the device's own clock whose start is there. False for a
// rule that cannot be walked or ends before the start: the item is then as it was, and `fault` is a phrase for people,
// empty where the value is no rule at all.
bool TakeRule(std::string_view value, rules::StoredItem& item, std::string& fault);

} // namespace tavo::exchange

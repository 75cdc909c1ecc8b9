// Events that last longer than the device's appointments may: on their way in, and out again.
#pragma once

#include "host/exchange/event_time.h"

namespace tavo::exchange {

// Whether the item lasts longer than the store takes.
bool IsTooLong(const rules::StoredItem& item);

// Makes of an item that is too long the series of its days: of whole days one a day, else the part of each day. Its
// lines about time are carried for an export, marked as those of the whole; what repeated it is, too, and said.
void SpreadOverDays(const LineList& event, const EntryContext& context, rules::StoredItem& item);

// Whether the item still is the series that was made of the lines which it carries: then they say all about its time.
bool IsStillWhole(const rules::StoredItem& item);

} // namespace tavo::exchange

// The one reminder that an appointment has, out of the alarms that an event may have.
#pragma once

#include "host/exchange/event_time.h"

#include <cstddef>
#include <vector>

namespace tavo::exchange {

// Fills the item's reminder from the event's VALARMs, and takes the one that was used out of `places`, those
// among them that say when. Of several, the
// one nearest to the start is taken; mails only where there is nothing else. A reminder after the start comes at the
// start.
void ReadReminder(const EventLines& event, const EventTime& start, const EventTime& end, rules::StoredItem& item,
                  std::vector<std::size_t>& places);

} // namespace tavo::exchange

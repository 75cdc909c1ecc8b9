// The one reminder that an appointment has, out of the alarms that an event may have.
#pragma once

#include "host/exchange/event_time.h"

#include <cstddef>
#include <optional>

namespace tavo::exchange {

// Fills the item's reminder from the event's VALARMs; the place among them of the one that was taken. Of several, the
// one nearest to the start is taken; mails only where there is nothing else. A reminder after the start comes at the
// start.
std::optional<std::size_t> ReadReminder(const EventLines& event, const EventTime& start, const EventTime& end,
                                        rules::StoredItem& item);

} // namespace tavo::exchange

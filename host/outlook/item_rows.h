// What the columns of an item's row mean.
#pragma once

#include "host/outlook/schema.h"
#include "host/outlook/terms.h"
#include "host/rules/wall_time.h"

#include <cstdint>
#include <limits>

namespace tavo::outlook {

constexpr std::int64_t kFlagAllDay = 1;
constexpr std::int64_t kFlagReminder = 2;
constexpr std::int64_t kFlagRecurring = 4;
constexpr std::int64_t kFlagCarries = 8; // it, or an occurrence of its series, has rows in `carried`

// Stands in `carried` for the item itself, in place of the start of an occurrence.
constexpr Seconds kWholeItem = std::numeric_limits<Seconds>::min();

constexpr std::int64_t SpanOf(Seconds length) {
    return length <= kSecondsPerDay ? kShortItem : kLongItem;
}

} // namespace tavo::outlook

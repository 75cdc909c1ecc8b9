// What the columns of an item's row mean.
#pragma once

#include "host/outlook/schema.h"
#include "host/outlook/terms.h"
#include "host/rules/wall_time.h"

#include <cstdint>

namespace tavo::outlook {

constexpr std::int64_t kFlagAllDay = 1;
constexpr std::int64_t kFlagReminder = 2;
constexpr std::int64_t kFlagRecurring = 4;

constexpr std::int64_t SpanOf(Seconds length) {
    return length <= kSecondsPerDay ? kShortItem : kLongItem;
}

} // namespace tavo::outlook

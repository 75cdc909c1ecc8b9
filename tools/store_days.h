// Days of the command line as the store counts them.
#pragma once

#include "host/rules/wall_time.h"
#include "tools/calendar_day.h"

namespace tavo::tools {

constexpr rules::DayNumber NumberOf(Day day) {
    return day.time_since_epoch().count() + rules::kUnixEpochDay;
}

constexpr Day DayFromNumber(rules::DayNumber day) {
    return Day(std::chrono::days(day - rules::kUnixEpochDay));
}

// The minute of the day.
constexpr int MinuteOf(rules::Seconds time) {
    return static_cast<int>(rules::TimeOfDay(time) / 60);
}

} // namespace tavo::tools

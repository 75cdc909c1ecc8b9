// Days as people type and read them on the command line.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace tavo::tools {

using Day = std::chrono::sys_days;

// YYYY-MM-DD of a real day of the years 1601 to 9999; nothing else.
std::optional<Day> ParseDay(std::string_view text);

// The day of the device's clock.
Day GetToday();

// "2026-11-21", "Saturday, 21 November 2026" and "21 Nov".
std::string WriteIsoDay(Day day);
std::string WriteLongDay(Day day);
std::string WriteShortDay(Day day);

} // namespace tavo::tools

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

// A minute of the device's clock.
struct Moment {
    Day Date;
    int Minute = 0; // of the day: 0 to 1439
};

Moment GetNow();
Day GetToday();

// "2026-11-21", "Saturday, 21 November 2026", "Sat 21 November 2026" and "21 Nov".
std::string WriteIsoDay(Day day);
std::string WriteLongDay(Day day);
std::string WriteDayWithWeekday(Day day);
std::string WriteShortDay(Day day);

// "09:30", of a minute of the day.
std::string WriteClock(int minute);

// English names: of 0 Sunday to 6, and of 1 January to 12.
std::string_view NameWeekday(unsigned weekday);
std::string_view NameMonth(unsigned month);

} // namespace tavo::tools

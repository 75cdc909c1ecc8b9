// The first moment of a day.
#pragma once

#include "platform/system_time.h"

namespace tavo {

// The weekday is left open; a date that does not exist is passed on as it is.
constexpr SYSTEMTIME MidnightOf(int year, int month, int day) {
    SYSTEMTIME time;
    time.Year = static_cast<std::uint16_t>(year);
    time.Month = static_cast<std::uint16_t>(month);
    time.Day = static_cast<std::uint16_t>(day);
    return time;
}

} // namespace tavo

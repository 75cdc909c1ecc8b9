// The device's two ways of writing a date: broken down, and as an automation date.
#pragma once

#include <cstdint>

namespace tavo {

// Broken-down local time. Month 1..12, DayOfWeek 0 (Sunday)..6, Day 1..31.
struct SYSTEMTIME {
    std::uint16_t Year = 0;
    std::uint16_t Month = 0;
    std::uint16_t DayOfWeek = 0;
    std::uint16_t Day = 0;
    std::uint16_t Hour = 0;
    std::uint16_t Minute = 0;
    std::uint16_t Second = 0;
    std::uint16_t Milliseconds = 0;
    friend constexpr bool operator==(const SYSTEMTIME&, const SYSTEMTIME&) = default;
};

// Automation date: days since 1899-12-30; the fraction is the time of day and always adds.
using DATE = double;

constexpr DATE kLowestDate = 0;       // 1899-12-30
constexpr DATE kHighestDate = 401768; // 2999-12-31
constexpr DATE kNoDate = 949998;      // 4501-01-01, "none"

} // namespace tavo

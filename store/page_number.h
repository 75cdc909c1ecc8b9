// The pages of the main view by number.
#pragma once

#include <cstdint>

namespace tavo {

// In the order of their tabs. Any other number is no page: with it none is on show.
enum class PageNumber : std::int32_t {
    Clock,
    Schedule,
    Calendar,
    Settings,
    ScheduleAgain, // shows the Schedule page as well
};

constexpr int kPageCount = 4; // of those that have a tab

} // namespace tavo

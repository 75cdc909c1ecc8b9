// The time between a reminder and its appointment: minutes in the store, a number and a unit in the form.
#pragma once

#include <cstdint>

namespace tavo {

// Entries of the form's unit list.
constexpr int kLeadMinutes = 0;
constexpr int kLeadHours = 1;
constexpr int kLeadDays = 2;

constexpr std::int32_t kHighestLeadValue = 9999;

struct LeadTime {
    std::int32_t Value = 0;
    int Unit = kLeadMinutes;
    friend constexpr bool operator==(const LeadTime&, const LeadTime&) = default;
};

// In the largest unit that says the minutes exactly; no minutes at all stay minutes.
LeadTime SplitLeadMinutes(std::int32_t minutes);

std::int32_t LeadMinutes(const LeadTime& lead);

} // namespace tavo

// Between minutes and units.
#include "edit/lead_time.h"

namespace tavo {

namespace {

constexpr std::int32_t kMinutesPerHour = 60;
constexpr std::int32_t kMinutesPerDay = 1440;

} // namespace

LeadTime SplitLeadMinutes(std::int32_t minutes) {
    if (minutes != 0 && minutes % kMinutesPerDay == 0) {
        return {minutes / kMinutesPerDay, kLeadDays};
    }
    if (minutes != 0 && minutes % kMinutesPerHour == 0) {
        return {minutes / kMinutesPerHour, kLeadHours};
    }
    return {minutes, kLeadMinutes};
}

std::int32_t LeadMinutes(const LeadTime& lead) {
    switch (lead.Unit) {
    case kLeadHours:
        return lead.Value * kMinutesPerHour;
    case kLeadDays:
        return lead.Value * kMinutesPerDay;
    default:
        return lead.Value;
    }
}

} // namespace tavo

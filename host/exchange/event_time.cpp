// The times of an event: on whose clock they are, and whether they are dates only.
#include "host/exchange/event_time.h"

namespace tavo::exchange {
namespace {

using rules::kSecondsPerDay;
using rules::Seconds;

constexpr int kSecondsPerHour = 3600;
constexpr int kSecondsPerMinute = 60;

bool IsRealTime(const icaltimetype& value) {
    if (value.month < 1 || value.month > 12 || value.year < 1 || value.day < 1 ||
        value.day > rules::DaysInMonth(value.year, value.month)) {
        return false;
    }
    if (value.is_date != 0) {
        return true;
    }
    const bool endOfDay = value.hour == 24 && value.minute == 0 && value.second == 0;
    return endOfDay || (value.hour >= 0 && value.hour < 24 && value.minute >= 0 && value.minute < 60 &&
                        value.second >= 0 && value.second <= 60);
}

Seconds ReadClock(const icaltimetype& value) {
    const Seconds midnight = rules::MakeTime(value.year, value.month, value.day);
    return value.is_date != 0 ? midnight
                              : midnight + Seconds{value.hour} * kSecondsPerHour +
                                    Seconds{value.minute} * kSecondsPerMinute + value.second;
}

const char* GetZoneName(icalproperty* property) {
    icalparameter* parameter = icalproperty_get_first_parameter(property, ICAL_TZID_PARAMETER);
    return parameter == nullptr ? nullptr : icalparameter_get_tzid(parameter);
}

// Days go by the calendar, hours and finer by the clock that runs through a change of daylight saving.
Seconds AddDuration(const EventTime& start, const icaldurationtype& duration) {
    const int sign = duration.is_neg != 0 ? -1 : 1;
    const Seconds days = static_cast<Seconds>(duration.weeks) * 7 + duration.days;
    const Seconds exact = static_cast<Seconds>(duration.hours) * kSecondsPerHour +
                          static_cast<Seconds>(duration.minutes) * kSecondsPerMinute + duration.seconds;
    const Seconds nominal = start.Clock + sign * days * kSecondsPerDay;
    if (start.In == nullptr || exact == 0) {
        return nominal + sign * exact;
    }
    return start.In->Rules->ToLocal(start.In->Rules->ToUtc(nominal) + sign * exact);
}

// An end of whole days names the day after the last. One day is a span of no length in the store.
Seconds EndOfWholeDays(Seconds start, Seconds end) {
    return end >= start && end - start <= kSecondsPerDay ? start : end;
}

} // namespace

Reading ReadTime(icalproperty* property, const icaltimetype& value, ZoneTable& zones, EventTime& time,
                 std::string& reason) {
    if (!IsRealTime(value)) {
        reason = std::string("\"") + icalproperty_get_value_as_string(property) + "\" is not a real date and time";
        return Reading::Broken;
    }
    time.Clock = ReadClock(value);
    time.DateOnly = value.is_date != 0;
    time.In = nullptr;
    if (time.DateOnly) {
        return Reading::Good;
    }
    if (icaltime_is_utc(value)) {
        time.In = zones.GetUtc();
        return Reading::Good;
    }
    if (const char* name = GetZoneName(property); name != nullptr) {
        time.In = zones.Find(name);
        if (time.In == nullptr) {
            reason = zones.DescribeUnknown(name);
            return Reading::Refused;
        }
    }
    return Reading::Good;
}

Reading ReadEnd(icalcomponent* event, const EventTime& start, ZoneTable& zones, EventTime& end, std::string& reason) {
    end = start;
    if (icalproperty* property = icalcomponent_get_first_property(event, ICAL_DTEND_PROPERTY); property != nullptr) {
        const Reading reading = ReadTime(property, icalproperty_get_dtend(property), zones, end, reason);
        if (reading != Reading::Good) {
            return reading;
        }
        end.Clock = MoveToZone(end, start.In);
        end.In = start.In;
    } else if (property = icalcomponent_get_first_property(event, ICAL_DURATION_PROPERTY); property != nullptr) {
        end.Clock = AddDuration(start, icalproperty_get_duration(property));
    }
    if (start.DateOnly) {
        end.Clock = EndOfWholeDays(start.Clock, end.Clock);
        end.DateOnly = true;
    }
    return Reading::Good;
}

Seconds MoveToZone(const EventTime& time, const Zone* zone) {
    if (time.In == nullptr || zone == nullptr || time.In == zone) {
        return time.Clock;
    }
    return zone->Rules->ToLocal(time.In->Rules->ToUtc(time.Clock));
}

} // namespace tavo::exchange

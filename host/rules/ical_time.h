// Between the store's seconds and libical's broken-down times.
#pragma once

#include "host/rules/wall_time.h"

#include <libical/ical.h>

namespace tavo::rules {

inline Seconds SecondsFromIcal(const icaltimetype& time) {
    return MakeTime(time.year, time.month, time.day, time.hour, time.minute, time.second);
}

inline icaltimetype IcalFromSeconds(Seconds time) {
    const CivilDate date = CivilFromDay(DayOf(time));
    const auto ofDay = static_cast<int>(TimeOfDay(time));
    icaltimetype ical = icaltime_null_time();
    ical.year = date.Year;
    ical.month = date.Month;
    ical.day = date.Day;
    ical.hour = ofDay / 3600;
    ical.minute = ofDay / 60 % 60;
    ical.second = ofDay % 60;
    return ical;
}

} // namespace tavo::rules

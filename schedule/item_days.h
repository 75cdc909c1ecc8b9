// The days that an item is on.
#pragma once

#include "platform/locale.h"
#include "store/appointment_data.h"

namespace tavo {

// The midnight of its last day. An item that ends at a midnight has the day before as its last.
SYSTEMTIME LastDayOf(const AppointmentData& record, ILocale& locale);

// How many days from one date to the other; times of day are left out.
int DaysBetween(const SYSTEMTIME& from, const SYSTEMTIME& to, ILocale& locale);

// The midnight of the date so many days later.
SYSTEMTIME DayAfter(const SYSTEMTIME& date, int days, ILocale& locale);

} // namespace tavo

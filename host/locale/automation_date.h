// Conversion between automation dates and broken-down times.
#pragma once

#include "platform/system_time.h"

namespace tavo::locale {

constexpr int kFirstAutomationYear = 100;
constexpr int kLastAutomationYear = 9999;

// To the nearest second, carrying over midnight; the weekday is filled in. False outside the years 100 to 9999 and for
// a date that is no number; `time` then stays as it was.
bool VariantTimeToSystemTime(DATE date, SYSTEMTIME& time);

// The weekday is not read; milliseconds are dropped. False for an impossible date or time; `date` then stays as it was.
bool SystemTimeToVariantTime(const SYSTEMTIME& time, DATE& date);

} // namespace tavo::locale

// Dates and times as text, and the conversion of automation dates.
#pragma once

#include "platform/system_time.h"

#include <optional>
#include <string>
#include <string_view>

namespace tavo {

enum class LocaleId { System, User };

class ILocale {
  public:
    virtual ~ILocale() = default;
    // The date in a picture ("yyyy.MM.dd(ddd)"), or with an empty picture the short date (DATE_SHORTDATE). `bufferSize`
    // counts UTF-16 units and the terminating zero. Nothing for an impossible date or a buffer too small.
    virtual std::optional<std::u16string> GetDateFormatW(LocaleId locale, const SYSTEMTIME& date,
                                                         std::u16string_view picture, int bufferSize) = 0;
    // The time in a picture ("tt h':'mm"); the date is ignored. Nothing for an impossible time or a buffer too small.
    virtual std::optional<std::u16string> GetTimeFormatW(LocaleId locale, const SYSTEMTIME& time,
                                                         std::u16string_view picture, int bufferSize) = 0;
    // To the nearest second; the weekday is filled in. False outside the years 100 to 9999.
    virtual bool VariantTimeToSystemTime(DATE date, SYSTEMTIME& time) = 0;
    // The weekday is not read; milliseconds are dropped. False for an impossible date or time.
    virtual bool SystemTimeToVariantTime(const SYSTEMTIME& time, DATE& date) = 0;
};

} // namespace tavo

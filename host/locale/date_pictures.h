// Dates and times as text in United States English, and the short date read back.
#pragma once

#include "host/locale/calendar_math.h"
#include "platform/system_time.h"

#include <optional>
#include <string>
#include <string_view>

namespace tavo::locale {

// Pictures are understood for the years 1601 to 9999, which is what the device's file times can say.
constexpr int kFirstPictureYear = 1601;
constexpr int kLastPictureYear = 9999;

inline constexpr std::u16string_view kShortDatePicture = u"M/d/yyyy";
inline constexpr std::u16string_view kLongTimePicture = u"h:mm:ss tt";

// d dd ddd dddd M MM MMM MMMM y yy yyyy gg, quoted text, anything else as it stands. The weekday is taken from the
// date, not from its field; the time is not looked at. Nothing for an impossible date.
std::optional<std::u16string> FormatDate(const SYSTEMTIME& date, std::u16string_view picture);

// h hh H HH m mm s ss t tt, quoted text, anything else as it stands. The date is not looked at. Nothing for an
// impossible time.
std::optional<std::u16string> FormatTime(const SYSTEMTIME& time, std::u16string_view picture);

} // namespace tavo::locale

// The date and time pictures of all pages, so that they show dates alike.
#pragma once

#include <string_view>

namespace tavo {

// An empty picture asks for the short date of the locale.
constexpr std::u16string_view kPictureShortDate = u"";
constexpr int kShortDateBuffer = 40; // UTF-16 units that a short date in a restriction may take, with its end

constexpr int kDateTimeBuffer = 64; // UTF-16 units; a date or time in any picture below takes fewer, with its end

// Item lists, day list and appointment view.
constexpr std::u16string_view kPictureListDate = u"yyyy.MM.dd(ddd)";
constexpr std::u16string_view kPictureListTime = u"tt h':'mm";
constexpr std::u16string_view kPictureAlarmTime = u"hh:mm tt"; // alarm list only

// Edit dialog; the plain date is the appointment view's too.
constexpr std::u16string_view kPictureEditDate = u"yyyy.MM.dd (ddd)";
constexpr std::u16string_view kPicturePlainDate = u"yyyy.MM.dd";
constexpr std::u16string_view kPictureEditTime = u"hh':'mm tt";
constexpr std::u16string_view kPictureEditTimeSeconds = u"hh':'mm':'ss tt";

// Headers of the calendar and the clock page.
constexpr std::u16string_view kPictureHeaderDate = u"ddd, MMM, dd, yyyy";
constexpr int kHeaderDateBuffer = 20; // UTF-16 units; a date that takes more leaves the header empty

// Digital clock.
constexpr std::u16string_view kPictureClockTime = u"hh:mm";
constexpr std::u16string_view kPictureClockSeconds = u"ss tt";

} // namespace tavo

// The locale's formats, cut to the caller's buffer as the device does it: all or nothing.
#include "host/locale/us_english_locale.h"

#include "host/locale/automation_date.h"
#include "host/locale/date_pictures.h"

#include <utility>

namespace tavo::locale {

namespace {

std::optional<std::u16string> FitBuffer(std::optional<std::u16string> text, int bufferSize) {
    if (!text || std::cmp_greater_equal(text->size(), bufferSize)) {
        return std::nullopt; // one unit is the terminating zero's
    }
    return text;
}

} // namespace

std::optional<std::u16string> UsEnglishLocale::GetDateFormatW(LocaleId /*locale*/, const SYSTEMTIME& date,
                                                              std::u16string_view picture, int bufferSize) {
    return FitBuffer(FormatDate(date, picture.empty() ? kShortDatePicture : picture), bufferSize);
}

std::optional<std::u16string> UsEnglishLocale::GetTimeFormatW(LocaleId /*locale*/, const SYSTEMTIME& time,
                                                              std::u16string_view picture, int bufferSize) {
    return FitBuffer(FormatTime(time, picture.empty() ? kLongTimePicture : picture), bufferSize);
}

bool UsEnglishLocale::VariantTimeToSystemTime(DATE date, SYSTEMTIME& time) {
    return locale::VariantTimeToSystemTime(date, time);
}

bool UsEnglishLocale::SystemTimeToVariantTime(const SYSTEMTIME& time, DATE& date) {
    return locale::SystemTimeToVariantTime(time, date);
}

} // namespace tavo::locale

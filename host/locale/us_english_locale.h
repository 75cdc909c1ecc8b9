// The device's locale: United States English for the system and for the user.
#pragma once

#include "platform/locale.h"

namespace tavo::locale {

class UsEnglishLocale final : public ILocale {
  public:
    std::optional<std::u16string> GetDateFormatW(LocaleId locale, const SYSTEMTIME& date, std::u16string_view picture,
                                                 int bufferSize) override;
    // With an empty picture "h:mm:ss tt".
    std::optional<std::u16string> GetTimeFormatW(LocaleId locale, const SYSTEMTIME& time, std::u16string_view picture,
                                                 int bufferSize) override;
    bool VariantTimeToSystemTime(DATE date, SYSTEMTIME& time) override;
    bool SystemTimeToVariantTime(const SYSTEMTIME& time, DATE& date) override;
};

} // namespace tavo::locale

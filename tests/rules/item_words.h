// Few words for times, items and patterns.
#pragma once

#include "host/rules/stored_item.h"

#include <cstdint>
#include <string>

namespace tavo::rules::test {

// "2026-05-03" or "2026-05-03 14:30[:15]" in the store's seconds and as an automation date.
Seconds At(const std::string& text);
DATE DateAt(const std::string& text);
std::string TextOf(Seconds time); // "2026-05-03 14:30", with seconds where there are any

StoredItem MakeItem(const std::string& uid, const std::string& start, const std::string& end,
                    const std::u16string& subject = u"Imported");
StoredPattern Daily(std::int32_t interval = 1);
StoredPattern Weekly(std::int32_t mask, std::int32_t interval = 1);
StoredPattern Monthly(std::int32_t day, std::int32_t interval = 1);
StoredPattern MonthNth(std::int32_t instance, std::int32_t mask, std::int32_t interval = 1);
StoredPattern Yearly(std::int32_t month, std::int32_t day);
StoredPattern YearNth(std::int32_t month, std::int32_t instance, std::int32_t mask);
StoredPattern Counted(StoredPattern pattern, std::int32_t count);
StoredPattern Until(StoredPattern pattern, const std::string& lastDay);

// A VTIMEZONE such as offices send: Berlin's clock under another name.
inline constexpr const char* kOfficeZone =
    "BEGIN:VTIMEZONE\r\nTZID:Office Standard Time\r\n"
    "BEGIN:STANDARD\r\nDTSTART:16010101T030000\r\nTZOFFSETFROM:+0200\r\n"
    "TZOFFSETTO:+0100\r\nRRULE:FREQ=YEARLY;BYDAY=-1SU;BYMONTH=10\r\nEND:STANDARD\r\n"
    "BEGIN:DAYLIGHT\r\nDTSTART:16010101T020000\r\nTZOFFSETFROM:+0100\r\n"
    "TZOFFSETTO:+0200\r\nRRULE:FREQ=YEARLY;BYDAY=-1SU;BYMONTH=3\r\nEND:DAYLIGHT\r\n"
    "END:VTIMEZONE\r\n";

} // namespace tavo::rules::test

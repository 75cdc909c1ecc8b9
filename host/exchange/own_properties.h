// What only this calendar says of an item, as lines that others pass over.
#pragma once

#include "host/exchange/event_lines.h"
#include "host/rules/stored_item.h"
#include "platform/outlook.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::exchange {

constexpr std::string_view kOwnPrefix = "X-TAVO-";
constexpr std::string_view kOwnRule = "X-TAVO-RULE";
constexpr std::string_view kOwnReminder = "X-TAVO-REMINDER";
constexpr std::string_view kOwnSound = "X-TAVO-SOUND";
constexpr std::string_view kOwnSensitivity = "X-TAVO-SENSITIVITY";
constexpr std::string_view kOwnBusy = "X-TAVO-BUSY";
constexpr std::string_view kOwnAllDay = "X-TAVO-ALLDAY";
constexpr std::string_view kOwnInk = "X-TAVO-INK";
constexpr std::string_view kOwnMemo = "X-TAVO-MEMO";           // the file of a memo of its day
constexpr std::string_view kOwnAlarm = "X-TAVO-ALARM";         // in the alarm that is the item's reminder
constexpr std::string_view kOwnKind = "X-TAVO-KIND";           // a parameter of CATEGORIES
constexpr std::string_view kOwnException = "X-TAVO-EXCEPTION"; // a parameter of EXDATE: beside the item's own rule
constexpr std::string_view kOwnPicture = "X-TAVO-PICTURE";     // a parameter of ATTACH: drawn from the ink
constexpr std::string_view kOwnWhole = "X-TAVO-WHOLE-";        // before lines about the time of a long entry

// A pattern of ours, for the very lines that say it to others: who changed them meant another.
struct OwnRule {
    rules::StoredPattern Pattern;
    rules::DayNumber Start = 0; // of the pattern
};

std::string WriteOwnRule(const OwnRule& rule, std::string_view start, std::string_view value);
// Nothing where there is none, or `start` and `value` (of DTSTART and RRULE) are no longer those it was written for.
std::optional<OwnRule> ReadOwnRule(const LineList& event);

std::string WriteOwnReminder(const rules::StoredItem& item);

// What a reminder says beyond its alarm.
struct OwnReminder {
    bool IsSet = false;
    std::int32_t Minutes = 0;
    std::int32_t Options = 0;
};

std::optional<OwnReminder> ReadOwnReminder(const LineList& event);

// Texts, words and ink of our own.
void ReadOwnTexts(const LineList& event, rules::StoredItem& item);

// Adds the bytes that the text says; what is no Base64 ends it.
void AppendBase64(std::string_view text, std::vector<std::uint8_t>& bytes);

std::string_view NameKind(TagList kind);
// The kind of a line CATEGORIES that says one of ours; nothing of any other.
std::optional<TagList> ReadOwnKind(const rules::ContentLine& line);

} // namespace tavo::exchange

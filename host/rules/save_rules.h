// What the store refuses to keep, and why.
#pragma once

#include "host/rules/stored_item.h"

#include <string_view>

namespace tavo::rules {

constexpr Seconds kLongestAppointment = 31 * kSecondsPerDay;
constexpr std::size_t kMaxInkBytes = 4 << 20;
constexpr std::size_t kMaxTextLength = 1 << 20;           // of all texts together: far beyond what a person writes
constexpr std::size_t kMaxCarriedBytes = 1 << 20;         // lines of another calendar
constexpr std::size_t kMaxCarriedByOccurrence = 64 << 10; // likewise, of one that does not follow the rule

enum class SaveFault {
    None,
    EndBeforeStart,
    TooLong,
    DateOutOfRange,
    BadType,
    BadInterval,
    BadMask,
    BadDayOfMonth,
    BadMonth,
    BadInstance,
    DayNeverInMonth,
    NoOccurrence,
    PatternEndBeforeStart,
    TextTooLong,
    InkTooLarge,
    BadException,
};

// Checks the whole item and works out the missing one of its pattern's count and last day.
SaveFault CheckAndDerive(StoredItem& item);

// What of it holds for one exception alone.
SaveFault CheckException(const StoredException& exception);

// One English phrase, as it follows "refused: ".
std::string_view DescribeFault(SaveFault fault);

} // namespace tavo::rules

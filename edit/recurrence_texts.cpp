// Putting the start's day into the texts.
#include "edit/recurrence_texts.h"

#include "framework/format.h"
#include "store/text_tables.h"

#include <cstddef>

namespace tavo {

std::vector<std::u16string> MakeRecurrenceTexts(const SYSTEMTIME& start) {
    const auto weekday = static_cast<std::size_t>(start.DayOfWeek % kDayNames.size());
    const std::u16string_view day = kDayAbbrevs[weekday];
    const std::u16string_view ordinal =
        kOrdinalNames[static_cast<std::size_t>((start.Day - 1) / 7) % kOrdinalNames.size()];
    const std::u16string_view month = kMonthAbbrevs[static_cast<std::size_t>(start.Month - 1) % kMonthAbbrevs.size()];
    return {
        std::u16string(kRecurChoiceNames[kChoiceNameOnce]),
        std::u16string(kRecurChoiceNames[kChoiceNameEveryday]),
        FormatText(u"Every %s", kDayNames[weekday]),
        std::u16string(kRecurChoiceNames[kChoiceNameWeekdays]),
        FormatText(u"Day %d of every month", start.Day),
        FormatText(u"The %s %s of every month", ordinal, day),
        FormatText(u"%s %d of every year", month, start.Day),
        FormatText(u"The %s %s of every %s", ordinal, day, month),
        std::u16string(kRecurChoiceNames[kChoiceNameEditPattern]),
    };
}

} // namespace tavo

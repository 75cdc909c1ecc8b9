// The program's fixed vocabulary: days, months, item kinds and recurrence choices.
#pragma once

#include <array>
#include <string_view>

namespace tavo {

// By the recurrence choices that have a fixed text.
constexpr std::array<std::u16string_view, 4> kRecurChoiceNames{u"Once", u"Everyday", u"Weekdays(Mon-Fri)",
                                                               u"<Edit Pattern...>"};
constexpr std::size_t kChoiceNameOnce = 0;
constexpr std::size_t kChoiceNameEveryday = 1;
constexpr std::size_t kChoiceNameWeekdays = 2;
constexpr std::size_t kChoiceNameEditPattern = 3;

// By the day of week, 0 Sunday.
constexpr std::array<std::u16string_view, 7> kDayNames{u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                                       u"Thursday", u"Friday", u"Saturday"};
constexpr std::array<std::u16string_view, 7> kDayAbbrevs{u"Sun.", u"Mon.", u"Tue.", u"Wed.", u"Thu.", u"Fri.", u"Sat."};

// By the week of the month less one; the fifth is the last.
constexpr std::array<std::u16string_view, 5> kOrdinalNames{u"1st", u"2nd", u"3rd", u"4th", u"last"};

// By the month less one.
// Kept on purpose: "May." carries a full stop like the other months.
constexpr std::array<std::u16string_view, 12> kMonthAbbrevs{u"Jan.", u"Feb.", u"Mar.", u"Apr.", u"May.", u"Jun.",
                                                            u"Jul.", u"Aug.", u"Sep.", u"Oct.", u"Nov.", u"Dec."};

// By item kind.
// Kept on purpose: the ordinary kind is named differently in headings, in empty lists and in captions.
constexpr std::array<std::u16string_view, 4> kKindNames{u"Alarm", u"Holiday", u"Anniversary", u"Appointment"};
constexpr std::array<std::u16string_view, 4> kEmptyListTexts{u"No registered alarm", u"No registered holiday",
                                                             u"No registered anniversary", u"No schedule"};
constexpr std::array<std::u16string_view, 5> kKindCaptions{u"Alarm:", u"Holiday:", u"Anniversary:", u"Schedule:",
                                                           u"Memo:"};

} // namespace tavo

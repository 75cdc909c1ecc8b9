// Texts that several pages and dialogs show.
#pragma once

#include <string_view>

namespace tavo {

constexpr std::u16string_view kProgramTitle = u"Tavo Calendar"; // window title and caption of application messages
constexpr std::u16string_view kMainWindowClass = u"WCE_TavoCalendar";
constexpr std::u16string_view kRegistryCompany = u"Zorbex";

// Of the profile: whether the hint of a first start was on show.
constexpr std::u16string_view kHelpSection = u"help";
constexpr std::u16string_view kHintSeen = u"hintSeen";

constexpr std::u16string_view kDeleteCaption = u"Delete";
constexpr std::u16string_view kDeleteQuestion = u"Are you sure to delete?";
constexpr std::u16string_view kItemNotDeleted = u"The item could not be deleted.";
constexpr std::u16string_view kMemoUnreadable = u"This memo could not be read.";

} // namespace tavo

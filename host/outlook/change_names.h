// What undo calls the changes of single items.
#pragma once

#include <string_view>

namespace tavo::outlook {

constexpr std::u16string_view kNameOfNew = u"New appointment";
constexpr std::u16string_view kNameOfChange = u"Change of an appointment";
constexpr std::u16string_view kNameOfDeletion = u"Deletion of an appointment";
constexpr std::u16string_view kNameOfRestoring = u"Restoring of an appointment";

} // namespace tavo::outlook

// Other programs of the device that this one starts.
#pragma once

#include <string_view>

namespace tavo {

constexpr std::u16string_view kClockProgram = u"\\Windows\\Clock.exe";
constexpr std::u16string_view kCompanionProgram = u"\\Program Files\\Zorbex\\TavoCalendar\\RSound.exe";

} // namespace tavo

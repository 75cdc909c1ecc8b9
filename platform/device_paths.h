// Places of the device that more than one part of the system knows.
#pragma once

#include <string_view>

namespace tavo {

constexpr std::u16string_view kDocumentsFolder = u"\\My Documents";
constexpr std::u16string_view kDataFolder = u"\\My Documents\\TavoCalendar"; // the program's own
constexpr std::u16string_view kCategoryFileName = u"TavoCalendar.dat";       // in it

constexpr std::u16string_view kSoundFolder = u"\\Windows\\";
constexpr std::u16string_view kSoundPattern = u"\\Windows\\*.wav"; // which of its files are taken for a sound

// Other programs that the program starts.
constexpr std::u16string_view kClockProgram = u"\\Windows\\Clock.exe";
constexpr std::u16string_view kCompanionProgram = u"\\Program Files\\Zorbex\\TavoCalendar\\RSound.exe";

} // namespace tavo

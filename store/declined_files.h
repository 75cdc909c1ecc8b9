// What the person did not want back after an end that nobody wanted.
#pragma once

#include "platform/files.h"

#include <string_view>

namespace tavo {

// Where what might get lost waits until a person is asked about it.
inline constexpr std::u16string_view kRecoveryFolder = u"\\Recovery";

// Moves the file to the folder of declined ones, under its own name or, where an earlier one has that, with a number
// before it. A file that cannot be read or written there stays where it is.
void PutToDeclined(IFiles& files, std::u16string_view path);

} // namespace tavo

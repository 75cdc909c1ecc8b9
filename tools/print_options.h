// The words of `tavo print`.
#pragma once

#include "tools/calendar_day.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tavo::tools {

enum class PrintWhat { Month, Week, Day, List };

struct PrintOptions {
    std::string File;
    PrintWhat What = PrintWhat::Month;
    Day First;                  // of what is printed, or in it
    Day Last;                   // of a list
    std::string Paper = "auto"; // or a4 or letter
    bool Help = false;
};

// Nothing, with a sentence in `error`, when the words make no sense.
std::optional<PrintOptions> ParsePrint(std::span<const std::string_view> words, std::string& error);

extern const std::string_view kPrintHelp;

} // namespace tavo::tools

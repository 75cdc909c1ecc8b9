// How long something lasts, as people write it: "90", "1h30", "45 min", "3 days".
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavo::tools {

struct Length {
    int Minutes = 0;
    bool IsDays = false; // written in days and weeks alone
};

// A number alone is minutes. Nothing, with a sentence in `error`, for no length, none at all, and more than a year.
std::optional<Length> ReadLength(std::string_view text, std::string& error);

} // namespace tavo::tools

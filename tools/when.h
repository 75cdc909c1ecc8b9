// Days and times as people write them: "tomorrow 15:00", "next fri", "1 dec", "in 2 weeks".
#pragma once

#include "tools/calendar_day.h"

#include <optional>
#include <string>
#include <string_view>

namespace tavo::tools {

// A day, a time of the day, or both.
struct When {
    std::optional<Day> Date;
    std::optional<int> Minute; // of the day: 0 to 1439
};

// Reads it as meant at the moment `now`. Nothing with a sentence in `error` for what cannot be, names no day or time,
// or could mean two days: the sentence quotes the text, says which part it is, and how it could be written.
std::optional<When> ReadWhen(std::string_view text, const Moment& now, std::string& error);

} // namespace tavo::tools

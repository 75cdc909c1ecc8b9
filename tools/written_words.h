// What all readers of written days, lengths and rules have in common: words, numbers, names and units.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::tools {

// In small letters, without the blanks and commas between them and the points and commas at their ends.
std::vector<std::string> SplitWords(std::string_view text);

// How many digits the text begins with.
std::size_t CountDigits(std::string_view text);
// Nothing but digits, of which there may be eight.
std::optional<int> ReadWholeNumber(std::string_view text);

// By a name in small letters or what it begins with, three letters at least. 0 is Sunday, and -1 none.
int FindWeekday(std::string_view name);
// 1 to 12; 0 is none.
int FindMonth(std::string_view name);

enum class Unit { Minute, Hour, Day, Week, Month, Year };

// By a name or its sign: "d", "day", "days". "m" is a month, and a minute "min".
std::optional<Unit> FindUnit(std::string_view name);

// The known name that a mistyped one was probably meant to be; empty for none.
std::string_view FindNearest(std::string_view mistyped, std::span<const std::string_view> known);

} // namespace tavo::tools

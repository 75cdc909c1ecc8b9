// A path of the device taken apart and checked.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::files {

enum class WildcardRule { Refuse, AllowInLastPart };

// The parts of "\My Documents\x" without separators; doubled separators count as one, "\" has no parts. Nothing when
// the path does not begin with "\", is longer than 259 units, or a part is no name: "." and "..", the characters / : "
// < > | * ?, control characters, half a surrogate pair, or the form of our own unfinished files.
std::optional<std::vector<std::u16string>> ParseDevicePath(std::u16string_view path,
                                                           WildcardRule wildcards = WildcardRule::Refuse);

bool IsDeviceName(std::u16string_view name);

// An unfinished replacement is written under a name with this beginning; the device never sees such files.
inline constexpr std::string_view kUnfinishedPrefix = ".~tavo-";

// "*" is any run of units, "?" any single one. Both texts folded already.
bool MatchesPattern(std::u16string_view folded, std::u16string_view pattern);

} // namespace tavo::files

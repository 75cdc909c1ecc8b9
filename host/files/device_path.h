// A path of the device taken apart and checked, and patterns of names.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::files {

enum class WildcardRule { Refuse, AllowInLastPart };

// The parts of "\My Documents\x" without separators; doubled separators count as one, "\" has no parts. Nothing when
// the path does not begin with "\", is longer than 259 units, or a part is no name.
std::optional<std::vector<std::u16string>> ParseDevicePath(std::u16string_view path,
                                                           WildcardRule wildcards = WildcardRule::Refuse);

// Not empty, not "." or "..", none of \ / : " < > | * ?, no control character, no half of a surrogate pair, and not the
// form of our own unfinished files.
bool IsDeviceName(std::u16string_view name);

// "*" is any run of units, "?" any single one. Both texts without case already.
bool MatchesPattern(std::u16string_view folded, std::u16string_view pattern);

} // namespace tavo::files

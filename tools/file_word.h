// Files as command lines name them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavo::tools {

// The path that the word means: itself, or what a file:// address of this machine names. Nothing, with a sentence in
// `error`, for an address of another machine or one that cannot be read.
std::optional<std::string> ReadPath(std::string_view word, std::string& error);

} // namespace tavo::tools

// Every command of `tavo` by its name.
#pragma once

#include <span>
#include <string_view>

namespace tavo::tools {

using Words = std::span<const std::string_view>;

struct Command {
    std::string_view Name;
    std::string_view Help; // the whole text
    // Gives the exit status. `words` are those behind the name.
    int (*Run)(Words words, const Command& command);
};

// Null when there is none of that name.
const Command* FindCommand(std::string_view name);

// The command that was probably meant by a mistyped name; "" for none.
std::string_view FindMeant(std::string_view mistyped);

} // namespace tavo::tools

// The programs beside this one that know what needs a toolkit.
#pragma once

#include <string>
#include <vector>

namespace tavo::tools {

// Becomes that program, with these words. Only comes back when it cannot be started, which is said.
int RunHelper(const std::string& name, std::vector<std::string> words);

} // namespace tavo::tools

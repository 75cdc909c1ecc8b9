// What the program was told when it was started.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::qt {

struct CommandLine {
    enum class Wish { Run, Help, Version, Refusal };

    Wish Wanted = Wish::Run;
    std::string Problem = {};            // of a refusal, one sentence
    bool NamesPlatform = false;          // the toolkit is told what to show its windows on
    std::int32_t NewItem = 0;            // a NewItemWish, or 0
    std::vector<std::string> Files = {}; // calendar files to be imported, as absolute paths
};

// `arguments`: without the program's own name. The toolkit's options -platform, -display and -session pass; what has no
// dash is a file.
CommandLine ReadCommandLine(std::span<char* const> arguments);

extern const std::string_view kHelpText;
extern const std::string_view kVersionText;

} // namespace tavo::qt

// What the program was told when it was started.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tavo::qt {

struct CommandLine {
    enum class Wish { Run, Help, Version, Refusal };

    Wish Wanted = Wish::Run;
    std::string Problem = {};   // of a refusal, one sentence
    bool NamesPlatform = false; // the toolkit is told what to show its windows on
};

// `arguments`: without the program's own name. The toolkit's options -platform, -display and -session pass.
CommandLine ReadCommandLine(std::span<char* const> arguments);

extern const std::string_view kHelpText;
extern const std::string_view kVersionText;

} // namespace tavo::qt

// In the place of this process, so that its exit status is the helper's.
#include "tools/helper_program.h"

#include "host/posix/installed_parts.h"
#include "tools/arguments.h"
#include "tools/device.h"

#include <cerrno>
#include <cstring>

#include <unistd.h>

namespace tavo::tools {

int RunHelper(const std::string& name, std::vector<std::string> words) {
    const std::string program = posix::FindProgram(posix::RunningProgramFolder(), name);
    words.insert(words.begin(), program);
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    execv(program.c_str(), arguments.data());
    Complain("The program " + program + " cannot be started: " + std::strerror(errno) +
             ". It comes with the calendar's window.");
    return kExitFailure;
}

} // namespace tavo::tools

// The command `tavo`: finds the command that is meant and runs it.
#include "host/outlook/store.h"
#include "tools/arguments.h"
#include "tools/command_list.h"
#include "tools/device.h"
#include "tools/help.h"
#include "tools/output.h"

#include <exception>
#include <string>
#include <vector>

namespace {

using namespace tavo::tools;

int RefuseCommand(std::string_view name) {
    const std::string what = name.starts_with('-') ? "There is no option " : "There is no command ";
    const std::string_view meant = FindMeant(name);
    return RefuseWords(
        what + std::string(name) + "." + (meant.empty() ? "" : " Did you mean " + std::string(meant) + "?"), "");
}

// `words` may name a command.
int Help(Words words) {
    if (words.empty() || words.front().starts_with('-')) {
        return Print(kGeneralHelp);
    }
    const Command* command = FindCommand(words.front());
    return command == nullptr ? RefuseCommand(words.front()) : Print(command->Help);
}

int RunCommand(Words words) {
    if (words.empty()) {
        return RefuseWords("Say what to do.", "");
    }
    const std::string_view name = words.front();
    const Words rest = words.subspan(1);
    if (name == "--help" || name == "-h" || name == "help") {
        return Help(rest);
    }
    if (name == "--version" || name == "-v" || name == "-V") {
        return Print(kVersionText);
    }
    const Command* command = FindCommand(name);
    return command == nullptr ? RefuseCommand(name) : command->Run(rest, *command);
}

} // namespace

int main(int count, char** arguments) {
    tavo::outlook::PrepareStores(tavo::outlook::StoreUse::Command);
    try {
        const std::vector<std::string_view> words(arguments + 1, arguments + count);
        return RunCommand(words);
    } catch (const std::exception& problem) {
        Complain(std::string("The command failed: ") + problem.what() + ".");
        return kExitFailure;
    }
}

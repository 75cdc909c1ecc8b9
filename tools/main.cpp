// The command `tavo`: finds the command that is meant and runs it.
#include "host/outlook/store.h"
#include "tools/arguments.h"
#include "tools/commands.h"
#include "tools/device.h"
#include "tools/help.h"
#include "tools/output.h"

#include <cstdio>
#include <exception>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace tavo::tools;

using Words = std::span<const std::string_view>;

int Print(std::string_view text) {
    Output output;
    output.Write(text);
    return output.Finish() ? kExitSuccess : kExitFailure;
}

int Refuse(const std::string& sentence, std::string_view help) {
    Complain(sentence);
    std::fprintf(stderr, "Try `%.*s`.\n", static_cast<int>(help.size()), help.data());
    return kExitUsage;
}

int RunCommand(Words words) {
    if (words.empty()) {
        return Refuse("Say what to do.", "tavo --help");
    }
    const std::string_view command = words.front();
    const Words rest = words.subspan(1);
    std::string error;
    if (command == "--help" || command == "-h" || command == "help") {
        return Print(kGeneralHelp);
    }
    if (command == "--version") {
        return Print(kVersionText);
    }
    if (command == "add") {
        const std::optional<ItemOptions> options = ParseAdd(rest, error);
        if (options && options->Help) {
            return Print(kAddHelp);
        }
        const std::optional<ItemPlan> plan = options ? PlanItem(*options, error) : std::nullopt;
        return plan ? RunAdd(*options, *plan) : Refuse(error, "tavo add --help");
    }
    if (command == "agenda") {
        const std::optional<AgendaOptions> options = ParseAgenda(rest, error);
        if (!options) {
            return Refuse(error, "tavo agenda --help");
        }
        return options->Help ? Print(kAgendaHelp) : RunAgenda(*options);
    }
    if (command == "import") {
        const std::optional<ImportOptions> options = ParseImport(rest, error);
        if (!options) {
            return Refuse(error, "tavo import --help");
        }
        return options->Help ? Print(kImportHelp) : RunImport(*options);
    }
    if (command == "export") {
        const std::optional<ExportOptions> options = ParseExport(rest, error);
        if (!options) {
            return Refuse(error, "tavo export --help");
        }
        return options->Help ? Print(kExportHelp) : RunExport(*options);
    }
    if (command == "backup") {
        const std::optional<BackupOptions> options = ParseBackup(rest, error);
        if (!options) {
            return Refuse(error, "tavo backup --help");
        }
        return options->Help ? Print(kBackupHelp) : RunBackup(*options);
    }
    if (command == "restore-backup") {
        const std::optional<BackupOptions> options = ParseRestore(rest, error);
        if (!options) {
            return Refuse(error, "tavo restore-backup --help");
        }
        return options->Help ? Print(kRestoreHelp) : RunRestore(*options);
    }
    if (command == "check") {
        const std::optional<CheckOptions> options = ParseCheck(rest, error);
        if (!options) {
            return Refuse(error, "tavo check --help");
        }
        return options->Help ? Print(kCheckHelp) : RunCheck();
    }
    if (command == "reminders") {
        const std::optional<RemindersOptions> options = ParseReminders(rest, error);
        if (!options) {
            return Refuse(error, "tavo reminders --help");
        }
        return options->Help ? Print(kRemindersHelp) : RunReminders(*options);
    }
    if (command == "memo") {
        const std::optional<MemoOptions> options = ParseMemo(rest, error);
        if (!options) {
            return Refuse(error, "tavo memo --help");
        }
        return options->Help ? Print(kMemoHelp) : RunMemo(*options);
    }
    return Refuse((command.starts_with('-') ? "There is no option " : "There is no command ") + std::string(command) +
                      ".",
                  "tavo --help");
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

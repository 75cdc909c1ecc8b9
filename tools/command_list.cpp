// Each command: how its words are read, what it says of itself, and what runs it.
#include "tools/command_list.h"

#include "tools/commands.h"
#include "tools/device.h"
#include "tools/help.h"
#include "tools/output.h"
#include "tools/written_words.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace tavo::tools {
namespace {

template <auto Parse, auto RunParsed> int Run(Words words, const Command& command) {
    std::string error;
    const auto options = Parse(words, error);
    if (!options) {
        return RefuseWords(error, command.Name);
    }
    return options->Help ? Print(command.Help) : RunParsed(*options);
}

const std::array kCommands = {
    Command{"add", kAddHelp, Run<ParseAdd, RunAdd>},
    Command{"edit", kEditHelp, Run<ParseEdit, RunEdit>},
    Command{"delete", kDeleteHelp, Run<ParseDelete, RunDelete>},
    Command{"show", kShowHelp, Run<ParseShow, RunShow>},
    Command{"find", kFindHelp, Run<ParseFind, RunFind>},
    Command{"today", kTodayHelp, Run<ParseToday, RunAgenda>},
    Command{"week", kWeekHelp, Run<ParseWeek, RunAgenda>},
    Command{"month", kMonthHelp, Run<ParseMonth, RunMonth>},
    Command{"agenda", kAgendaHelp, Run<ParseAgenda, RunAgenda>},
    Command{"history", kHistoryHelp, Run<ParseHistory, RunHistory>},
    Command{"undo", kUndoHelp, Run<ParseUndo, RunUndo>},
    Command{"restore", kRestoreItemsHelp, Run<ParseRestoreItems, RunRestoreItems>},
    Command{"import", kImportHelp, Run<ParseImport, RunImport>},
    Command{"export", kExportHelp, Run<ParseExport, RunExport>},
    Command{"print", kPrintHelp, Run<ParsePrint, RunPrint>},
    Command{"memo", kMemoHelp, Run<ParseMemo, RunMemo>},
    Command{"reminders", kRemindersHelp, Run<ParseReminders, RunReminders>},
    Command{"backup", kBackupHelp, Run<ParseBackup, RunBackup>},
    Command{"restore-backup", kRestoreHelp, Run<ParseRestore, RunRestore>},
    Command{"check", kCheckHelp, Run<ParseCheck, RunCheck>},
};

} // namespace

const Command* FindCommand(std::string_view name) {
    const auto found = std::find_if(kCommands.begin(), kCommands.end(),
                                    [name](const Command& command) { return command.Name == name; });
    return found == kCommands.end() ? nullptr : &*found;
}

std::string_view FindMeant(std::string_view mistyped) {
    std::vector<std::string_view> names;
    names.reserve(kCommands.size());
    for (const Command& command : kCommands) {
        names.push_back(command.Name);
    }
    return FindNearest(mistyped, names);
}

} // namespace tavo::tools

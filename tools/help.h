// What `tavo --help` and `tavo COMMAND --help` say.
#pragma once

#include <string_view>

namespace tavo::tools {

extern const std::string_view kGeneralHelp;
extern const std::string_view kAddHelp;
extern const std::string_view kEditHelp;
extern const std::string_view kDeleteHelp;
extern const std::string_view kShowHelp;
extern const std::string_view kFindHelp;
extern const std::string_view kTodayHelp;
extern const std::string_view kWeekHelp;
extern const std::string_view kMonthHelp;
extern const std::string_view kImportHelp;
extern const std::string_view kExportHelp;
extern const std::string_view kAgendaHelp;
extern const std::string_view kHistoryHelp;
extern const std::string_view kUndoHelp;
extern const std::string_view kRestoreItemsHelp;
extern const std::string_view kCheckHelp;
extern const std::string_view kMemoHelp;
extern const std::string_view kRemindersHelp;
extern const std::string_view kVersionText;

} // namespace tavo::tools

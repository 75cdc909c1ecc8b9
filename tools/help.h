// What `tavo --help` and `tavo COMMAND --help` say.
#pragma once

#include <string_view>

namespace tavo::tools {

extern const std::string_view kGeneralHelp;
extern const std::string_view kAddHelp;
extern const std::string_view kImportHelp;
extern const std::string_view kExportHelp;
extern const std::string_view kAgendaHelp;
extern const std::string_view kCheckHelp;
extern const std::string_view kMemoHelp;
extern const std::string_view kRemindersHelp;
extern const std::string_view kVersionText;

} // namespace tavo::tools

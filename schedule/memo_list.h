// All memo files of the data folder.
#pragma once

#include "store/program_state.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavo {

// Their names, without the folder, in the order in which the device finds them.
std::vector<std::u16string> FindAllMemos(CProgramState& state);

// The device keeps it in its Deleted folder for a while. A file that cannot be deleted stays.
void DeleteMemo(CProgramState& state, std::u16string_view name);

} // namespace tavo

// All memo files of the data folder.
#pragma once

#include "store/program_state.h"

#include <string>
#include <vector>

namespace tavo {

// Their names, without the folder, in the order in which the device finds them.
std::vector<std::u16string> FindAllMemos(CProgramState& state);

} // namespace tavo

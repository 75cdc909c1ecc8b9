// TavoCalendar.dat: the file in which the category lists outlive the program.
#pragma once

#include "platform/outlook.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace tavo {

struct CProgramState;

// Alarm, Holiday, Anniversary.
using CategoryFileLists = std::array<std::vector<Oid>, 3>;

// Takes the bytes of the file apart. False when they are cut or malformed; the lists hold what came before the fault.
bool DecodeCategoryFile(std::span<const std::uint8_t> bytes, CategoryFileLists& lists);

// Fills the lists from the file, making the folder and an empty file where there is none, and carries out the tags
// asked for from outside. Shows a message and gives false when the file is corrupt or cannot be had.
bool LoadCategoryFile(CProgramState& state);

// Writes the lists. Shows a message and gives false when the file cannot be written.
bool SaveCategoryFile(CProgramState& state);

} // namespace tavo

// The bytes of TavoCalendar.dat, apart from where they lie.
#pragma once

#include "platform/outlook.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace tavo {

// Alarm, Holiday, Anniversary.
using CategoryFileLists = std::array<std::vector<Oid>, 3>;

// Takes the bytes of the file apart. False when they are cut or malformed; the lists hold what came before the fault.
bool DecodeCategoryFile(std::span<const std::uint8_t> bytes, CategoryFileLists& lists);

std::vector<std::uint8_t> EncodeCategoryFile(std::span<const Oid> alarms, std::span<const Oid> holidays,
                                             std::span<const Oid> anniversaries);

} // namespace tavo

// The kinds of items the user tells apart.
#pragma once

#include <cstddef>

namespace tavo {

// Indexes the text tables. An appointment's kind follows from the category lists; Appointment is every untagged one.
enum class ItemKind { Alarm = 0, Holiday = 1, Anniversary = 2, Appointment = 3, Memo = 4 };

constexpr std::size_t IndexOf(ItemKind kind) {
    return static_cast<std::size_t>(kind);
}

} // namespace tavo

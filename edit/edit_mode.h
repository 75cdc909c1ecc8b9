// What the edit dialog is opened for.
#pragma once

#include "store/item_kind.h"

#include <cstdint>

namespace tavo {

// Even: a new item; odd: an existing one. Half of it is the kind.
constexpr std::int32_t kModeNewAlarm = 0;
constexpr std::int32_t kModeAlarm = 1;
constexpr std::int32_t kModeNewHoliday = 2;
constexpr std::int32_t kModeHoliday = 3;
constexpr std::int32_t kModeNewAnniversary = 4;
constexpr std::int32_t kModeAnniversary = 5;
constexpr std::int32_t kModeNewAppointment = 6;
constexpr std::int32_t kModeAppointment = 7;

constexpr bool IsNewItem(std::int32_t mode) {
    return mode % 2 == 0;
}

constexpr ItemKind KindOfMode(std::int32_t mode) {
    return static_cast<ItemKind>(mode / 2);
}

constexpr std::int32_t ModeOfNew(ItemKind kind) {
    return static_cast<std::int32_t>(kind) * 2;
}

constexpr std::int32_t ModeOfExisting(ItemKind kind) {
    return ModeOfNew(kind) + 1;
}

// Holidays and anniversaries are days: they have no times.
constexpr bool IsDayKind(ItemKind kind) {
    return kind == ItemKind::Holiday || kind == ItemKind::Anniversary;
}

} // namespace tavo

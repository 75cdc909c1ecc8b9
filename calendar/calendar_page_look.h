// Colours and places of the month page, and the bits by which a cell remembers what is marked in it.
#pragma once

#include "platform/geometry.h"
#include "store/item_kind.h"

#include <cstdint>

namespace tavo {

constexpr Color kPageBackground = Color::FromRgb(255, 255, 255);
constexpr Color kTodayBackground = Color::FromRgb(204, 204, 204);
constexpr Color kSelectedBackground = Color::FromRgb(70, 163, 250);
constexpr Color kSelectedNumber = Color::FromRgb(255, 255, 255);
constexpr Color kSundayNumber = Color::FromRgb(255, 0, 0);
constexpr Color kHolidayNumber = Color::FromRgb(255, 0, 0);
constexpr Color kSaturdayNumber = Color::FromRgb(70, 163, 250);
constexpr Color kWeekdayNumber = Color::FromRgb(0, 0, 0);
constexpr Color kOtherMonthNumber = Color::FromRgb(150, 150, 150);
constexpr Color kHeaderDate = Color::FromRgb(0, 0, 0);
constexpr Color kGridLine = Color::FromRgb(0, 0, 0);
constexpr Color kAlarmMark = Color::FromRgb(0, 0, 255);
constexpr Color kHolidayMark = Color::FromRgb(255, 0, 0);
constexpr Color kAnniversaryMark = Color::FromRgb(255, 0, 255);
constexpr Color kAppointmentMark = Color::FromRgb(255, 255, 0);
constexpr Color kMemoMark = Color::FromRgb(0, 255, 0);

constexpr Rect kTodayButton = Rect::FromSize(205, 5, 26, 26);
constexpr Rect kTodayHit{206, 6, 231, 31};
constexpr int kCellIndent = 2; // from a cell's left edge to its number and its first mark
constexpr int kMarkHeight = 4;

constexpr std::uint8_t KindBit(ItemKind kind) {
    return static_cast<std::uint8_t>(1U << static_cast<unsigned>(kind));
}

} // namespace tavo

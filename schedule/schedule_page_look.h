// The places of the Schedule page.
#pragma once

#include "platform/geometry.h"

namespace tavo {

constexpr Rect kTitleArea{40, 0, 220, 37};
constexpr Rect kKindIcon = Rect::FromSize(10, 6, 25, 25);
constexpr Rect kPreviousArrow = Rect::FromSize(170, 12, 16, 16);
constexpr Rect kNextArrow = Rect::FromSize(188, 12, 16, 16);
constexpr Rect kNewButton = Rect::FromSize(210, 8, 26, 26);
constexpr Rect kNewHit{211, 9, 236, 34}; // a pixel inside

constexpr int kListWidth = 225;
constexpr int kBarWidth = 15;
constexpr Rect kListPlace = Rect::FromSize(0, 37, kListWidth, 204);
constexpr Rect kAppointmentPlace = Rect::FromSize(0, 71, kListWidth, 170);

// Side by side between the header and the list.
constexpr Rect kPeriodStartPlace = Rect::FromSize(4, 41, 114, 26);
constexpr Rect kPeriodEndPlace = Rect::FromSize(122, 41, 114, 26);

// Where the stylus hits: the edges themselves do not count.
constexpr bool Hits(const Rect& area, Point point) {
    return point.X > area.Left && point.X < area.Right && point.Y > area.Top && point.Y < area.Bottom;
}

} // namespace tavo

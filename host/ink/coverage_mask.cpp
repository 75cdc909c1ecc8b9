// The distance from a line, pixel by pixel.
#include "host/ink/coverage_mask.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace tavo::ink {

PixelBox PixelBox::United(const PixelBox& other) const {
    if (IsEmpty() || other.IsEmpty()) {
        return IsEmpty() ? other : *this;
    }
    return {std::min(Left, other.Left), std::min(Top, other.Top), std::max(Right, other.Right),
            std::max(Bottom, other.Bottom)};
}

PixelBox PixelBox::Cut(const PixelBox& other) const {
    return {std::max(Left, other.Left), std::max(Top, other.Top), std::min(Right, other.Right),
            std::min(Bottom, other.Bottom)};
}

void CoverageMask::Resize(int width, int height) {
    Columns = width;
    Rows = height;
    Values.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0);
}

void CoverageMask::Clear(const PixelBox& area) {
    const PixelBox inside = area.Cut({0, 0, Columns, Rows});
    for (int y = inside.Top; y < inside.Bottom && !inside.IsEmpty(); ++y) {
        std::memset(Row(y) + inside.Left, 0, static_cast<std::size_t>(inside.Right - inside.Left));
    }
}

void CoverageMask::AddLine(const Nib& from, const Nib& to, const PixelBox& clip) {
    const float reach = std::max(from.Radius, to.Radius) + 0.5F;
    const PixelBox wanted{static_cast<int>(std::floor(std::min(from.X, to.X) - reach)),
                          static_cast<int>(std::floor(std::min(from.Y, to.Y) - reach)),
                          static_cast<int>(std::ceil(std::max(from.X, to.X) + reach)),
                          static_cast<int>(std::ceil(std::max(from.Y, to.Y) + reach))};
    const PixelBox box = wanted.Cut(clip).Cut({0, 0, Columns, Rows});
    if (box.IsEmpty()) {
        return;
    }
    const float alongX = to.X - from.X;
    const float alongY = to.Y - from.Y;
    const float square = alongX * alongX + alongY * alongY;
    const float perSquare = square > 1e-6F ? 1 / square : 0;
    const float growth = to.Radius - from.Radius;
    for (int y = box.Top; y < box.Bottom; ++y) {
        std::uint8_t* const row = Row(y);
        const float offsetY = static_cast<float>(y) + 0.5F - from.Y;
        for (int x = box.Left; x < box.Right; ++x) {
            const float offsetX = static_cast<float>(x) + 0.5F - from.X;
            const float part = std::clamp((offsetX * alongX + offsetY * alongY) * perSquare, 0.0F, 1.0F);
            const float awayX = offsetX - part * alongX;
            const float awayY = offsetY - part * alongY;
            const float distance = std::sqrt(awayX * awayX + awayY * awayY);
            const float covered = std::clamp(from.Radius + part * growth + 0.5F - distance, 0.0F, 1.0F);
            // Never negative, and a call for each pixel would be felt.
            const auto value = static_cast<std::uint8_t>(covered * 255 + 0.5F); // NOLINT(bugprone-incorrect-roundings)
            row[x] = std::max(row[x], value);
        }
    }
}

} // namespace tavo::ink

// Filling, moving and inking pixels.
#include "host/ink/picture.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace tavo::ink {
namespace {

constexpr std::uint32_t kFull = 255;

} // namespace

void Picture::Fill(const PixelBox& area, Pixel color) {
    const PixelBox inside = area.Cut(Whole());
    for (int y = inside.Top; y < inside.Bottom && !inside.IsEmpty(); ++y) {
        std::fill(Row(y) + inside.Left, Row(y) + inside.Right, color);
    }
}

void Picture::Copy(const Picture& from, const PixelBox& area) {
    const PixelBox inside = area.Cut(Whole());
    for (int y = inside.Top; y < inside.Bottom && !inside.IsEmpty(); ++y) {
        std::copy(from.Row(y) + inside.Left, from.Row(y) + inside.Right, Row(y) + inside.Left);
    }
}

void Picture::ScrollUp(int rows) {
    const int kept = Rows - std::abs(rows);
    if (kept > 0) {
        std::memmove(Row(std::max(-rows, 0)), Row(std::max(rows, 0)),
                     static_cast<std::size_t>(kept) * static_cast<std::size_t>(Columns) * sizeof(Pixel));
    }
}

void Picture::Blend(const PixelBox& area, Pixel ink, const CoverageMask& mask, const CoverageMask* second) {
    const PixelBox inside = area.Cut(Whole());
    for (int y = inside.Top; y < inside.Bottom && !inside.IsEmpty(); ++y) {
        Pixel* const row = Row(y);
        const std::uint8_t* const covered = mask.Row(y);
        const std::uint8_t* const more = second == nullptr ? covered : second->Row(y);
        for (int x = inside.Left; x < inside.Right; ++x) {
            const std::uint32_t share = std::max(covered[x], more[x]);
            if (share == kFull) {
                row[x] = ink;
            } else if (share != 0) {
                row[x] = MixPixels(row[x], ink, share);
            }
        }
    }
}

} // namespace tavo::ink

// Filling, moving and inking pixels.
#include "host/ink/picture.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace tavo::ink {
namespace {

constexpr std::uint32_t kFull = 255;

// One of the three colours in both, by their share of 255.
constexpr std::uint32_t Mix(std::uint32_t under, std::uint32_t over, std::uint32_t share) {
    const std::uint32_t sum = over * share + under * (kFull - share) + 128;
    return (sum + (sum >> 8)) >> 8;
}

constexpr Pixel MixPixels(Pixel under, Pixel over, std::uint32_t share) {
    return 0xFF000000U | Mix((under >> 16) & 0xFF, (over >> 16) & 0xFF, share) << 16 |
           Mix((under >> 8) & 0xFF, (over >> 8) & 0xFF, share) << 8 | Mix(under & 0xFF, over & 0xFF, share);
}

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

// Real pixels of paper.
#pragma once

#include "host/ink/coverage_mask.h"
#include "platform/geometry.h"

#include <cstdint>
#include <vector>

namespace tavo::ink {

using Pixel = std::uint32_t; // 0xFFRRGGBB

constexpr Pixel ToPixel(Color color) {
    return 0xFF000000U | static_cast<Pixel>(color.Red()) << 16 | static_cast<Pixel>(color.Green()) << 8 |
           static_cast<Pixel>(color.Blue());
}

// One over the other, which shows through: `share` of 255 is the upper one's.
constexpr Pixel MixPixels(Pixel under, Pixel over, std::uint32_t share) {
    const auto mix = [&](int shift) {
        const std::uint32_t sum = ((over >> shift) & 0xFF) * share + ((under >> shift) & 0xFF) * (255 - share) + 128;
        return ((sum + (sum >> 8)) >> 8) << shift;
    };
    return 0xFF000000U | mix(16) | mix(8) | mix(0);
}

class Picture {
  public:
    void Resize(int width, int height) {
        Columns = width;
        Rows = height;
        Pixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0xFFFFFFFF);
    }

    int Width() const { return Columns; }

    int Height() const { return Rows; }

    PixelBox Whole() const { return {0, 0, Columns, Rows}; }

    Pixel* Row(int y) { return Pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(Columns); }

    const Pixel* Row(int y) const {
        return Pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(Columns);
    }

    void Fill(const PixelBox& area, Pixel color);
    void Copy(const Picture& from, const PixelBox& area); // to the same place
    void ScrollUp(int rows);                              // down when negative; the rows that come in are left over

    // Lets ink cover the area as much as the mask says, or the second mask where that says more.
    void Blend(const PixelBox& area, Pixel ink, const CoverageMask& mask, const CoverageMask* second = nullptr);

  private:
    int Columns = 0;
    int Rows = 0;
    std::vector<Pixel> Pixels;
};

} // namespace tavo::ink

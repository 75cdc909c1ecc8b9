// How much of each pixel a stroke covers.
#pragma once

#include "host/ink/pixel_box.h"
#include "host/ink/round_line.h"

#include <cstdint>
#include <vector>

namespace tavo::ink {

// One byte for each pixel of a picture. Lines that overlap cover a pixel as much as the one that covers most of it, so
// a stroke has no seams.
class CoverageMask {
  public:
    void Resize(int width, int height);

    int Width() const { return Columns; }

    int Height() const { return Rows; }

    // A line with round ends. Only pixels within `clip` are touched.
    void AddLine(const Nib& from, const Nib& to, const PixelBox& clip);
    void Clear(const PixelBox& area);

    const std::uint8_t* Row(int y) const {
        return Values.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(Columns);
    }

    std::uint8_t* Row(int y) { return Values.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(Columns); }

  private:
    int Columns = 0;
    int Rows = 0;
    std::vector<std::uint8_t> Values;
};

} // namespace tavo::ink

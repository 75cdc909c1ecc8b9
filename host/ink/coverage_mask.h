// How much of each pixel a stroke covers.
#pragma once

#include <cstdint>
#include <vector>

namespace tavo::ink {

// Left and top are inside, right and bottom are outside; real pixels.
struct PixelBox {
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;

    constexpr bool IsEmpty() const { return Right <= Left || Bottom <= Top; }

    PixelBox United(const PixelBox& other) const;
    PixelBox Cut(const PixelBox& other) const;
    friend constexpr bool operator==(const PixelBox&, const PixelBox&) = default;
};

// A place in real pixels, and half the width of the line there.
struct Nib {
    float X = 0;
    float Y = 0;
    float Radius = 0;
};

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

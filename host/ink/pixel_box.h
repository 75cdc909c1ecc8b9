// A rectangle of real pixels.
#pragma once

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

} // namespace tavo::ink

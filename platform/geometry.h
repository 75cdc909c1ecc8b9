// Points, rectangles and colours in the device's logical pixels.
#pragma once

#include <cstdint>

namespace tavo {

struct Point {
    int X = 0;
    int Y = 0;
    friend constexpr bool operator==(const Point&, const Point&) = default;
};

struct Size {
    int Width = 0;
    int Height = 0;
    friend constexpr bool operator==(const Size&, const Size&) = default;
};

// Left and top are inside, right and bottom are outside.
struct Rect {
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;

    static constexpr Rect FromSize(int left, int top, int width, int height) {
        return {left, top, left + width, top + height};
    }

    // All of something that begins at the origin.
    static constexpr Rect Whole(Size size) { return {0, 0, size.Width, size.Height}; }

    constexpr int Width() const { return Right - Left; }

    constexpr int Height() const { return Bottom - Top; }

    constexpr bool IsEmpty() const { return Right <= Left || Bottom <= Top; }

    constexpr bool Contains(Point point) const {
        return point.X >= Left && point.X < Right && point.Y >= Top && point.Y < Bottom;
    }

    friend constexpr bool operator==(const Rect&, const Rect&) = default;
};

// 0x00BBGGRR, as the device stores it.
struct Color {
    std::uint32_t Value = 0;

    static constexpr Color FromRgb(int red, int green, int blue) {
        return {static_cast<std::uint32_t>(red | (green << 8) | (blue << 16))};
    }

    constexpr int Red() const { return static_cast<int>(Value & 0xFF); }

    constexpr int Green() const { return static_cast<int>((Value >> 8) & 0xFF); }

    constexpr int Blue() const { return static_cast<int>((Value >> 16) & 0xFF); }

    friend constexpr bool operator==(const Color&, const Color&) = default;
};

} // namespace tavo

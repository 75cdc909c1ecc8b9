// Rectangles of the paper, in ticks.
#pragma once

#include <algorithm>
#include <cstdint>

namespace tavo::ink {

// Left and top are inside, right and bottom are outside.
struct Box {
    std::int32_t Left = 0;
    std::int32_t Top = 0;
    std::int32_t Right = 0;
    std::int32_t Bottom = 0;

    constexpr bool IsEmpty() const { return Right <= Left || Bottom <= Top; }

    constexpr std::int32_t Width() const { return Right - Left; }

    constexpr std::int32_t Height() const { return Bottom - Top; }

    constexpr bool Contains(double x, double y) const { return x >= Left && x < Right && y >= Top && y < Bottom; }

    constexpr bool Meets(const Box& other) const {
        return Left < other.Right && other.Left < Right && Top < other.Bottom && other.Top < Bottom;
    }

    constexpr Box Shifted(std::int32_t right, std::int32_t down) const {
        return {Left + right, Top + down, Right + right, Bottom + down};
    }

    constexpr Box Grown(std::int32_t by) const { return {Left - by, Top - by, Right + by, Bottom + by}; }

    constexpr Box United(const Box& other) const {
        if (IsEmpty() || other.IsEmpty()) {
            return IsEmpty() ? other : *this;
        }
        return {std::min(Left, other.Left), std::min(Top, other.Top), std::max(Right, other.Right),
                std::max(Bottom, other.Bottom)};
    }

    friend constexpr bool operator==(const Box&, const Box&) = default;
};

} // namespace tavo::ink

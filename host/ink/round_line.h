// A straight line with round ends, as the share of each pixel that it covers.
#pragma once

#include "host/ink/pixel_box.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tavo::ink {

// A place in real pixels, and half the width of the line there.
struct Nib {
    float X = 0;
    float Y = 0;
    float Radius = 0;
};

// The width may differ at both ends; it grows evenly between them.
class RoundLine {
  public:
    RoundLine(const Nib& from, const Nib& to);

    // Outside of it no pixel is covered.
    const PixelBox& Bounds() const { return Box; }

    // Calls put(x, share) for the pixels of the row between these columns that may be covered; a share is 0 to 255.
    // Columns further away than the line is wide are passed over, so a long slanting line costs its length, not the
    // rectangle around it.
    template <class Put> void ForEachInRow(int y, int left, int right, const Put& put) const {
        const float offsetY = static_cast<float>(y) + 0.5F - From.Y;
        if (std::abs(AlongY) > kLevel) {
            const float middle = From.X + offsetY * AlongX / AlongY;
            left = std::max(left, static_cast<int>(std::floor(middle - HalfBand)));
            right = std::min(right, static_cast<int>(std::ceil(middle + HalfBand)));
        }
        for (int x = left; x < right; ++x) {
            const float offsetX = static_cast<float>(x) + 0.5F - From.X;
            const float part = std::clamp((offsetX * AlongX + offsetY * AlongY) * PerSquare, 0.0F, 1.0F);
            const float awayX = offsetX - part * AlongX;
            const float awayY = offsetY - part * AlongY;
            const float distance = std::sqrt(awayX * awayX + awayY * awayY);
            const float covered = std::clamp(From.Radius + part * Growth + 0.5F - distance, 0.0F, 1.0F);
            // Never negative, and a call for each pixel would be felt.
            put(x, static_cast<std::uint8_t>(covered * 255 + 0.5F)); // NOLINT(bugprone-incorrect-roundings)
        }
    }

  private:
    static constexpr float kLevel = 1e-3F; // pixels; a line that rises less has no band of columns

    Nib From;
    float AlongX;
    float AlongY;
    float PerSquare; // 1 / length squared; 0 for a dot
    float Growth;
    float HalfBand = 0; // how far from its middle a row may be covered, pixels
    PixelBox Box;
};

} // namespace tavo::ink

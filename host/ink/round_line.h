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

// The width may differ at both ends; it grows evenly between them. All of it stands here: it is asked pixel by pixel.
class RoundLine {
  public:
    RoundLine(const Nib& from, const Nib& to)
        : From(from), AlongX(to.X - from.X), AlongY(to.Y - from.Y), Growth(to.Radius - from.Radius),
          Reach(std::max(from.Radius, to.Radius) + 0.5F) {
        const float square = AlongX * AlongX + AlongY * AlongY;
        PerSquare = square > 1e-6F ? 1 / square : 0;
    }

    // Outside of it no pixel is covered.
    PixelBox Bounds() const {
        return {static_cast<int>(std::floor(From.X + std::min(AlongX, 0.0F) - Reach)),
                static_cast<int>(std::floor(From.Y + std::min(AlongY, 0.0F) - Reach)),
                static_cast<int>(std::ceil(From.X + std::max(AlongX, 0.0F) + Reach)),
                static_cast<int>(std::ceil(From.Y + std::max(AlongY, 0.0F) + Reach))};
    }

    // What of the box's columns may be covered in this row of it: with it a long slanting line costs its length, not
    // the rectangle around it.
    PixelBox CutRow(const PixelBox& box, int y) const {
        PixelBox row{box.Left, y, box.Right, y + 1};
        if (std::abs(AlongY) > kLevel) {
            const float middle = From.X + (static_cast<float>(y) + 0.5F - From.Y) * AlongX / AlongY;
            const float length = std::sqrt(AlongX * AlongX + AlongY * AlongY);
            const float half = Reach * length / std::abs(AlongY) + 1; // one more, for the rounding to whole columns
            row.Left = std::max(row.Left, static_cast<int>(std::floor(middle - half)));
            row.Right = std::min(row.Right, static_cast<int>(std::ceil(middle + half)));
        }
        return row;
    }

    // 0 to 255.
    std::uint8_t ShareOf(int x, int y) const {
        const float offsetX = static_cast<float>(x) + 0.5F - From.X;
        const float offsetY = static_cast<float>(y) + 0.5F - From.Y;
        const float part = std::clamp((offsetX * AlongX + offsetY * AlongY) * PerSquare, 0.0F, 1.0F);
        const float awayX = offsetX - part * AlongX;
        const float awayY = offsetY - part * AlongY;
        const float distance = std::sqrt(awayX * awayX + awayY * awayY);
        const float covered = std::clamp(From.Radius + part * Growth + 0.5F - distance, 0.0F, 1.0F);
        // Never negative, and a call for each pixel would be felt.
        return static_cast<std::uint8_t>(covered * 255 + 0.5F); // NOLINT(bugprone-incorrect-roundings)
    }

  private:
    static constexpr float kLevel = 1e-3F; // pixels; a line that rises less has no band of columns

    Nib From;
    float AlongX;
    float AlongY;
    float Growth;
    float Reach;         // from the middle of the line to where nothing is covered
    float PerSquare = 0; // 1 / length squared; 0 for a dot
};

} // namespace tavo::ink

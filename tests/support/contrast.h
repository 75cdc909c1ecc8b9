// How well one colour is to be seen on another.
#pragma once

#include "platform/geometry.h"

#include <algorithm>
#include <cmath>

namespace tavo::test {

// Relative luminance: 0 of black, 1 of white.
inline double LuminanceOf(Color color) {
    const auto linear = [](int part) {
        const double share = part / 255.0;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.Red()) + 0.7152 * linear(color.Green()) + 0.0722 * linear(color.Blue());
}

// 1 of equal colours to 21 of black on white. What is to be read wants 4.5, large letters and lines want 3.
inline double ContrastOf(Color one, Color other) {
    const double first = LuminanceOf(one);
    const double second = LuminanceOf(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

} // namespace tavo::test

// The points of one stroke as bytes: what each differs from where the pen seemed to go.
#pragma once

#include "host/ink/stroke.h"

#include <cstdint>
#include <span>
#include <vector>

namespace tavo::ink {

constexpr std::size_t kMaxPackedPoint = 17; // a tag and four times four bytes

// Appends all but the first point.
void PackPoints(std::span<const InkPoint> points, std::vector<std::uint8_t>& bytes);

// Fills all but the first point; gives how many bytes that took, or 0 when the bytes are cut or a point lies outside of
// what points may be. `points` has at least two.
std::size_t UnpackPoints(std::span<const std::uint8_t> bytes, std::span<InkPoint> points);

} // namespace tavo::ink

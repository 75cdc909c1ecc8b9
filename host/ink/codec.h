// Ink as bytes: one format, versioned and checked. docs/ink.md tells it byte by byte.
#pragma once

#include "host/ink/stroke.h"

#include <cstdint>
#include <span>
#include <vector>

namespace tavo::ink {

constexpr std::size_t kMaxInkBytes = 64U << 20;

enum class Reading {
    Whole,   // every stroke was read
    Foreign, // another program's bytes, or those of a newer version
    Damaged, // ours, but cut or changed
};

// No strokes give no bytes.
std::vector<std::uint8_t> Encode(std::span<const PlacedStroke> strokes);

// Nothing but a whole reading gives strokes. However hostile the bytes, they take no more memory than kMaxPoints points
// and kMaxStrokes strokes, and far less when they are few. No bytes are whole, and hold nothing.
Reading Decode(std::span<const std::uint8_t> bytes, std::vector<PlacedStroke>& strokes);

} // namespace tavo::ink

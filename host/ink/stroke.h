// What a pen leaves on the paper.
#pragma once

#include "host/ink/box.h"
#include "platform/geometry.h"

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace tavo::ink {

// Places on the paper are counted in ticks, so many to a pixel at zoom 100.
constexpr int kTicksPerPixel = 32;

// How far the paper reaches. A point beyond is moved to the edge.
constexpr int kMaxX = 4096 * kTicksPerPixel;
constexpr int kMaxY = 65536 * kTicksPerPixel;

constexpr int kMaxPressure = 1023;
constexpr std::uint32_t kMaxStrokeTime = 0x7FFFFFFF;
constexpr std::size_t kMaxPoints = 4'000'000; // of all strokes together
constexpr std::size_t kMaxStrokes = 250'000;

struct InkPoint {
    std::int32_t X = 0; // ticks
    std::int32_t Y = 0;
    std::uint32_t Time = 0; // milliseconds since the stroke began
    std::uint16_t Pressure = kMaxPressure;
    friend constexpr bool operator==(const InkPoint&, const InkPoint&) = default;
};

enum class PenColor : std::uint8_t { Black, Blue, Red, Green };
enum class PenWidth : std::uint8_t { Fine, Medium, Broad };

inline constexpr std::array kPenColors{Color::FromRgb(0, 0, 0), Color::FromRgb(0, 51, 204), Color::FromRgb(204, 0, 0),
                                       Color::FromRgb(0, 128, 0)};
inline constexpr std::array kPenWidths{1.0, 1.8, 3.2}; // pixels at zoom 100, without pressure

struct Pen {
    PenColor Color = PenColor::Black;
    PenWidth Width = PenWidth::Medium;
    bool HasPressure = false; // else the line is equally wide everywhere
    friend constexpr bool operator==(const Pen&, const Pen&) = default;
};

// The width of the line where the pen was pressed like this; pixels at zoom 100.
constexpr double WidthAt(const Pen& pen, int pressure) {
    const double width = kPenWidths[static_cast<std::size_t>(pen.Width)];
    return pen.HasPressure ? width * (0.35 + 1.3 * pressure / kMaxPressure) : width;
}

// A finished stroke. It never changes, so all steps of the history share it.
struct Stroke {
    Pen Tool;
    std::int64_t Started = 0; // milliseconds since 1970
    std::vector<InkPoint> Points;
    friend bool operator==(const Stroke&, const Stroke&) = default;
};

// Where ink is seen: the points and half the line's width around them.
Box InkBox(const Stroke& stroke);
// Half of the widest line that the pen draws, in ticks.
int Reach(const Pen& pen);

// A stroke, and how far it was moved since it was drawn.
struct PlacedStroke {
    std::shared_ptr<const Stroke> Body;
    std::int32_t Right = 0;
    std::int32_t Down = 0;
    Box Bounds; // of what is seen, where it lies now
    bool Selected = false;

    PlacedStroke Moved(int right, int down) const;
};

PlacedStroke Place(Stroke stroke);

} // namespace tavo::ink

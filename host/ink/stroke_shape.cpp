// Bending a line through the middles between its points.
#include "host/ink/stroke_shape.h"

#include <algorithm>
#include <cmath>

namespace tavo::ink {
namespace {

constexpr float kPieceLength = 3;      // real pixels
constexpr int kMaxPieces = 64;         // of one curve
constexpr float kLongestLine = 12;     // a straight line is cut too, so that the boxes around its pieces stay small
constexpr float kClosestPoints = 0.4F; // points nearer than this bend nothing that could be seen
constexpr int kMaxStraightPieces = 4096;

Nib Mix(const Nib& one, const Nib& other, float part) {
    return {one.X + (other.X - one.X) * part, one.Y + (other.Y - one.Y) * part,
            one.Radius + (other.Radius - one.Radius) * part};
}

float Length(const Nib& from, const Nib& to) {
    const float right = to.X - from.X;
    const float down = to.Y - from.Y;
    return std::sqrt(right * right + down * down);
}

void AddStraight(const Nib& from, const Nib& to, std::vector<Nib>& line) {
    const int pieces = std::clamp(static_cast<int>(std::ceil(Length(from, to) / kLongestLine)), 1, kMaxStraightPieces);
    for (int piece = 1; piece <= pieces; ++piece) {
        line.push_back(Mix(from, to, static_cast<float>(piece) / static_cast<float>(pieces)));
    }
}

// How far the bend goes from the straight line decides how many pieces show it round.
void AddCurve(const Nib& from, const Nib& bend, const Nib& to, std::vector<Nib>& line) {
    const Nib straight = Mix(from, to, 0.5F);
    const float length = Length(from, bend) + Length(bend, to);
    if (Length(straight, bend) < 0.25F) {
        AddStraight(from, to, line);
        return;
    }
    const int pieces = std::clamp(static_cast<int>(std::ceil(length / kPieceLength)), 2, kMaxPieces);
    for (int piece = 1; piece <= pieces; ++piece) {
        const float part = static_cast<float>(piece) / static_cast<float>(pieces);
        line.push_back(Mix(Mix(from, bend, part), Mix(bend, to, part), part));
    }
}

} // namespace

Nib StrokeShape::ToNib(const InkPoint& point, int right, int down) const {
    return {static_cast<float>((point.X + right - Scale.Left) * Scale.PixelsPerTick),
            static_cast<float>((point.Y + down - Scale.Top) * Scale.PixelsPerTick),
            static_cast<float>(WidthAt(Tool, point.Pressure) / 2 * kTicksPerPixel * Scale.PixelsPerTick)};
}

void StrokeShape::Add(const InkPoint& point, int right, int down, std::vector<Nib>& line) {
    const Nib nib = ToNib(point, right, down);
    if (Count == 0) {
        Middle = Last = nib;
        Count = 1;
        return;
    }
    if (Length(Last, nib) < kClosestPoints) {
        Last.Radius = std::max(Last.Radius, nib.Radius);
        return;
    }
    const Nib middle = Mix(Last, nib, 0.5F);
    Count == 1 ? AddStraight(Middle, middle, line) : AddCurve(Middle, Last, middle, line);
    Middle = middle;
    Last = nib;
    Count = 2;
}

void StrokeShape::Finish(std::vector<Nib>& line) const {
    AddStraight(Middle, Last, line);
}

void ShapeStroke(const PlacedStroke& stroke, const PixelScale& scale, std::vector<Nib>& line) {
    line.clear();
    StrokeShape shape(stroke.Body->Tool, scale);
    for (const InkPoint& point : stroke.Body->Points) {
        shape.Add(point, stroke.Right, stroke.Down, line);
        if (line.empty()) {
            line.push_back(shape.Reached());
        }
    }
    shape.Finish(line);
}

PixelBox PixelsOf(const Box& box, const PixelScale& scale) {
    return {static_cast<int>(std::floor((box.Left - scale.Left) * scale.PixelsPerTick)) - 1,
            static_cast<int>(std::floor((box.Top - scale.Top) * scale.PixelsPerTick)) - 1,
            static_cast<int>(std::ceil((box.Right - scale.Left) * scale.PixelsPerTick)) + 1,
            static_cast<int>(std::ceil((box.Bottom - scale.Top) * scale.PixelsPerTick)) + 1};
}

} // namespace tavo::ink

// The strokes of a memo in drawing order, and what can be done to them.
#pragma once

#include "host/ink/stroke.h"

#include <cstddef>
#include <span>
#include <vector>

namespace tavo::ink {

struct NumberedStroke {
    std::size_t Index = 0;
    PlacedStroke Stroke;
};

// One thing a person did: strokes taken off, then others put on, then some moved. Indices are in ascending order; those
// of the added and the moved ones are where they lie afterwards.
struct Edit {
    std::vector<NumberedStroke> Removed;
    std::vector<NumberedStroke> Added;
    std::vector<std::size_t> Moved;
    std::int32_t Right = 0;
    std::int32_t Down = 0;

    bool IsEmpty() const { return Removed.empty() && Added.empty() && Moved.empty(); }

    // What takes it back.
    Edit Reversed() const;
};

class Page {
  public:
    std::span<const PlacedStroke> Strokes() const { return All; }

    bool IsEmpty() const { return All.empty(); }

    std::size_t PointCount() const { return Points; }

    void Reset(std::vector<PlacedStroke> strokes);
    // Gives the part of the paper that looks different now.
    Box Apply(const Edit& edit);

    void Select(std::size_t index, bool selected);

    std::size_t SelectedCount() const { return SelectedStrokes; }

    // Of all ink; empty without any.
    Box Bounds() const;
    std::vector<std::size_t> SelectedIndices() const;
    Box SelectedBounds() const;

    // The stroke on top that lies within so many ticks of the place, or none.
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    std::size_t FindAt(double x, double y, double within) const;
    // Those with more than half of their line in the area.
    std::vector<std::size_t> FindMostlyIn(const Box& area) const;

  private:
    void Remove(std::span<const NumberedStroke> removed, Box& changed);
    void Add(std::span<const NumberedStroke> added, Box& changed);

    std::vector<PlacedStroke> All;
    std::size_t Points = 0;
    std::size_t SelectedStrokes = 0;
};

// Whether the line passes within so many ticks of the segment from one point to the other.
bool PassesNear(const PlacedStroke& stroke, double fromX, double fromY, double toX, double toY, double within);
bool LiesMostlyIn(const PlacedStroke& stroke, const Box& area);

} // namespace tavo::ink

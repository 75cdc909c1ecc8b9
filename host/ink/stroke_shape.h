// A stroke as lines of real pixels: smooth curves between the points, cut into short straight pieces.
#pragma once

#include "host/ink/coverage_mask.h"
#include "host/ink/stroke.h"

#include <span>
#include <vector>

namespace tavo::ink {

// From the paper's ticks to the pixels of a picture.
struct PixelScale {
    double PixelsPerTick = 1;
    double Left = 0; // the picture's corner, ticks
    double Top = 0;
};

// First a straight line to the middle between the first two points, then curves from the middle between two points to
// the middle between the next two, each bent towards the point between them. A curve that is finished never changes
// when points are added.
class StrokeShape {
  public:
    StrokeShape(const Pen& pen, const PixelScale& scale) : Tool(pen), Scale(scale) {}

    // The next point; gives the line up to the middle before it.
    void Add(const InkPoint& point, int right, int down, std::vector<Nib>& line);
    // The line from there to the last point.
    void Finish(std::vector<Nib>& line) const;

    // Where the line ended up to now.
    Nib Reached() const { return Middle; }

  private:
    Nib ToNib(const InkPoint& point, int right, int down) const;

    Pen Tool;
    PixelScale Scale;
    Nib Middle; // between the last two points
    Nib Last;
    int Count = 0;
};

// The whole line. Its first nib is where the stroke begins.
void ShapeStroke(const PlacedStroke& stroke, const PixelScale& scale, std::vector<Nib>& line);

// The pixels that the ink of a part of the paper touches.
PixelBox PixelsOf(const Box& box, const PixelScale& scale);

} // namespace tavo::ink

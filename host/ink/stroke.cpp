// Where strokes are seen.
#include "host/ink/stroke.h"

#include <cmath>
#include <utility>

namespace tavo::ink {

int Reach(const Pen& pen) {
    return static_cast<int>(std::ceil(WidthAt(pen, kMaxPressure) / 2 * kTicksPerPixel));
}

Box InkBox(const Stroke& stroke) {
    if (stroke.Points.empty()) {
        return {};
    }
    const InkPoint& first = stroke.Points.front();
    Box box{first.X, first.Y, first.X, first.Y};
    for (const InkPoint& point : stroke.Points) {
        box.Left = std::min(box.Left, point.X);
        box.Top = std::min(box.Top, point.Y);
        box.Right = std::max(box.Right, point.X);
        box.Bottom = std::max(box.Bottom, point.Y);
    }
    return box.Grown(Reach(stroke.Tool) + 1);
}

PlacedStroke PlacedStroke::Moved(int right, int down) const {
    PlacedStroke moved = *this;
    moved.Right += right;
    moved.Down += down;
    moved.Bounds = Bounds.Shifted(right, down);
    return moved;
}

PlacedStroke Place(Stroke stroke) {
    PlacedStroke placed;
    placed.Bounds = InkBox(stroke);
    placed.Body = std::make_shared<const Stroke>(std::move(stroke));
    return placed;
}

} // namespace tavo::ink

// Edges of lines.
#include "host/shell/straight_line.h"

#include <algorithm>

namespace tavo::shell {

Rect CoverStraightLine(Point from, Point to, int width) {
    const int before = (width - 1) / 2;
    const int after = width - before;
    if (from == to) {
        return {};
    }
    const int left = std::min(from.X, to.X);
    const int top = std::min(from.Y, to.Y);
    const int right = std::max(from.X, to.X);
    const int bottom = std::max(from.Y, to.Y);
    if (width == 1) {
        const int shiftX = to.X < from.X ? 1 : 0; // towards the left the end lies on the left
        const int shiftY = to.Y < from.Y ? 1 : 0;
        return from.Y == to.Y ? Rect{left + shiftX, top, right + shiftX, top + 1}
                              : Rect{left, top + shiftY, left + 1, bottom + shiftY};
    }
    return {left - before, top - before, right + after, bottom + after};
}

} // namespace tavo::shell

// Which pixels a level or upright line covers.
#pragma once

#include "platform/geometry.h"

namespace tavo::shell {

// In logical pixels: without its last point when it is one wide; a wider one has square ends, lies evenly around its
// points when the width is odd, and reaches one pixel further to the right and down when it is even. Empty for a line
// without length.
Rect CoverStraightLine(Point from, Point to, int width);

} // namespace tavo::shell

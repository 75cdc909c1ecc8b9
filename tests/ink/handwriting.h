// Strokes like those of a hand, the same at every run.
#pragma once

#include "host/ink/page.h"

#include <vector>

namespace tavo::ink {

// Letter after letter, line below line, sampled 200 times a second with pressure, at so many points each.
std::vector<PlacedStroke> WriteByHand(int strokes, int pointsEach);

// A straight line from one place of the paper to another, in pixels at zoom 100.
Stroke DrawLine(double fromX, double fromY, double toX, double toY, int points = 20);

} // namespace tavo::ink

// A line for every frame that came to the screen, for measurements.
#pragma once

#include <cstdio>
#include <functional>

namespace tavo::qt {

// With a path: a function that appends the monotonic clock and the processor time of the process, both in nanoseconds,
// to that file. Without: an empty one.
std::function<void()> MakeFrameTrace(const char* path);

} // namespace tavo::qt

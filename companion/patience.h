// How long the waiting process waits for others, and when to look again.
#pragma once

#include <algorithm>
#include <chrono>
#include <optional>

namespace tavo::companion {

using Clock = std::chrono::steady_clock;
using Instant = Clock::time_point;

// The earlier of two moments that may not be set.
inline std::optional<Instant> Earlier(const std::optional<Instant>& left, const std::optional<Instant>& right) {
    return left && right ? std::min(left, right) : left ? left : right;
}

} // namespace tavo::companion

// How much work it may take to work out when something recurs. What asks for more is refused when it comes, and left
// out where it is there already, so that no single item holds up all others.
#pragma once

#include <cstdint>

namespace tavo::outlook {

// Days looked at and times made, also those made in vain, together called steps; a machine of today does tens of
// millions in a second.
class ExpansionBudget {
  public:
    explicit ExpansionBudget(std::int64_t steps) : Left(steps) {}

    // False from the step on that is one too many.
    bool Take(std::int64_t steps = 1) {
        Left -= steps;
        return Left >= 0;
    }

    bool IsSpent() const { return Left < 0; }

  private:
    std::int64_t Left;
};

constexpr std::int64_t kMostStartsPerDay = 96;      // of all rules of one item together
constexpr std::int64_t kStepsOfExpansion = 2000000; // for one item and one span of time
constexpr std::int64_t kStepsOfCount = 500000;      // until the last one of a rule with a count: a millennium of days
constexpr std::int64_t kStepsOfNextReminder = 5000000; // for all items together
constexpr std::int64_t kStepsOfZone = 1000000;         // for all changes of one zone's clock

} // namespace tavo::outlook

// How much work it may take to work out when something recurs. What asks for more is refused when it comes, and left
// out where it is there already, so that no item, and no crowd of them, holds up all others.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tavo::rules {

// Days looked at and times made, also those made in vain, rows and characters read, all counted in steps; a machine of
// today does tens of millions in a second.
class ExpansionBudget {
  public:
    explicit ExpansionBudget(std::int64_t steps) : Left(steps) {}

    // False from the step on that is one too many.
    bool Take(std::int64_t steps = 1) {
        Left -= steps;
        return Left >= 0;
    }

    // Leaves nothing, now and at every other attempt: more steps would not help.
    void GiveUp() {
        Left = -1;
        Hopeless = true;
    }

    bool IsSpent() const { return Left < 0; }

    bool IsHopeless() const { return Hopeless; }

    // Steps; 0 when it is spent.
    std::int64_t GetRest() const { return Left < 0 ? 0 : Left; }

  private:
    std::int64_t Left;
    bool Hopeless = false;
};

constexpr std::int64_t kMostStartsPerDay = 96;      // of all rules of one item together
constexpr std::int64_t kStepsOfExpansion = 2000000; // for one item and one span of time
constexpr std::int64_t kStepsOfCount = 500000;      // until the last one of a rule with a count: a millennium of days
constexpr std::int64_t kStepsOfNextReminder = 5000000; // for the farther reaches of all items together
constexpr std::int64_t kStepsOfZone = 1000000;         // for all changes of one zone's clock
constexpr std::int64_t kStepsOfAll = 10000000;         // for all items of one listing together

// What everybody may take, however many they are: for its rule, and for each day.
constexpr std::int64_t kStepsOfEach = 1500;
constexpr std::int64_t kStepsOfDay = 8;

// Lets each of `count` items do its work on a span of `days`, in their order, within one budget for all. Everybody has
// what an honest rule needs, or an even share where that is more. Whoever asks for more is tried again at the end, with
// an even share of what there is for these: so who takes much cannot take it from who takes little. Gives the items
// whose work took more than there was, and those that gave up.
// `work(std::size_t index, ExpansionBudget& budget)` tries one item: true when it is done for, whether well or not; the
// budget tells the rest. A template, as a month asks thousands of series that take less than a call through a function.
template <class Work> std::vector<std::size_t> ShareWork(std::size_t count, std::int64_t days, const Work& work) {
    std::vector<std::size_t> leftOut;
    std::vector<std::size_t> again;
    const auto size = static_cast<std::int64_t>(count);
    const std::int64_t each = kStepsOfEach + kStepsOfDay * days;
    const std::int64_t first =
        std::clamp(kStepsOfAll / std::max<std::int64_t>(size, 1), each, std::max(kStepsOfExpansion, each));
    for (std::size_t index = 0; index < count; ++index) {
        ExpansionBudget budget(first);
        if (!work(index, budget)) {
            return leftOut;
        }
        if (budget.IsSpent()) {
            (budget.IsHopeless() || first >= kStepsOfExpansion ? leftOut : again).push_back(index);
        }
    }
    std::int64_t rest = kStepsOfAll;
    for (std::size_t place = 0; place < again.size(); ++place) {
        const std::int64_t share = std::min(rest / static_cast<std::int64_t>(again.size() - place), kStepsOfExpansion);
        ExpansionBudget budget(share);
        if (!work(again[place], budget)) {
            return leftOut;
        }
        rest -= share - budget.GetRest();
        if (budget.IsSpent()) {
            leftOut.push_back(again[place]);
        }
    }
    return leftOut;
}

} // namespace tavo::rules

// Two rounds: the many that take little, then the few that take much.
#include "host/outlook/expansion_budget.h"

#include <algorithm>

namespace tavo::outlook {

std::vector<std::size_t> ShareWork(std::size_t count, std::int64_t days, const SharedWork& work) {
    std::vector<std::size_t> leftOut;
    std::vector<std::size_t> again;
    const auto size = static_cast<std::int64_t>(count);
    const std::int64_t first =
        std::clamp(kStepsOfAll / std::max<std::int64_t>(size, 1), kStepsOfEach + kStepsOfDay * days,
                   std::max(kStepsOfExpansion, kStepsOfEach + kStepsOfDay * days));
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

} // namespace tavo::outlook

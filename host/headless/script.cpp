// Doing one step.
#include "host/headless/script.h"

#include <utility>

namespace tavo::headless {

void Script::DoNext() {
    if (Steps.empty()) {
        return;
    }
    const Step step = std::move(Steps.front());
    Steps.pop_front();
    std::deque<Step> following = std::exchange(Steps, {});
    step();
    for (Step& later : following) {
        Steps.push_back(std::move(later));
    }
}

} // namespace tavo::headless

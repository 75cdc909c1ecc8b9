// Doing one step.
#include "host/bare/script.h"

#include <utility>

namespace tavo::bare {

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

} // namespace tavo::bare

// The script of people who are not there: what happens next, once the program waits and nothing is left to hand out.
#pragma once

#include <deque>
#include <functional>

namespace tavo::bare {

class Script {
  public:
    using Step = std::function<void()>;

    void Add(Step step) { Steps.push_back(std::move(step)); }

    bool IsEmpty() const { return Steps.empty(); }

    // Takes the next step out and does it. Steps that it adds come before those that follow it.
    void DoNext();

  private:
    std::deque<Step> Steps;
};

} // namespace tavo::bare

// Waiting for what another process does.
#pragma once

#include <chrono>
#include <thread>

namespace tavo::companion::test {

// False when it did not come true within so many seconds.
template <class Done> bool WaitUntil(const Done& done, double seconds) {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::duration<double>(seconds);
    while (!done()) {
        if (Clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return true;
}

} // namespace tavo::companion::test

// Local time from the C library, which knows the machine's zones.
#include "host/posix/system_clock.h"

#include <chrono>
#include <ctime>

namespace tavo::posix {

SYSTEMTIME SystemClock::GetLocalTime() {
    static_cast<void>(Zone.Refresh()); // whether the zone changed just now makes no difference here
    timespec now{};
    static_cast<void>(clock_gettime(CLOCK_REALTIME, &now)); // always there
    std::tm local{};
    static_cast<void>(localtime_r(&now.tv_sec, &local)); // fails only beyond the year 2^31
    return {static_cast<std::uint16_t>(local.tm_year + 1900),
            static_cast<std::uint16_t>(local.tm_mon + 1),
            static_cast<std::uint16_t>(local.tm_wday),
            static_cast<std::uint16_t>(local.tm_mday),
            static_cast<std::uint16_t>(local.tm_hour),
            static_cast<std::uint16_t>(local.tm_min),
            static_cast<std::uint16_t>(local.tm_sec < 60 ? local.tm_sec : 59), // a leap second is no time of the device
            static_cast<std::uint16_t>(now.tv_nsec / 1'000'000)};
}

std::uint32_t SystemClock::GetTickCount() {
    const auto running = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(std::chrono::duration_cast<std::chrono::milliseconds>(running).count());
}

} // namespace tavo::posix

// The device's clock.
#pragma once

#include "platform/system_time.h"

#include <cstdint>

namespace tavo {

class IClock {
  public:
    virtual ~IClock() = default;
    virtual SYSTEMTIME GetLocalTime() = 0;
    virtual std::uint32_t GetTickCount() = 0; // milliseconds since some moment; wraps
};

} // namespace tavo

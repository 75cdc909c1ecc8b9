// This machine's clock as the device's clock.
#pragma once

#include "host/posix/zone_watch.h"
#include "platform/clock.h"

namespace tavo::posix {

class SystemClock final : public IClock {
  public:
    SYSTEMTIME GetLocalTime() override;    // follows a change of the machine's time zone within a second
    std::uint32_t GetTickCount() override; // stands still while the machine sleeps

  private:
    ZoneWatch Zone;
};

} // namespace tavo::posix

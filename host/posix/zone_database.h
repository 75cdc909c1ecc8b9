// The machine's time zone database.
#pragma once

#include "host/rules/zone_source.h"

namespace tavo::posix {

// Reads TZDIR, or else the usual folder, and follows TZ, /etc/localtime and /etc/timezone, in this order.
class ZoneDatabase final : public rules::IZoneSource {
  public:
    std::optional<std::string> ReadZone(const std::string& name) override;
    std::string GetDeviceZone() override;
    std::string GetRelease() override;
};

// The one of this process.
rules::IZoneSource& SystemZones();

} // namespace tavo::posix

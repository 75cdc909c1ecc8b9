// The time zones that items name, and the device's own.
#pragma once

#include "host/rules/zone_rules.h"
#include "host/rules/zone_source.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace tavo::rules {

using ZoneId = std::int64_t;
constexpr ZoneId kFloating = 0; // the device's wall clock, wherever it is

// Looks a zone up by the name that a TZID parameter gives; null when there is none.
using ZoneLookup = std::function<const ZoneRules*(const std::string& name)>;

// From the source's database; null when it has no zone of that name. There always is a "UTC".
std::unique_ptr<ZoneRules> LoadZone(IZoneSource& source, const std::string& name);

// The name of the zone that the machine is set to; "UTC" when that cannot be told.
std::string FindDeviceZone(IZoneSource& source);

class Zones {
  public:
    explicit Zones(IZoneSource& source) : Source(source) {}

    virtual ~Zones() = default;
    Zones(const Zones&) = delete;
    Zones& operator=(const Zones&) = delete;

    // False, and then unchanged, when there is no such zone.
    bool SetDevice(const std::string& name);

    const std::string& DeviceName() const { return DeviceZone; }

    IZoneSource& GetSource() const { return Source; }

    // Null for kFloating and for a zone that nothing is known of any more.
    virtual const ZoneRules* Rules(ZoneId zone) = 0;
    virtual const ZoneRules* RulesByName(const std::string& name) = 0;

    // Between a zone's clock and the device's. A zone without rules is taken for floating.
    Seconds ToWall(ZoneId zone, Seconds own);
    Seconds FromWall(const ZoneRules* zone, Seconds wall) const;
    // Between a zone's clock, or the device's for kFloating, and universal time.
    Seconds ToUtc(ZoneId zone, Seconds own);
    Seconds UtcToWall(Seconds utc) const;

  private:
    IZoneSource& Source;
    std::string DeviceZone = "UTC";
    std::unique_ptr<ZoneRules> Device;
};

} // namespace tavo::rules

// The time zones that items of the store name, and the device's own.
#pragma once

#include "host/outlook/database.h"
#include "host/outlook/zone_rules.h"

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

namespace tavo::outlook {

using ZoneId = std::int64_t;
constexpr ZoneId kFloating = 0; // the device's wall clock, wherever it is

class ZoneCache {
  public:
    explicit ZoneCache(Database& database) : Source(database) {}

    // False, and then unchanged, when there is no such zone.
    bool SetDevice(const std::string& name);

    const std::string& DeviceName() const { return DeviceZone; }

    // Null for kFloating and for a zone that nothing is known of any more.
    const ZoneRules* Rules(ZoneId zone);
    const ZoneRules* RulesByName(const std::string& name);
    std::string Name(ZoneId zone);
    // The id under which the store knows a zone, made when it is new. kFloating for "".
    Status FindOrAdd(const std::string& name, ZoneId& zone);
    // Keeps a zone that came as a component; `storedName` gets the name to use from now on.
    Status Define(const std::string& name, const std::string& component, std::string& storedName);

    // Between a zone's clock and the device's. A zone without rules is taken for floating.
    Seconds ToWall(ZoneId zone, Seconds own);
    Seconds FromWall(ZoneId zone, Seconds wall);
    // Between a zone's clock, or the device's for kFloating, and universal time.
    Seconds ToUtc(ZoneId zone, Seconds own);
    Seconds UtcToWall(Seconds utc) const;

    // After a transaction was taken back, what it added is no longer there.
    void Forget();

  private:
    struct Zone {
        std::string Name;
        std::unique_ptr<ZoneRules> Rules;
    };

    const Zone& Load(ZoneId zone);

    Database& Source;
    std::string DeviceZone = "UTC";
    std::unique_ptr<ZoneRules> Device;
    std::unordered_map<ZoneId, Zone> Zones;
    std::unordered_map<std::string, std::unique_ptr<ZoneRules>> SystemZones;
};

} // namespace tavo::outlook

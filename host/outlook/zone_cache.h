// The time zones that items of the store name.
#pragma once

#include "host/outlook/database.h"
#include "host/outlook/terms.h"
#include "host/rules/zones.h"

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

namespace tavo::outlook {

class ZoneCache final : public rules::Zones {
  public:
    ZoneCache(Database& database, rules::IZoneSource& source) : Zones(source), Kept(database) {}

    const ZoneRules* Rules(ZoneId zone) override;
    const ZoneRules* RulesByName(const std::string& name) override;
    std::string Name(ZoneId zone);
    // The id under which the store knows a zone, made when it is new. kFloating for "".
    Status FindOrAdd(const std::string& name, ZoneId& zone);
    // Keeps a zone that came as a component; `storedName` gets the name to use from now on.
    Status Define(const std::string& name, const std::string& component, std::string& storedName);

    // After a transaction was taken back, what it added is no longer there.
    void Forget();

  private:
    struct Zone {
        std::string Name;
        std::unique_ptr<ZoneRules> Rules;
    };

    const Zone& Load(ZoneId zone);

    Database& Kept;
    std::unordered_map<ZoneId, Zone> Known;
    std::unordered_map<std::string, std::unique_ptr<ZoneRules>> SystemZones;
};

} // namespace tavo::outlook

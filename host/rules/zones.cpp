// Loading zones, and changing between their clocks and the device's.
#include "host/rules/zones.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace tavo::rules {

namespace {

// Names come from calendars of others: nothing that could leave the database's folder.
bool IsPlainZoneName(const std::string& name) {
    const auto isPlain = [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '/' || c == '_' ||
               c == '+' || c == '-';
    };
    return !name.empty() && name.front() != '/' && std::all_of(name.begin(), name.end(), isPlain);
}

} // namespace

std::unique_ptr<ZoneRules> LoadZone(IZoneSource& source, const std::string& name) {
    if (name == "UTC") {
        return std::make_unique<ZoneRules>(0, std::vector<ZoneTransition>());
    }
    if (!IsPlainZoneName(name)) {
        return nullptr;
    }
    const std::optional<std::string> bytes = source.ReadZone(name);
    return bytes ? ParseZoneFile(*bytes) : nullptr;
}

std::string FindDeviceZone(IZoneSource& source) {
    std::string name = source.GetDeviceZone();
    return LoadZone(source, name) != nullptr ? name : "UTC";
}

bool Zones::SetDevice(const std::string& name) {
    std::unique_ptr<ZoneRules> rules = LoadZone(Source, name);
    if (rules == nullptr) {
        return false;
    }
    DeviceZone = name;
    Device = std::move(rules);
    return true;
}

Seconds Zones::ToWall(ZoneId zone, Seconds own) {
    const ZoneRules* rules = Rules(zone);
    return rules == nullptr || Device == nullptr ? own : Device->ToLocal(rules->ToUtc(own));
}

Seconds Zones::FromWall(const ZoneRules* zone, Seconds wall) const {
    return zone == nullptr || Device == nullptr ? wall : zone->ToLocal(Device->ToUtc(wall));
}

Seconds Zones::ToUtc(ZoneId zone, Seconds own) {
    const ZoneRules* rules = Rules(zone);
    rules = rules == nullptr ? Device.get() : rules;
    return rules == nullptr ? own : rules->ToUtc(own);
}

Seconds Zones::UtcToWall(Seconds utc) const {
    return Device == nullptr ? utc : Device->ToLocal(utc);
}

} // namespace tavo::rules

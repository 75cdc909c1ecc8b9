// Zones by number and name.
#include "host/outlook/zone_cache.h"

namespace tavo::outlook {

const ZoneCache::Zone& ZoneCache::Load(ZoneId zone) {
    const auto known = Known.find(zone);
    if (known != Known.end()) {
        return known->second;
    }
    Zone loaded;
    Query query(Kept, "SELECT name, component FROM zone WHERE id = ?");
    if (query.Bind(zone).Next()) {
        loaded.Name = query.Text(0);
        std::string fault;
        loaded.Rules = query.IsNull(1) ? LoadZone(GetSource(), loaded.Name)
                                       : ParseZoneComponent(std::string(query.Text(1)), fault);
    }
    return Known.emplace(zone, std::move(loaded)).first->second;
}

const ZoneRules* ZoneCache::Rules(ZoneId zone) {
    return zone == kFloating ? nullptr : Load(zone).Rules.get();
}

const ZoneRules* ZoneCache::RulesByName(const std::string& name) {
    Query query(Kept, "SELECT id FROM zone WHERE name = ?");
    if (query.Bind(name).Next()) {
        return Rules(query.Integer(0));
    }
    const auto known = SystemZones.find(name);
    return known != SystemZones.end() ? known->second.get()
                                      : SystemZones.emplace(name, LoadZone(GetSource(), name)).first->second.get();
}

std::string ZoneCache::Name(ZoneId zone) {
    return zone == kFloating ? std::string() : Load(zone).Name;
}

Status ZoneCache::FindOrAdd(const std::string& name, ZoneId& zone) {
    zone = kFloating;
    if (name.empty()) {
        return Status::Ok;
    }
    Query find(Kept, "SELECT id FROM zone WHERE name = ?");
    if (find.Bind(name).Next()) {
        zone = find.Integer(0);
        return Status::Ok;
    }
    if (Failed(find.Result())) {
        return find.Result();
    }
    if (RulesByName(name) == nullptr) {
        return Status::InvalidArgument;
    }
    Query add(Kept, "INSERT INTO zone(name, sum) VALUES (?1, row_sum(?1, NULL))");
    const Status status = add.Bind(name).Finish();
    zone = sqlite3_last_insert_rowid(Kept.Raw());
    return status;
}

Status ZoneCache::Define(const std::string& name, const std::string& component, std::string& storedName) {
    storedName = name;
    if (LoadZone(GetSource(), name) != nullptr) {
        return Status::Ok; // the zone database is newer than what came along
    }
    std::string fault;
    if (ParseZoneComponent(component, fault) == nullptr) {
        return Status::InvalidArgument;
    }
    // Different calendars give different zones the same name: the second one gets a number.
    for (int number = 2;; ++number) {
        Query find(Kept, "SELECT component FROM zone WHERE name = ?");
        if (find.Bind(storedName).Next()) {
            if (find.Text(0) == component) {
                return Status::Ok;
            }
            storedName = name + " (" + std::to_string(number) + ")";
            continue;
        }
        if (Failed(find.Result())) {
            return find.Result();
        }
        Query add(Kept, "INSERT INTO zone(name, component, sum) VALUES (?1, ?2, row_sum(?1, ?2))");
        return add.Bind(storedName).Bind(component).Finish();
    }
}

void ZoneCache::Forget() {
    Known.clear();
}

} // namespace tavo::outlook

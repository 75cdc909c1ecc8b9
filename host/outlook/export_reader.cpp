// Items as values, with their kinds, and the zones that they name.
#include "host/outlook/export_reader.h"

#include "host/outlook/store_core.h"

#include <algorithm>
#include <utility>

namespace tavo::outlook {

ExportReader::ExportReader(StorePtr store) : Source(std::move(store)), Own(ReadStoreIdentity(CoreOf(*Source).Db)) {}

ExportReader::~ExportReader() {
    if (HoldsMoment) {
        static_cast<void>(CoreOf(*Source).EndReading()); // a change has ended it already
    }
}

Status ExportReader::HoldMoment() {
    const Status status = CoreOf(*Source).BeginReading();
    HoldsMoment = Succeeded(status);
    return status;
}

Status ExportReader::List(std::vector<Oid>& oids) {
    Query query(CoreOf(*Source).Db, "SELECT oid FROM item ORDER BY oid");
    while (query.Next()) {
        oids.push_back(query.Small(0));
    }
    return query.Result();
}

Status ExportReader::CountUnsaid(std::span<const Oid> oids, exchange::Unsaid& unsaid) {
    const std::pair<const char*, int exchange::Unsaid::*> parts[] = {
        {"SELECT DISTINCT oid FROM tag", &exchange::Unsaid::Kinds},
        {"SELECT oid FROM item WHERE reminder_sound <> ''", &exchange::Unsaid::Sounds},
        {"SELECT oid FROM ink", &exchange::Unsaid::Ink},
    };
    unsaid = {};
    for (const auto& [text, count] : parts) {
        Query query(CoreOf(*Source).Db, text);
        while (query.Next()) {
            unsaid.*count += std::binary_search(oids.begin(), oids.end(), query.Small(0)) ? 1 : 0;
        }
        if (Failed(query.Result())) {
            return query.Result();
        }
    }
    return Status::Ok;
}

Status ExportReader::ReadKinds(Oid oid, std::vector<TagList>& kinds) {
    std::vector<TagPlace> places;
    const Status status = CoreOf(*Source).Tags.FindPlaces(oid, places);
    kinds.clear();
    for (const TagPlace& place : places) {
        if (std::find(kinds.begin(), kinds.end(), place.List) == kinds.end()) {
            kinds.push_back(place.List);
        }
    }
    return status;
}

Status ExportReader::Read(Oid oid, exchange::ExportItem& item) {
    item = {};
    const Status status = CoreOf(*Source).Items.Read(oid, Ink::Take, item.Item);
    return Succeeded(status) ? ReadKinds(oid, item.Kinds) : status;
}

exchange::ExportZone ExportReader::ReadZone(const std::string& name) {
    StoreCore& core = CoreOf(*Source);
    exchange::ExportZone zone;
    Query query(core.Db, "SELECT component FROM zone WHERE name = ?");
    if (query.Bind(name).Next() && !query.IsNull(0)) {
        zone.Component = query.Text(0);
    }
    std::string fault;
    zone.Rules = zone.Component.empty() ? rules::LoadZone(core.Zones.GetSource(), name)
                                        : rules::ParseZoneComponent(zone.Component, fault);
    return zone;
}

std::string ExportReader::NameItem(Oid oid) const {
    return Own.Make(oid);
}

std::string ExportReader::NameMemo(std::string_view name) const {
    return Own.Make(name);
}

std::unique_ptr<exchange::IItemReader> MakeExportReader(StorePtr store) {
    return store ? std::make_unique<ExportReader>(std::move(store)) : nullptr;
}

} // namespace tavo::outlook

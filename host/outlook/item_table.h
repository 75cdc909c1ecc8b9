// Whole items in the store's tables: read, written and removed with all that hangs on them.
#pragma once

#include "host/outlook/series_table.h"
#include "host/outlook/zone_cache.h"

#include <cstdint>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace tavo::outlook {

enum class Ink { Leave, Take }; // whether the note is read or written with the rest

class ItemTable {
  public:
    ItemTable(Database& database, ZoneCache& zones)
        : Source(database), Zones(zones), Details(database), Expander(Details, zones) {}

    // NotFound when there is no such item.
    Status Read(Oid oid, Ink ink, StoredItem& item);
    Status ReadInk(Oid oid, std::vector<std::uint8_t>& ink);
    bool Exists(Oid oid);
    // 0 when no item has this UID. `source` gets the fingerprint of what was imported.
    Status FindByUid(const std::string& uid, Oid& oid, std::int64_t& source);
    Status ReadSource(Oid oid, std::int64_t& source);

    // The item must have passed CheckAndDerive; its wall-clock times are set from those of its zone. `fault` says what
    // is wrong when its zone is not understood (InvalidArgument). `source` is 0 for an item made here.
    Status Insert(StoredItem& item, std::int64_t source, std::string& fault);
    // Likewise for the item with this OID, as a whole.
    Status Update(StoredItem& item, Ink ink, std::int64_t source, std::string& fault);
    // NotFound when it is gone already.
    Status Remove(Oid oid);

    // Works out anew what stands in the tables of the times of zones and foreign rules. Items that have changed by
    // themselves on the disk keep the times they had.
    Status Rederive();

    SeriesExpander& Series() { return Expander; }

  private:
    // Works out all that follows from the item. What can be refused is refused here, before anything is written.
    Status Prepare(StoredItem& item, SeriesRow& series, std::string& fault);
    Status WriteRow(const char* sql, const StoredItem& item, ZoneId zone, std::int64_t source);
    Status WriteParts(const StoredItem& item, const SeriesRow& series);
    Status WriteSeries(const SeriesRow& row, const StoredItem& item);
    Status WriteExceptions(const StoredItem& item);
    // The lines of other calendars: of the item and of its exceptions.
    Status WriteCarried(const StoredItem& item);
    Status ReadCarried(StoredItem& item);
    Status WriteInk(Oid oid, std::span<const std::uint8_t> ink);
    Status RemovePlain(Oid oid);
    // Items with a row, or a zone, whose checksum is not its own.
    Status FindAltered(std::set<Oid>& altered);
    // Items whose times follow from a zone or a foreign rule, without those.
    Status FindDerived(std::vector<Oid>& derived);
    Status ReadRecurrence(StoredItem& item);

    Database& Source;
    ZoneCache& Zones;
    SeriesDetails Details;
    SeriesExpander Expander;
};

} // namespace tavo::outlook

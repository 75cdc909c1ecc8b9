// Where the items of an export come from.
#pragma once

#include "host/exchange/export_words.h"
#include "host/rules/stored_item.h"
#include "host/rules/zone_rules.h"
#include "platform/outlook.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::exchange {

// An item, and the lists of kinds that it stands in.
struct ExportItem {
    rules::StoredItem Item;
    std::vector<TagList> Kinds;
};

// A zone as items name it.
struct ExportZone {
    std::unique_ptr<rules::ZoneRules> Rules; // null: nothing is known of it any more
    std::string Component;                   // of one that came along with a calendar: its lines; else ""
};

class IItemReader {
  public:
    virtual ~IItemReader() = default;
    // All items, in the order of their numbers.
    virtual Status List(std::vector<Oid>& oids) = 0;
    // What others do not understand of these, which are in that order.
    virtual Status CountUnsaid(std::span<const Oid> oids, Unsaid& unsaid) = 0;
    // NotFound when it is gone.
    virtual Status Read(Oid oid, ExportItem& item) = 0;
    virtual ExportZone ReadZone(const std::string& name) = 0;
    // The UID of an item that was made here: the same in every export, and that of no other store.
    virtual std::string NameItem(Oid oid) const = 0;
    // Likewise of a memo, by its file.
    virtual std::string NameMemo(std::string_view name) const = 0;
};

} // namespace tavo::exchange

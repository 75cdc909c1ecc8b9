// Writes many items in one transaction, which is one step of undo: all of a file, or nothing of it.
#pragma once

#include "host/exchange/item_writer.h"
#include "host/outlook/store.h"
#include "host/outlook/terms.h"
#include "host/rules/stored_item.h"
#include "host/rules/zone_rules.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::outlook {

using exchange::ImportOutcome;
using exchange::ImportResult;
using exchange::TagWish;

// One transaction, which is one step of undo. Memory use does not grow with the number of items.
class ImportWriter final : public exchange::IItemWriter {
  public:
    explicit ImportWriter(StorePtr store);
    ~ImportWriter() override; // takes back what was not committed
    ImportWriter(const ImportWriter&) = delete;
    ImportWriter& operator=(const ImportWriter&) = delete;

    Status Begin(std::u16string_view groupName) override;
    std::unique_ptr<ZoneRules> LoadZone(const std::string& name) const override;
    Status DefineZone(const std::string& name, const std::string& component) override;
    Status Write(StoredItem item, ImportOutcome& outcome) override;
    Status WriteException(const std::string& uid, const StoredException& exception, ImportOutcome& outcome) override;
    Status RequestTag(TagList list, Oid item, TagWish wish = TagWish::Join) override;
    // Gives an item the pattern and foreign rule of `rule`, on the device's clock: what was said of single occurrences
    // goes with the old ones. NotFound when the item is gone; refused like any other that the store cannot keep.
    Status ChangeRule(Oid oid, const StoredItem& rule, ImportOutcome& outcome);
    Status Commit() override;
    Status Abandon() override;

  private:
    struct Work;
    std::unique_ptr<Work> State;
};

// Null without a store.
std::unique_ptr<exchange::IItemWriter> MakeImportWriter(const StorePtr& store);

} // namespace tavo::outlook

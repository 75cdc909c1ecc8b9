// Reads what an export takes out of the store.
#pragma once

#include "host/exchange/item_reader.h"
#include "host/outlook/store.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tavo::outlook {

class ExportReader final : public exchange::IItemReader {
  public:
    explicit ExportReader(StorePtr store);

    // All items, in the order of their numbers.
    Status List(std::vector<Oid>& oids);

    // The lists that it stands in, each once.
    Status ReadKinds(Oid oid, std::vector<TagList>& kinds);

    Status Read(Oid oid, exchange::ExportItem& item) override;
    exchange::ExportZone ReadZone(const std::string& name) override;
    std::string NameItem(Oid oid) const override;

  private:
    StorePtr Source;
};

} // namespace tavo::outlook

// Reads what an export takes out of the store.
#pragma once

#include "host/exchange/item_reader.h"
#include "host/outlook/own_uid.h"
#include "host/outlook/store.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace tavo::outlook {

class ExportReader final : public exchange::IItemReader {
  public:
    explicit ExportReader(StorePtr store);
    ~ExportReader() override;
    ExportReader(const ExportReader&) = delete;
    ExportReader& operator=(const ExportReader&) = delete;

    // From now on everything is read of this moment, until somebody begins a change; and it costs less. For who has
    // nothing else to do meanwhile: others' changes are not seen.
    Status HoldMoment();

    // The lists that it stands in, each once.
    Status ReadKinds(Oid oid, std::vector<TagList>& kinds);

    Status List(std::vector<Oid>& oids) override;
    Status CountUnsaid(std::span<const Oid> oids, exchange::Unsaid& unsaid) override;
    Status Read(Oid oid, exchange::ExportItem& item) override;
    exchange::ExportZone ReadZone(const std::string& name) override;
    std::string NameItem(Oid oid) const override;
    std::string NameMemo(std::string_view name) const override;

  private:
    StorePtr Source;
    OwnUids Own;
    bool HoldsMoment = false;
};

// Of the store that the program is logged on to; null for none.
std::unique_ptr<exchange::IItemReader> MakeExportReader(StorePtr store);

} // namespace tavo::outlook

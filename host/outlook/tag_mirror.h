// The store's mirror of the program's category lists, and the wishes of others about them.
#pragma once

#include "host/outlook/item_image.h"
#include "platform/outlook.h"

namespace tavo::outlook {

class StoreCore;

class TagMirror final : public ITagMirror {
  public:
    explicit TagMirror(StoreCore& core) : Core(core) {}

    Status ReplaceList(TagList list, std::span<const Oid> oids) override;
    Status ReportInserted(TagList list, std::int32_t position, Oid oid) override;
    Status ReportRemoved(TagList list, std::int32_t position, Oid oid) override;
    Status GetRequests(std::vector<TagRequest>& requests) override;
    Status FinishRequests(std::int64_t lastId) override;

    // Where the item stands in the lists now.
    Status FindPlaces(Oid oid, std::vector<TagPlace>& places);
    // Only within a transaction.
    Status AddRequest(const TagRequest& request);

  private:
    Status Insert(TagList list, std::int32_t position, Oid oid);
    Status Remove(TagList list, std::int32_t position, Oid oid);
    Status Renumber(TagList list);
    // With full steps between the places.
    Status WriteList(TagList list, std::span<const Oid> oids);
    Status NoteReplacement(TagList list, std::span<const Oid> oids);

    StoreCore& Core;
};

} // namespace tavo::outlook

// The UID that an item made here has in exports: of this store and this item, and of no other.
#pragma once

#include "host/outlook/database.h"
#include "host/outlook/terms.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tavo::outlook {

// Drawn when the store was made; 0 of one that an earlier program made and nobody has brought forward.
std::int64_t ReadStoreIdentity(Database& database);

// Those of one store.
class OwnUids {
  public:
    explicit OwnUids(std::int64_t identity);

    std::string Make(Oid oid) const;
    // Of a memo, by the name of its file.
    std::string Make(std::string_view memo) const;

    // The item that such a UID names; 0 for any other UID.
    Oid Read(std::string_view uid) const;

  private:
    bool HasIdentity;
    std::string Stem; // what all of them begin with
};

} // namespace tavo::outlook

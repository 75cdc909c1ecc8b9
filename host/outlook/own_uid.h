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

std::string MakeOwnUid(std::int64_t identity, Oid oid);
// Of a memo, by the name of its file.
std::string MakeOwnUid(std::int64_t identity, std::string_view memo);

// The item that such a UID names in the store of this identity; 0 for any other UID.
Oid ReadOwnUid(std::int64_t identity, std::string_view uid);

} // namespace tavo::outlook

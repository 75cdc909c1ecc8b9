// "tavo-" with the store's identity and the item's number.
#include "host/outlook/own_uid.h"

#include <charconv>
#include <cstdio>

namespace tavo::outlook {
namespace {

std::string MakeStem(std::int64_t identity) {
    char text[32];
    std::snprintf(text, sizeof text, "tavo-%016llx-", static_cast<unsigned long long>(identity));
    return text;
}

} // namespace

std::int64_t ReadStoreIdentity(Database& database) {
    Query query(database, "SELECT value FROM setting WHERE name = 'store_identity'");
    return query.Next() ? query.Integer(0) : 0;
}

std::string MakeOwnUid(std::int64_t identity, Oid oid) {
    return MakeStem(identity) + std::to_string(oid);
}

std::string MakeOwnUid(std::int64_t identity, std::string_view memo) {
    return MakeStem(identity) + std::string(memo);
}

Oid ReadOwnUid(std::int64_t identity, std::string_view uid) {
    const std::string stem = MakeStem(identity);
    Oid oid = 0;
    if (identity == 0 || !uid.starts_with(stem)) {
        return 0;
    }
    const char* const end = uid.data() + uid.size();
    const auto [stop, problem] = std::from_chars(uid.data() + stem.size(), end, oid);
    return problem == std::errc() && stop == end && oid > 0 ? oid : 0;
}

} // namespace tavo::outlook

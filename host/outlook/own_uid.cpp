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

OwnUids::OwnUids(std::int64_t identity) : HasIdentity(identity != 0), Stem(MakeStem(identity)) {}

std::string OwnUids::Make(Oid oid) const {
    return Stem + std::to_string(oid);
}

std::string OwnUids::Make(std::string_view memo) const {
    return Stem + std::string(memo);
}

Oid OwnUids::Read(std::string_view uid) const {
    if (!HasIdentity || !uid.starts_with(Stem)) {
        return 0;
    }
    Oid oid = 0;
    const char* const end = uid.data() + uid.size();
    const auto [stop, problem] = std::from_chars(uid.data() + Stem.size(), end, oid);
    return problem == std::errc() && stop == end && oid > 0 ? oid : 0;
}

} // namespace tavo::outlook

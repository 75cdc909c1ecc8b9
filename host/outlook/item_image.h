// An item as bytes: the journal's picture of what was there before, and the fingerprint of what was imported.
#pragma once

#include "host/outlook/terms.h"
#include "host/rules/stored_item.h"

#include <cstdint>
#include <span>
#include <vector>

namespace tavo::outlook {

// Where an item stood in one of the category lists.
struct TagPlace {
    TagList List = TagList::Alarm;
    std::int32_t Position = 0;
    friend bool operator==(const TagPlace&, const TagPlace&) = default;
};

struct ItemImage {
    StoredItem Item; // its note counts only with HasInk
    std::int64_t Source = 0;
    bool HasInk = false;
    std::vector<TagPlace> Tags;
};

std::vector<std::uint8_t> EncodeImage(const ItemImage& image);
// False for bytes that EncodeImage did not make.
bool DecodeImage(std::span<const std::uint8_t> bytes, ItemImage& image);

std::vector<std::uint8_t> EncodeTag(TagPlace place);
bool DecodeTag(std::span<const std::uint8_t> bytes, TagPlace& place);

// Of everything that an import brings; stores keep it, so it must not change with the program's version. Never one of
// the two small numbers.
std::int64_t FingerprintOf(const StoredItem& item);
std::int64_t FingerprintOf(const StoredException& exception);

constexpr std::int64_t kMadeHere = 0;   // the source of what was not imported
constexpr std::int64_t kCameInside = 1; // of an exception that came inside its series

} // namespace tavo::outlook

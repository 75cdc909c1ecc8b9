// An item of the store as the events that other calendars read.
#pragma once

#include "host/exchange/item_reader.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace tavo::exchange {

// A zone under the name that the file gives it.
struct WrittenZone {
    std::string Tzid;                        // "" for universal time
    const rules::ZoneRules* Rules = nullptr; // null: unknown, so its times are written as local ones
};

// By the name that items give; not asked for floating times.
using ZoneWords = std::function<WrittenZone(const std::string& name)>;
// A picture of ink as an SVG document; "" of bytes that are none.
using InkDrawing = std::function<std::string(std::span<const std::uint8_t> ink)>;

// What stays the same for all events of a file.
struct EventWords {
    std::string Stamp; // the moment of the export: "20260503T090000Z"
    ZoneWords Zones;
    InkDrawing DrawInk;
};

// Adds the event, and one for each occurrence that was moved, to `file`. `uid` is the item's.
void WriteEvents(const ExportItem& item, std::string_view uid, const EventWords& words, std::string& file);

} // namespace tavo::exchange

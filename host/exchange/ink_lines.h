// Ink in an entry: a picture for others, and its own bytes.
#pragma once

#include "host/exchange/event_writer.h"

#include <cstdint>
#include <span>
#include <string>

namespace tavo::exchange {

// Adds nothing where there is no ink, and no picture of bytes that are none.
void AppendInk(std::span<const std::uint8_t> ink, const InkDrawing& draw, std::string& file);

} // namespace tavo::exchange

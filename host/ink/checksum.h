// The checksum over the bytes of a memo.
#pragma once

#include <cstdint>
#include <span>

namespace tavo::ink {

// CRC-32C: polynomial 0x1EDC6F41, bits reflected, begun and ended with all ones.
std::uint32_t Checksum(std::span<const std::uint8_t> bytes);

} // namespace tavo::ink

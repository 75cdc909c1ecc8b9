// Eight bytes at a time, by eight tables.
#include "host/ink/checksum.h"

#include <array>
#include <cstddef>
#include <cstring>

namespace tavo::ink {
namespace {

constexpr std::uint32_t kReflectedPolynomial = 0x82F63B78;
constexpr std::size_t kStep = 8;

using Table = std::array<std::uint32_t, 256>;

constexpr std::array<Table, kStep> MakeTables() {
    std::array<Table, kStep> tables{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t value = byte;
        for (int bit = 0; bit < 8; ++bit) {
            value = (value >> 1) ^ ((value & 1) != 0 ? kReflectedPolynomial : 0);
        }
        tables[0][byte] = value;
    }
    for (std::size_t table = 1; table < kStep; ++table) {
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const std::uint32_t before = tables[table - 1][byte];
            tables[table][byte] = (before >> 8) ^ tables[0][before & 0xFF];
        }
    }
    return tables;
}

constexpr std::array<Table, kStep> kTables = MakeTables();

std::uint32_t ReadWord(const std::uint8_t* bytes) {
    return static_cast<std::uint32_t>(bytes[0]) | static_cast<std::uint32_t>(bytes[1]) << 8 |
           static_cast<std::uint32_t>(bytes[2]) << 16 | static_cast<std::uint32_t>(bytes[3]) << 24;
}

} // namespace

std::uint32_t Checksum(std::span<const std::uint8_t> bytes) {
    std::uint32_t sum = 0xFFFFFFFF;
    const std::uint8_t* next = bytes.data();
    std::size_t rest = bytes.size();
    for (; rest >= kStep; rest -= kStep, next += kStep) {
        const std::uint32_t low = sum ^ ReadWord(next);
        const std::uint32_t high = ReadWord(next + 4);
        sum = kTables[7][low & 0xFF] ^ kTables[6][(low >> 8) & 0xFF] ^ kTables[5][(low >> 16) & 0xFF] ^
              kTables[4][low >> 24] ^ kTables[3][high & 0xFF] ^ kTables[2][(high >> 8) & 0xFF] ^
              kTables[1][(high >> 16) & 0xFF] ^ kTables[0][high >> 24];
    }
    for (; rest > 0; --rest, ++next) {
        sum = (sum >> 8) ^ kTables[0][(sum ^ *next) & 0xFF];
    }
    return ~sum;
}

} // namespace tavo::ink

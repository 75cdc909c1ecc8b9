// The bytes of an ink's home: version, OID, day, fingerprint, path.
#include "memo/ink_home.h"

#include "memo/note_bytes.h"

#include <limits>

namespace tavo {

namespace {
constexpr std::uint64_t kVersion = 1;
}

// FNV-1a.
std::uint64_t FingerprintOf(std::span<const std::uint8_t> ink) {
    if (ink.empty()) {
        return 0;
    }
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const std::uint8_t byte : ink) {
        hash = (hash ^ byte) * 0x100000001B3;
    }
    return hash;
}

std::vector<std::uint8_t> EncodeInkHome(const InkHome& home) {
    NoteWriter writer;
    writer.PutNumber(kVersion, 1);
    writer.PutNumber(static_cast<std::uint64_t>(home.Item), 4);
    writer.PutNumber(home.Day.Year, 2);
    writer.PutNumber(home.Day.Month, 1);
    writer.PutNumber(home.Day.Day, 1);
    writer.PutNumber(home.Before, 8);
    writer.PutText(home.Memo);
    return writer.Take();
}

std::optional<InkHome> DecodeInkHome(std::span<const std::uint8_t> bytes) {
    NoteReader reader(bytes);
    const bool isKnown = reader.TakeNumber(1) == kVersion;
    const std::uint64_t item = reader.TakeNumber(4);
    InkHome home;
    home.Day.Year = static_cast<std::uint16_t>(reader.TakeNumber(2));
    home.Day.Month = static_cast<std::uint16_t>(reader.TakeNumber(1));
    home.Day.Day = static_cast<std::uint16_t>(reader.TakeNumber(1));
    home.Before = reader.TakeNumber(8);
    home.Memo = reader.TakeText();
    if (!isKnown || !reader.IsWhole() || !reader.IsAtEnd() || item > std::numeric_limits<Oid>::max()) {
        return std::nullopt;
    }
    home.Item = static_cast<Oid>(item);
    return home;
}

} // namespace tavo

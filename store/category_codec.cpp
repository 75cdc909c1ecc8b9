// The bytes of TavoCalendar.dat: for each list its count and OIDs, little-endian, and a semicolon.
#include "store/category_codec.h"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace tavo {

namespace {

constexpr std::uint8_t kSectionEnd = ';';
constexpr std::size_t kWordSize = 4;

// Takes numbers from the front of some bytes.
class ByteReader {
  public:
    explicit ByteReader(std::span<const std::uint8_t> bytes) : Rest(bytes) {}

    std::size_t Remaining() const { return Rest.size(); }

    std::optional<std::uint32_t> TakeWord() {
        if (Rest.size() < kWordSize) {
            return std::nullopt;
        }
        const std::uint32_t word = Rest[0] | static_cast<std::uint32_t>(Rest[1]) << 8 |
                                   static_cast<std::uint32_t>(Rest[2]) << 16 |
                                   static_cast<std::uint32_t>(Rest[3]) << 24;
        Rest = Rest.subspan(kWordSize);
        return word;
    }

    bool TakeSectionEnd() {
        if (Rest.empty() || Rest[0] != kSectionEnd) {
            return false;
        }
        Rest = Rest.subspan(1);
        return true;
    }

  private:
    std::span<const std::uint8_t> Rest;
};

bool DecodeSection(ByteReader& reader, std::vector<Oid>& oids) {
    const std::optional<std::uint32_t> count = reader.TakeWord();
    if (!count) {
        return false;
    }
    // The count may claim anything; memory is taken for what is there.
    oids.reserve(std::min<std::size_t>(*count, reader.Remaining() / kWordSize));
    for (std::uint32_t index = 0; index < *count; ++index) {
        const std::optional<std::uint32_t> oid = reader.TakeWord();
        if (!oid) {
            return false;
        }
        oids.push_back(static_cast<Oid>(*oid));
    }
    return reader.TakeSectionEnd();
}

void AppendWord(std::vector<std::uint8_t>& bytes, std::uint32_t word) {
    for (int shift = 0; shift < 32; shift += 8) {
        bytes.push_back(static_cast<std::uint8_t>(word >> shift));
    }
}

void AppendSection(std::vector<std::uint8_t>& bytes, std::span<const Oid> oids) {
    AppendWord(bytes, static_cast<std::uint32_t>(oids.size()));
    for (const Oid oid : oids) {
        AppendWord(bytes, static_cast<std::uint32_t>(oid));
    }
    bytes.push_back(kSectionEnd);
}

} // namespace

bool DecodeCategoryFile(std::span<const std::uint8_t> bytes, CategoryFileLists& lists) {
    for (std::vector<Oid>& list : lists) {
        list.clear();
    }
    ByteReader reader(bytes);
    return std::all_of(lists.begin(), lists.end(), [&](std::vector<Oid>& list) { return DecodeSection(reader, list); });
}

std::vector<std::uint8_t> EncodeCategoryFile(std::span<const Oid> alarms, std::span<const Oid> holidays,
                                             std::span<const Oid> anniversaries) {
    std::vector<std::uint8_t> bytes;
    AppendSection(bytes, alarms);
    AppendSection(bytes, holidays);
    AppendSection(bytes, anniversaries);
    return bytes;
}

} // namespace tavo

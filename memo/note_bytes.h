// Numbers and texts as bytes, for what the program writes into recovery files and the store's journal.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavo {

// Numbers go lowest byte first; a text is its length in units (two bytes) and two bytes for each.
class NoteWriter {
  public:
    void PutNumber(std::uint64_t value, int size);
    // At most 65,535 units; the rest of a longer one is left out.
    void PutText(std::u16string_view text);

    void PutBytes(std::span<const std::uint8_t> bytes) { Written.insert(Written.end(), bytes.begin(), bytes.end()); }

    std::vector<std::uint8_t> Take() { return std::move(Written); }

  private:
    std::vector<std::uint8_t> Written;
};

// Of bytes that are too few gives zeros and empty texts, and says so at the end.
class NoteReader {
  public:
    explicit NoteReader(std::span<const std::uint8_t> bytes) : Rest(bytes) {}

    std::uint64_t TakeNumber(int size);
    std::u16string TakeText();
    std::span<const std::uint8_t> TakeBytes(std::size_t count);

    std::span<const std::uint8_t> TakeRest() { return TakeBytes(Rest.size()); }

    // Everything asked for was there.
    bool IsWhole() const { return !Short; }

    bool IsAtEnd() const { return Rest.empty(); }

  private:
    std::span<const std::uint8_t> Rest;
    bool Short = false;
};

} // namespace tavo

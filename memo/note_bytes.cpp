// Writing and reading such bytes.
#include "memo/note_bytes.h"

#include <algorithm>

namespace tavo {

namespace {

constexpr int kLengthSize = 2;
constexpr int kUnitSize = 2;
constexpr std::size_t kLongestText = 0xFFFF;

} // namespace

void NoteWriter::PutNumber(std::uint64_t value, int size) {
    for (int place = 0; place < size; ++place) {
        Written.push_back(static_cast<std::uint8_t>(value >> (8 * place)));
    }
}

void NoteWriter::PutText(std::u16string_view text) {
    text = text.substr(0, std::min(text.size(), kLongestText));
    PutNumber(text.size(), kLengthSize);
    for (const char16_t unit : text) {
        PutNumber(unit, kUnitSize);
    }
}

std::uint64_t NoteReader::TakeNumber(int size) {
    const std::span<const std::uint8_t> bytes = TakeBytes(static_cast<std::size_t>(size));
    std::uint64_t value = 0;
    for (std::size_t place = bytes.size(); place-- > 0;) {
        value = value << 8 | bytes[place];
    }
    return value;
}

std::u16string NoteReader::TakeText() {
    const std::size_t units = TakeNumber(kLengthSize);
    NoteReader letters(TakeBytes(units * kUnitSize));
    std::u16string text;
    while (!letters.IsAtEnd()) {
        text.push_back(static_cast<char16_t>(letters.TakeNumber(kUnitSize)));
    }
    return text;
}

std::span<const std::uint8_t> NoteReader::TakeBytes(std::size_t count) {
    Short = Short || count > Rest.size();
    if (Short) {
        Rest = {};
        return {};
    }
    const std::span<const std::uint8_t> bytes = Rest.first(count);
    Rest = Rest.subspan(count);
    return bytes;
}

} // namespace tavo

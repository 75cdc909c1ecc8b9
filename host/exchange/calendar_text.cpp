// Text of a calendar file as the store keeps it.
#include "host/exchange/calendar_text.h"

#include <algorithm>
#include <cstdint>

namespace tavo::exchange {
namespace {

constexpr char32_t kLastBasic = 0xFFFF;
constexpr char32_t kLastUnicode = 0x10FFFF;

bool IsContinuation(char character) {
    return (static_cast<unsigned char>(character) & 0xC0) == 0x80;
}

// The length of the sequence that a byte begins, 0 for a byte that begins none.
std::size_t MeasureSequence(unsigned char first) {
    if (first < 0x80) {
        return 1;
    }
    if (first >= 0xC2 && first < 0xE0) {
        return 2;
    }
    if (first >= 0xE0 && first < 0xF0) {
        return 3;
    }
    return first >= 0xF0 && first < 0xF5 ? 4 : 0;
}

// Reads the character at `position` and moves behind it; false when the bytes are not UTF-8.
bool ReadCharacter(std::string_view text, std::size_t& position, char32_t& character) {
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto first = static_cast<unsigned char>(text[position]);
    const std::size_t length = MeasureSequence(first);
    if (length == 0 || text.size() - position < length) {
        return false;
    }
    character = length == 1 ? first : first & (0x7FU >> length);
    for (std::size_t index = 1; index < length; ++index) {
        if (!IsContinuation(text[position + index])) {
            return false;
        }
        character = character << 6 | (static_cast<unsigned char>(text[position + index]) & 0x3FU);
    }
    const bool surrogate = character >= 0xD800 && character < 0xE000;
    if (character < kSmallest[length] || character > kLastUnicode || surrogate) {
        return false;
    }
    position += length;
    return true;
}

void AppendCharacter(std::u16string& text, char32_t character) {
    if (character <= kLastBasic) {
        text += static_cast<char16_t>(character);
        return;
    }
    character -= kLastBasic + 1;
    text += static_cast<char16_t>(0xD800 + (character >> 10));
    text += static_cast<char16_t>(0xDC00 + (character & 0x3FF));
}

std::u16string DecodeLatin1(std::string_view text) {
    std::u16string decoded;
    decoded.reserve(text.size());
    for (const char character : text) {
        decoded += static_cast<char16_t>(static_cast<unsigned char>(character));
    }
    return decoded;
}

} // namespace

std::u16string DecodeText(std::string_view text) {
    std::u16string decoded;
    decoded.reserve(text.size());
    std::size_t position = 0;
    while (position < text.size()) {
        if (const auto plain = static_cast<unsigned char>(text[position]); plain < 0x80) {
            decoded += static_cast<char16_t>(plain);
            ++position;
            continue;
        }
        char32_t character = 0;
        if (!ReadCharacter(text, position, character)) {
            decoded = DecodeLatin1(text);
            break;
        }
        AppendCharacter(decoded, character);
    }
    std::erase(decoded, u'\r');
    return decoded;
}

std::string RemoveEscapes(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char next = text[at] == '\\' && at + 1 < text.size() ? text[at + 1] : '\0';
        if (next == 'n' || next == 'N') {
            plain += '\n';
            ++at;
        } else if (next == '\\' || next == ';' || next == ',' || next == '"') {
            plain += next;
            ++at;
        } else {
            plain += text[at];
        }
    }
    return plain;
}

std::vector<std::string_view> SplitTexts(std::string_view list) {
    std::vector<std::string_view> texts;
    std::size_t begin = 0;
    for (std::size_t at = 0; at < list.size(); ++at) {
        if (list[at] == '\\') {
            ++at;
        } else if (list[at] == ',') {
            texts.push_back(list.substr(begin, at - begin));
            begin = at + 1;
        }
    }
    texts.push_back(list.substr(begin));
    return texts;
}

} // namespace tavo::exchange

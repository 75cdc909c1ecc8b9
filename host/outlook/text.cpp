// UTF-16 to UTF-8 and back. A lone surrogate is written as the three bytes of its number, since a text that a person
// cut in the middle of a character must come back as it was.
#include "host/outlook/text.h"

#include "host/locale/plain_text.h"

#include <cstddef>
#include <cstdint>

namespace tavo::outlook {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsLead(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsTrail(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

void AppendUtf8(std::string& out, char32_t code) {
    const auto put = [&out](char32_t byte) { out.push_back(static_cast<char>(static_cast<unsigned char>(byte))); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0 | (code >> 6));
        put(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        put(0xE0 | (code >> 12));
        put(0x80 | ((code >> 6) & 0x3F));
        put(0x80 | (code & 0x3F));
    } else {
        put(0xF0 | (code >> 18));
        put(0x80 | ((code >> 12) & 0x3F));
        put(0x80 | ((code >> 6) & 0x3F));
        put(0x80 | (code & 0x3F));
    }
}

// Reads one character at `at` and moves past it; bytes that are no character give the replacement character.
char32_t TakeUtf8(std::string_view text, std::size_t& at) {
    const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    const unsigned char first = byte(at++);
    if (first < 0x80) {
        return first;
    }
    const int more = first >= 0xF0 && first < 0xF5   ? 3
                     : first >= 0xE0 && first < 0xF0 ? 2
                     : first >= 0xC2 && first < 0xE0 ? 1
                                                     : 0;
    if (more == 0) {
        return kReplacement;
    }
    char32_t code = static_cast<char32_t>(first & (0x3F >> more));
    for (int count = 0; count < more; ++count) {
        if (at >= text.size() || (byte(at) & 0xC0) != 0x80) {
            return kReplacement;
        }
        code = (code << 6) | static_cast<char32_t>(byte(at++) & 0x3F);
    }
    return code > 0x10FFFF ? kReplacement : code;
}

} // namespace

std::string ToUtf8(std::u16string_view text) {
    std::string out;
    for (std::size_t at = locale::TakePlain(text, out); at < text.size(); ++at) {
        char32_t code = text[at];
        if (IsLead(code) && at + 1 < text.size() && IsTrail(text[at + 1])) {
            code = 0x10000 + ((code - 0xD800) << 10) + (static_cast<char32_t>(text[++at]) - 0xDC00);
        }
        AppendUtf8(out, code);
    }
    return out;
}

std::u16string ToUtf16(std::string_view text) {
    std::u16string out;
    for (std::size_t at = locale::TakePlain(text, out); at < text.size();) {
        const char32_t code = TakeUtf8(text, at);
        if (code < 0x10000) {
            out.push_back(static_cast<char16_t>(code));
        } else {
            out.push_back(static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10)));
            out.push_back(static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF)));
        }
    }
    return out;
}

} // namespace tavo::outlook

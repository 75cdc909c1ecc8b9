// UTF-8 to UTF-16 and back.
#include "host/locale/utf.h"

#include "host/locale/plain_text.h"

#include <cstddef>

namespace tavo::locale {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

void AppendUtf16(std::u16string& text, char32_t point) {
    if (point < 0x10000) {
        text += static_cast<char16_t>(point);
        return;
    }
    text += static_cast<char16_t>(0xD7C0 + (point >> 10));
    text += static_cast<char16_t>(0xDC00 + (point & 0x3FF));
}

// How a character begins: how many bytes follow, and the range of the first of them (which rules out overlong forms,
// surrogates and what lies beyond U+10FFFF).
struct Lead {
    std::size_t Followers = 0;
    unsigned char Lowest = 0x80;
    unsigned char Highest = 0xBF;
};

bool ReadLead(unsigned char byte, Lead& lead) {
    if (byte >= 0xC2 && byte <= 0xDF) {
        lead.Followers = 1;
    } else if (byte >= 0xE0 && byte <= 0xEF) {
        lead = {2, static_cast<unsigned char>(byte == 0xE0 ? 0xA0 : 0x80),
                static_cast<unsigned char>(byte == 0xED ? 0x9F : 0xBF)};
    } else if (byte >= 0xF0 && byte <= 0xF4) {
        lead = {3, static_cast<unsigned char>(byte == 0xF0 ? 0x90 : 0x80),
                static_cast<unsigned char>(byte == 0xF4 ? 0x8F : 0xBF)};
    } else {
        return false;
    }
    return true;
}

// The character of several bytes at `at`, moving `at` behind it; on a fault behind the bytes that belong together.
bool ReadLongCharacter(std::string_view bytes, std::size_t& at, char32_t& point) {
    const auto first = static_cast<unsigned char>(bytes[at++]);
    Lead lead;
    if (!ReadLead(first, lead)) {
        return false;
    }
    point = first & (0x3Fu >> lead.Followers);
    for (std::size_t i = 0; i < lead.Followers; ++i) {
        if (at == bytes.size()) {
            return false;
        }
        const auto byte = static_cast<unsigned char>(bytes[at]);
        if (byte < (i == 0 ? lead.Lowest : 0x80) || byte > (i == 0 ? lead.Highest : 0xBF)) {
            return false;
        }
        point = point << 6 | (byte & 0x3Fu);
        ++at;
    }
    return true;
}

bool ConvertToUtf8(std::u16string_view text, std::string& bytes) {
    bool exact = true;
    for (std::size_t i = TakePlain(text, bytes); i < text.size(); ++i) {
        char32_t point = text[i];
        if (IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            point = 0x10000 + ((point - 0xD800) << 10) + (text[i + 1] - 0xDC00u);
            ++i;
        } else if (IsHighSurrogate(text[i]) || IsLowSurrogate(text[i])) {
            point = kReplacement;
            exact = false;
        }
        AppendCharacter(bytes, point);
    }
    return exact;
}

bool ConvertToUtf16(std::string_view bytes, std::u16string& text) {
    bool exact = true;
    for (std::size_t at = TakePlain(bytes, text); at < bytes.size();) {
        if (static_cast<unsigned char>(bytes[at]) < 0x80) {
            text += static_cast<char16_t>(bytes[at++]);
            continue;
        }
        char32_t point = 0;
        if (!ReadLongCharacter(bytes, at, point)) {
            point = kReplacement;
            exact = false;
        }
        AppendUtf16(text, point);
    }
    return exact;
}

} // namespace

void AppendCharacter(std::string& bytes, char32_t point) {
    const auto append = [&bytes](char32_t value) { bytes += static_cast<char>(static_cast<unsigned char>(value)); };
    if (point < 0x80) {
        append(point);
        return;
    }
    if (point < 0x800) {
        append(0xC0 | point >> 6);
    } else {
        if (point < 0x10000) {
            append(0xE0 | point >> 12);
        } else {
            append(0xF0 | point >> 18);
            append(0x80 | (point >> 12 & 0x3F));
        }
        append(0x80 | (point >> 6 & 0x3F));
    }
    append(0x80 | (point & 0x3F));
}

char32_t TakeCharacter(std::string_view bytes, std::size_t& at) {
    if (static_cast<unsigned char>(bytes[at]) < 0x80) {
        return static_cast<unsigned char>(bytes[at++]);
    }
    char32_t point = 0;
    return ReadLongCharacter(bytes, at, point) ? point : kReplacement;
}

std::string ToUtf8(std::u16string_view text) {
    std::string bytes;
    static_cast<void>(ConvertToUtf8(text, bytes)); // faults are replaced
    return bytes;
}

std::u16string ToUtf16(std::string_view bytes) {
    std::u16string text;
    static_cast<void>(ConvertToUtf16(bytes, text)); // faults are replaced
    return text;
}

std::optional<std::string> ToUtf8Exactly(std::u16string_view text) {
    std::string bytes;
    if (!ConvertToUtf8(text, bytes)) {
        return std::nullopt;
    }
    return bytes;
}

std::optional<std::u16string> ToUtf16Exactly(std::string_view bytes) {
    std::u16string text;
    if (!ConvertToUtf16(bytes, text)) {
        return std::nullopt;
    }
    return text;
}

} // namespace tavo::locale

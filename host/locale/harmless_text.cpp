// What becomes of each character. Most text has nothing to mend and is copied whole.
#include "host/locale/harmless_text.h"

#include "host/locale/utf.h"

#include <algorithm>

namespace tavo::locale {

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kControlSymbols = 0x2400; // in the order of the control characters
constexpr char32_t kDeleteSymbol = 0x2421;
constexpr char32_t kNewLineSymbol = 0x2424;
constexpr char32_t kLeftOut = 0; // a zero itself has a symbol

constexpr bool IsBetween(char32_t point, char32_t first, char32_t last) {
    return point >= first && point <= last;
}

constexpr bool IsNoCharacter(char32_t point) {
    return IsBetween(point, 0xFDD0, 0xFDEF) || (point & 0xFFFE) == 0xFFFE;
}

constexpr bool TurnsDirection(char32_t point) {
    return IsBetween(point, 0x202A, 0x202E) || IsBetween(point, 0x2066, 0x2069);
}

// What stands for a character.
constexpr char32_t Replace(char32_t point) {
    if (point < 0x20) {
        return kControlSymbols + point;
    }
    if (point == 0x7F) {
        return kDeleteSymbol;
    }
    if (point == 0x85 || IsBetween(point, 0x2028, 0x2029)) {
        return kNewLineSymbol;
    }
    if (TurnsDirection(point) || point == 0xFEFF) {
        return kLeftOut;
    }
    return IsBetween(point, 0x80, 0x9F) || IsNoCharacter(point) ? kReplacement : point;
}

constexpr bool IsPlainAscii(char letter) {
    return letter >= ' ' && letter < 0x7F;
}

} // namespace

void AppendHarmless(std::string_view bytes, std::string& text) {
    std::size_t at = 0;
    while (at < bytes.size()) {
        const std::string_view rest = bytes.substr(at);
        const auto plain =
            static_cast<std::size_t>(std::find_if_not(rest.begin(), rest.end(), IsPlainAscii) - rest.begin());
        text += rest.substr(0, plain);
        at += plain;
        if (at < bytes.size()) {
            if (const char32_t point = Replace(TakeCharacter(bytes, at)); point != kLeftOut) {
                AppendCharacter(text, point);
            }
        }
    }
}

std::string MakeHarmless(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    AppendHarmless(bytes, text);
    return text;
}

bool IsHarmless(std::string_view bytes) {
    return MakeHarmless(bytes) == bytes;
}

} // namespace tavo::locale

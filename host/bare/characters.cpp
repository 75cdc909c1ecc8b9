// Marks, joiners and pairs.
#include "host/bare/characters.h"

#include <algorithm>
#include <iterator>

namespace tavo::bare {

namespace {

constexpr char32_t kJoiner = 0x200D;

struct CodeRange {
    char32_t First;
    char32_t Last;
};

// What belongs to the character before it: marks above, below and inside, joiners, variations, skin tones.
constexpr CodeRange kMarks[] = {
    {0x0300, 0x036F}, {0x0483, 0x0489}, {0x0591, 0x05BD}, {0x05BF, 0x05BF}, {0x05C1, 0x05C2},   {0x05C4, 0x05C5},
    {0x05C7, 0x05C7}, {0x0610, 0x061A}, {0x064B, 0x065F}, {0x0670, 0x0670}, {0x06D6, 0x06DC},   {0x06DF, 0x06E4},
    {0x06E7, 0x06E8}, {0x06EA, 0x06ED}, {0x0900, 0x0903}, {0x093A, 0x093C}, {0x093E, 0x094F},   {0x0E31, 0x0E31},
    {0x0E33, 0x0E3A}, {0x0E47, 0x0E4E}, {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF}, {0x200C, 0x200D},   {0x20D0, 0x20FF},
    {0x302A, 0x302F}, {0x3099, 0x309A}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}, {0x1F3FB, 0x1F3FF}, {0xE0020, 0xE007F},
};

bool IsHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

bool IsFlagLetter(char32_t code) {
    return code >= 0x1F1E6 && code <= 0x1F1FF;
}

bool IsPicture(char32_t code) {
    return code >= 0x2190 && !IsFlagLetter(code);
}

bool IsMark(char32_t code) {
    return std::any_of(std::begin(kMarks), std::end(kMarks),
                       [code](const CodeRange& range) { return code >= range.First && code <= range.Last; });
}

char32_t CodeAt(std::u16string_view text, std::size_t at) {
    if (IsHighSurrogate(text[at]) && at + 1 < text.size() && IsLowSurrogate(text[at + 1])) {
        return 0x10000U + ((char32_t{text[at]} - 0xD800U) << 10) + (char32_t{text[at + 1]} - 0xDC00U);
    }
    return text[at];
}

} // namespace

std::size_t FindCharacterEnd(std::u16string_view text, std::size_t start) {
    char32_t last = CodeAt(text, start);
    std::size_t end = start + (last > 0xFFFF ? 2 : 1);
    const bool isPicture = IsPicture(last);
    bool isHalfFlag = IsFlagLetter(last);
    while (end < text.size() && last >= u' ') {
        const char32_t next = CodeAt(text, end);
        const bool completesFlag = isHalfFlag && IsFlagLetter(next);
        if (!IsMark(next) && !completesFlag && !(isPicture && last == kJoiner && IsPicture(next))) {
            break;
        }
        isHalfFlag = false;
        last = next;
        end += next > 0xFFFF ? 2 : 1;
    }
    return end;
}

} // namespace tavo::bare

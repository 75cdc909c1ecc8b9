// Simple case folding by ranges of letters.
#include "host/locale/case_folding.h"

#include <algorithm>
#include <array>

namespace tavo::locale {

namespace {

enum class Pattern : unsigned char {
    Shifted,  // every letter of the range is a capital; the small one lies `Distance` further
    EvenPair, // capital and small letter alternate, capitals on even numbers
    OddPair,  // the same with capitals on odd numbers
};

struct LetterRange {
    char16_t First;
    char16_t Last;
    Pattern Kind;
    int Distance;
};

constexpr std::array kRanges{
    LetterRange{0x0041, 0x005A, Pattern::Shifted, 32},    // Latin
    LetterRange{0x00C0, 0x00D6, Pattern::Shifted, 32},    // Latin-1
    LetterRange{0x00D8, 0x00DE, Pattern::Shifted, 32},    //
    LetterRange{0x0100, 0x012F, Pattern::EvenPair, 1},    // Latin Extended-A
    LetterRange{0x0132, 0x0137, Pattern::EvenPair, 1},    //
    LetterRange{0x0139, 0x0148, Pattern::OddPair, 1},     //
    LetterRange{0x014A, 0x0177, Pattern::EvenPair, 1},    //
    LetterRange{0x0178, 0x0178, Pattern::Shifted, -121},  //
    LetterRange{0x0179, 0x017E, Pattern::OddPair, 1},     //
    LetterRange{0x01A0, 0x01A5, Pattern::EvenPair, 1},    // Latin Extended-B, the regular parts
    LetterRange{0x01AF, 0x01B0, Pattern::OddPair, 1},     //
    LetterRange{0x01CD, 0x01DC, Pattern::OddPair, 1},     //
    LetterRange{0x01DE, 0x01EF, Pattern::EvenPair, 1},    //
    LetterRange{0x01F8, 0x021F, Pattern::EvenPair, 1},    //
    LetterRange{0x0222, 0x0233, Pattern::EvenPair, 1},    //
    LetterRange{0x0386, 0x0386, Pattern::Shifted, 38},    // Greek
    LetterRange{0x0388, 0x038A, Pattern::Shifted, 37},    //
    LetterRange{0x038C, 0x038C, Pattern::Shifted, 64},    //
    LetterRange{0x038E, 0x038F, Pattern::Shifted, 63},    //
    LetterRange{0x0391, 0x03A1, Pattern::Shifted, 32},    //
    LetterRange{0x03A3, 0x03AB, Pattern::Shifted, 32},    //
    LetterRange{0x03C2, 0x03C2, Pattern::Shifted, 1},     // the final sigma is a sigma
    LetterRange{0x0400, 0x040F, Pattern::Shifted, 80},    // Cyrillic
    LetterRange{0x0410, 0x042F, Pattern::Shifted, 32},    //
    LetterRange{0x0460, 0x0481, Pattern::EvenPair, 1},    //
    LetterRange{0x048A, 0x04BF, Pattern::EvenPair, 1},    //
    LetterRange{0x04C0, 0x04C0, Pattern::Shifted, 15},    //
    LetterRange{0x04C1, 0x04CE, Pattern::OddPair, 1},     //
    LetterRange{0x04D0, 0x052F, Pattern::EvenPair, 1},    //
    LetterRange{0x0531, 0x0556, Pattern::Shifted, 48},    // Armenian
    LetterRange{0x1E00, 0x1E95, Pattern::EvenPair, 1},    // Latin Extended Additional
    LetterRange{0x1E9E, 0x1E9E, Pattern::Shifted, -7615}, //
    LetterRange{0x1EA0, 0x1EFF, Pattern::EvenPair, 1},    //
    LetterRange{0xFF21, 0xFF3A, Pattern::Shifted, 32},    // full width
};

bool IsCapital(const LetterRange& range, char16_t unit) {
    const bool isOdd = (unit & 1) != 0;
    return range.Kind == Pattern::Shifted || isOdd == (range.Kind == Pattern::OddPair);
}

} // namespace

char16_t FoldCase(char16_t unit) {
    if (unit < 0x80) {
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
    }
    const auto* range = std::ranges::lower_bound(kRanges, unit, {}, &LetterRange::Last);
    if (range == kRanges.end() || unit < range->First || !IsCapital(*range, unit)) {
        return unit;
    }
    return static_cast<char16_t>(unit + range->Distance);
}

std::u16string FoldCase(std::u16string_view text) {
    std::u16string folded(text);
    for (char16_t& unit : folded) {
        unit = FoldCase(unit);
    }
    return folded;
}

bool EqualWithoutCase(std::u16string_view left, std::u16string_view right) {
    return std::ranges::equal(left, right, [](char16_t a, char16_t b) { return FoldCase(a) == FoldCase(b); });
}

} // namespace tavo::locale

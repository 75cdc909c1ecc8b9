// The table of widths.
#include "host/headless/text_metrics.h"

#include "host/bare/characters.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace tavo::headless {

namespace {

constexpr std::u16string_view kNarrow = u" .,:;'!|()[]ijlftI/";
constexpr std::u16string_view kWide = u"mwMW@%";
constexpr int kNarrowWidth = 280;
constexpr int kWideWidth = 850;
constexpr int kCapitalWidth = 680;
constexpr int kSquareWidth = 1000;
constexpr int kOtherWidth = 550;
constexpr char16_t kFirstSquare = 0x1100;
constexpr int kBoldWeight = 600;

int WidthOf(char16_t character) {
    if (character < u' ') { // a tab, a line break
        character = u' ';
    }
    if (kNarrow.find(character) != std::u16string_view::npos) {
        return kNarrowWidth;
    }
    if (kWide.find(character) != std::u16string_view::npos) {
        return kWideWidth;
    }
    if (character >= u'A' && character <= u'Z') {
        return kCapitalWidth;
    }
    return character >= kFirstSquare ? kSquareWidth : kOtherWidth;
}

} // namespace

void MeasureText(int height, int width, int weight, std::u16string_view text, std::vector<int>& widths) {
    widths.clear();
    widths.reserve(text.size());
    std::int64_t sum = 0;
    std::int64_t pixels = 0;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = bare::FindCharacterEnd(text, start);
        widths.resize(end - 1, static_cast<int>(pixels));
        sum += WidthOf(text[start]);
        if (width != 0) {
            pixels = sum * std::abs(width) / kOtherWidth;
        } else {
            const std::int64_t bold = weight >= kBoldWeight ? 11 : 10;
            pixels = sum * std::abs(height) * bold / 10'000;
        }
        widths.push_back(static_cast<int>(pixels));
        start = end;
    }
}

} // namespace tavo::headless

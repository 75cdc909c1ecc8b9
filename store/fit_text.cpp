// Where a text that is too wide is cut.
#include "store/fit_text.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace tavo {

namespace {

constexpr std::u16string_view kDots = u"...";
constexpr std::u16string_view kLineBreaks = u"\r\n";
constexpr std::size_t kFirstPiece = 256; // UTF-16 units: wider than the screen in all but the thinnest letters
constexpr std::size_t kUnsettled = 64;   // at the end of a piece, where what follows may change the widths

// The widths of the text, or of a beginning that is already wider than `width`.
std::vector<int> MeasureBeginning(IDrawing& drawing, FontHandle font, std::u16string_view text, int width) {
    std::vector<int> widths;
    for (std::size_t size = kFirstPiece;; size *= 4) {
        const std::u16string_view piece = text.substr(0, size);
        drawing.GetTextExtentExPointW(font, piece, widths);
        if (widths.size() < piece.size()) {
            return {};
        }
        if (piece.size() == text.size()) {
            return widths;
        }
        widths.resize(piece.size() - kUnsettled);
        if (widths.back() > std::max(width, 0)) {
            return widths;
        }
    }
}

} // namespace

bool IsWiderThan(IDrawing& drawing, FontHandle font, std::u16string_view text, int width) {
    const std::vector<int> widths = MeasureBeginning(drawing, font, text, width);
    return !widths.empty() && widths.back() > width;
}

std::u16string FitText(IDrawing& drawing, FontHandle font, std::u16string_view text, int maximumWidth) {
    const std::vector<int> widths = MeasureBeginning(drawing, font, text, maximumWidth);
    if (widths.empty() || widths.back() <= maximumWidth) {
        return std::u16string(text);
    }
    // What is no wider than nothing is the beginning of a character.
    const auto reaches = [&](int reached) { return reached > 0 && reached >= maximumWidth; };
    const auto last = std::find_if(widths.begin(), widths.end(), reaches);
    const std::size_t shown = static_cast<std::size_t>(last - widths.begin()) + 1;
    const std::size_t line = std::min(text.find_first_of(kLineBreaks), text.size());
    if (shown <= line && shown < text.size()) {
        return std::u16string(text.substr(0, shown)) += kDots;
    }
    return std::u16string(text.substr(0, line));
}

std::u16string MakeOneLine(std::u16string text) {
    std::replace_if(
        text.begin(), text.end(), [](char16_t character) { return character < u' '; }, u' ');
    return text;
}

} // namespace tavo

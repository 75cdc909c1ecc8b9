// Where a text that is too wide is cut.
#include "store/fit_text.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace tavo {

namespace {

constexpr std::u16string_view kDots = u"...";
constexpr std::size_t kFirstPiece = 256; // UTF-16 units: wider than the screen in all but the thinnest letters
constexpr std::size_t kUnsettled = 64;   // at the end of a piece, where what follows may change the widths

bool IsLineBreak(char16_t character) {
    return character == u'\r' || character == u'\n';
}

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
    for (std::size_t index = 0; index < text.size(); ++index) {
        // What is no wider than nothing is the beginning of a character.
        if (index > 0 && widths[index - 1] >= maximumWidth && widths[index - 1] > 0) {
            return std::u16string(text.substr(0, index)) += kDots;
        }
        if (IsLineBreak(text[index])) {
            return std::u16string(text.substr(0, index));
        }
    }
    return std::u16string(text);
}

} // namespace tavo

// Where a text that is too wide is cut.
#include "store/fit_text.h"

#include <cstddef>
#include <vector>

namespace tavo {

namespace {

constexpr std::u16string_view kDots = u"...";

bool IsLineBreak(char16_t character) {
    return character == u'\r' || character == u'\n';
}

} // namespace

std::u16string FitText(IDrawing& drawing, FontHandle font, std::u16string_view text, int maximumWidth) {
    std::vector<int> widths;
    drawing.GetTextExtentExPointW(font, text, widths);
    if (text.empty() || widths.size() < text.size() || widths.back() <= maximumWidth) {
        return std::u16string(text);
    }
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (index > 0 && widths[index - 1] >= maximumWidth) {
            return std::u16string(text.substr(0, index)) += kDots;
        }
        if (IsLineBreak(text[index])) {
            return std::u16string(text.substr(0, index));
        }
    }
    return std::u16string(text);
}

} // namespace tavo

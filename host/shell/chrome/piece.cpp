// Texts as pieces.
#include "host/shell/chrome/piece.h"

#include "platform/drawing.h"

namespace tavo::shell {

TextPiece MakeLine(IChromeFonts& fonts, ChromeFont font, std::u16string_view text, const Rect& area, Argb ink,
                   TextAlign align) {
    const std::uint32_t format =
        DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | (align == TextAlign::Centre ? DT_CENTER : DT_LEFT);
    return {font, PlaceText(fonts.Find(font), text, area, format), area, ink};
}

TextPiece MakeParagraph(IChromeFonts& fonts, ChromeFont font, std::u16string_view text, const Rect& area, Argb ink) {
    return {font, PlaceText(fonts.Find(font), text, area, DT_WORDBREAK | DT_NOPREFIX), area, ink};
}

} // namespace tavo::shell

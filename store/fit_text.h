// Shortens a one-line text to the width it may take.
#pragma once

#include "platform/drawing.h"

#include <string>
#include <string_view>

namespace tavo {

// Both measure no more of a long text than can be seen in that width.

// Whether the text takes more than `width` pixels.
bool IsWiderThan(IDrawing& drawing, FontHandle font, std::u16string_view text, int width);

// A text no wider than `maximumWidth` pixels comes back unchanged. A wider one is cut at its first line break, or
// gets "..." after the first characters that reach the width, whichever comes first. No character that a person sees as
// one is cut through.
// Kept on purpose: the dots come after that prefix, so a shortened text is wider than the limit by about the dots.
std::u16string FitText(IDrawing& drawing, FontHandle font, std::u16string_view text, int maximumWidth);

// With blanks in place of line breaks and tabs.
std::u16string MakeOneLine(std::u16string text);

} // namespace tavo

// Widths of text that are the same on every machine.
#pragma once

#include "platform/drawing.h"

#include <string_view>
#include <vector>

namespace tavo::headless {

// In thousandths of the font's height: narrow letters (i j l f t I), blanks and small punctuation 280, "m w M W @ %"
// 850, other capitals 680, scripts that write in squares 1000, everything else (digits too) 550. Bold adds a tenth.
// A tab or a line break is as wide as a blank. A font with a width of its own is stretched until a digit is that wide.
// Each entry is the sum so far, rounded down; what a person sees as one character counts once, with its last unit.
void MeasureText(int height, int width, int weight, std::u16string_view text, std::vector<int>& widths);

} // namespace tavo::headless

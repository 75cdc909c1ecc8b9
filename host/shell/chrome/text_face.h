// What a host knows of a font: all that it takes to place text.
#pragma once

#include <cmath>
#include <string_view>
#include <vector>

namespace tavo::shell {

class ITextFace {
  public:
    virtual ~ITextFace() = default;

    // Whole logical pixels, the same at every scale: from the top of a line to its baseline, and to the next line.
    virtual int Ascent() = 0;
    virtual int LineHeight() = 0;
    // [i] is where the first i + 1 UTF-16 units end, in logical pixels. What a person sees as one character counts with
    // its last unit, so whoever cuts where the widths grow never cuts through one. Valid until the next call.
    virtual const std::vector<double>& Ends(std::u16string_view text) = 0;

    // The width of the text in whole logical pixels.
    int Measure(std::u16string_view text) {
        const std::vector<double>& ends = Ends(text);
        return ends.empty() ? 0 : static_cast<int>(std::lround(ends.back()));
    }
};

} // namespace tavo::shell

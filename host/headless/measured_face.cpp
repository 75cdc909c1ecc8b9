// Heights and widths of the chrome's fonts.
#include "host/headless/measured_face.h"

#include "host/headless/text_metrics.h"

#include <cstdlib>

namespace tavo::headless {

namespace {

// In thousandths of the font's height.
constexpr int kAscent = 905;
constexpr int kDescent = 212;

int Share(int height, int thousandths) {
    return (std::abs(height) * thousandths + 500) / 1000;
}

} // namespace

int MeasuredFace::Ascent() {
    return Share(Height, kAscent);
}

int MeasuredFace::LineHeight() {
    return Ascent() + Share(Height, kDescent);
}

const std::vector<double>& MeasuredFace::Ends(std::u16string_view text) {
    std::vector<int> widths;
    MeasureText(Height, 0, Weight, text, widths);
    Found.assign(widths.begin(), widths.end());
    return Found;
}

} // namespace tavo::headless

// Where a line lies.
#include "host/ink/round_line.h"

namespace tavo::ink {

RoundLine::RoundLine(const Nib& from, const Nib& to)
    : From(from), AlongX(to.X - from.X), AlongY(to.Y - from.Y), Growth(to.Radius - from.Radius) {
    const float reach = std::max(from.Radius, to.Radius) + 0.5F;
    const float square = AlongX * AlongX + AlongY * AlongY;
    PerSquare = square > 1e-6F ? 1 / square : 0;
    if (std::abs(AlongY) > kLevel) {
        HalfBand = reach * std::sqrt(square) / std::abs(AlongY) + 1; // one more, for the rounding to whole columns
    }
    Box = {static_cast<int>(std::floor(std::min(from.X, to.X) - reach)),
           static_cast<int>(std::floor(std::min(from.Y, to.Y) - reach)),
           static_cast<int>(std::ceil(std::max(from.X, to.X) + reach)),
           static_cast<int>(std::ceil(std::max(from.Y, to.Y) + reach))};
}

} // namespace tavo::ink

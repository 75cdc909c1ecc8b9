// Fitting the screen into the window and converting between kinds of pixels.
#include "host/qt/screen_geometry.h"

#include <algorithm>
#include <cmath>

namespace tavo::qt {

ScreenGeometry ScreenGeometry::Fit(QSize window, double ratio) {
    const double width = std::round(window.width() * ratio);
    const double height = std::round(window.height() * ratio);
    ScreenGeometry geometry;
    geometry.Ratio = ratio;
    geometry.Scale.Factor = std::max({1.0, std::min(width / kScreenSize.Width, height / kScreenSize.Height)});
    geometry.Origin = {std::max(0, (static_cast<int>(width) - geometry.Scale.Edge(kScreenSize.Width)) / 2),
                       std::max(0, (static_cast<int>(height) - geometry.Scale.Edge(kScreenSize.Height)) / 2)};
    return geometry;
}

QRect ScreenGeometry::ToolkitPixels(const QRect& real) const {
    if (Ratio == 1.0) {
        return real;
    }
    const QRectF exact(real.x() / Ratio, real.y() / Ratio, real.width() / Ratio, real.height() / Ratio);
    return exact.toAlignedRect();
}

Point ScreenGeometry::ToLogical(QPointF toolkit) const {
    // Pixel p shows the logical pixel x with Edge(x) <= p < Edge(x + 1).
    const auto convert = [&](double place, int origin) {
        const double pixel = std::floor(place * Ratio) - origin;
        return static_cast<int>(std::ceil((pixel + 0.5) / Scale.Factor)) - 1;
    };
    return {convert(toolkit.x(), Origin.x()), convert(toolkit.y(), Origin.y())};
}

int ScreenGeometry::Length(double logical) const {
    return std::max(1, static_cast<int>(std::lround(logical * Scale.Factor / Ratio)));
}

} // namespace tavo::qt

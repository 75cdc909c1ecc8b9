// Where the device's screen lies in the desktop window, and how the two count pixels.
#pragma once

#include "host/qt/scale.h"
#include "platform/windows.h"

#include <QPointF>
#include <QRect>
#include <QSize>

namespace tavo::qt {

constexpr Rect kWholeScreen{0, 0, kScreenSize.Width, kScreenSize.Height};

// Three kinds of pixels: logical ones of the device, real ones of the screen, and the toolkit's, of which one is
// `Ratio` real ones. Places of the last two count from the corner of the desktop window.
struct ScreenGeometry {
    qt::Scale Scale;
    QPoint Origin; // real pixels
    double Ratio = 1.0;

    // The largest screen that fits into a window of this size.
    static ScreenGeometry Fit(QSize window, double ratio);

    QRect RealPixels(const Rect& logical) const { return Scale.Edges(logical).translated(Origin); }

    // The toolkit's pixels that the area touches.
    QRect ToolkitPixels(const Rect& logical) const { return ToolkitPixels(RealPixels(logical)); }

    QRect ToolkitPixels(const QRect& real) const;

    Point ToLogical(QPointF toolkit) const;

    // A length in the toolkit's pixels, at least one.
    int Length(double logical) const;

    friend bool operator==(const ScreenGeometry&, const ScreenGeometry&) = default;
};

} // namespace tavo::qt

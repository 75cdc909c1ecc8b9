// How the device's logical pixels become pixels of the real screen.
#pragma once

#include "platform/geometry.h"

#include <QRect>

#include <cmath>

namespace tavo::qt {

// Real pixels per logical pixel. An edge at x lies at round(x * Factor), so neighbours always meet.
struct Scale {
    double Factor = 1.0;

    int Edge(int logical) const { return static_cast<int>(std::lround(logical * Factor)); }

    QRect Edges(const Rect& area) const {
        return {QPoint(Edge(area.Left), Edge(area.Top)), QPoint(Edge(area.Right) - 1, Edge(area.Bottom) - 1)};
    }

    friend bool operator==(const Scale&, const Scale&) = default;
};

} // namespace tavo::qt

// Lines over lines, row by row.
#include "host/ink/coverage_mask.h"

#include <algorithm>
#include <cstring>

namespace tavo::ink {

void CoverageMask::Resize(int width, int height) {
    Columns = width;
    Rows = height;
    Values.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0);
}

void CoverageMask::Clear(const PixelBox& area) {
    const PixelBox inside = area.Cut({0, 0, Columns, Rows});
    for (int y = inside.Top; y < inside.Bottom && !inside.IsEmpty(); ++y) {
        std::memset(Row(y) + inside.Left, 0, static_cast<std::size_t>(inside.Right - inside.Left));
    }
}

void CoverageMask::AddLine(const Nib& from, const Nib& to, const PixelBox& clip) {
    const RoundLine line(from, to);
    const PixelBox box = line.Bounds().Cut(clip).Cut({0, 0, Columns, Rows});
    for (int y = box.Top; y < box.Bottom && !box.IsEmpty(); ++y) {
        std::uint8_t* const row = Row(y);
        for (int x = box.Left; x < box.Right; ++x) {
            row[x] = std::max(row[x], line.ShareOf(x, y));
        }
    }
}

} // namespace tavo::ink

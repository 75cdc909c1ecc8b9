// Seven cells in a row.
#include "host/ink/recorder_bar.h"

namespace tavo::ink {
namespace {

constexpr int kCellWidth = 28;
constexpr int kFirstCell = 8;
constexpr int kGap = 16; // between colours and widths

constexpr int WidthIndex(int cell) {
    return cell - static_cast<int>(kPenColors.size());
}

} // namespace

Rect PenCell(const Rect& row, int cell) {
    const int left = row.Left + kFirstCell + cell * kCellWidth + (IsColorCell(cell) ? 0 : kGap);
    return {left, row.Top, left + kCellWidth, row.Bottom};
}

std::optional<int> PenCellAt(const Rect& row, Point place) {
    for (int cell = 0; cell < kPenCells; ++cell) {
        if (PenCell(row, cell).Contains(place)) {
            return cell;
        }
    }
    return std::nullopt;
}

bool IsChosen(const Pen& pen, int cell) {
    return IsColorCell(cell) ? static_cast<int>(pen.Color) == cell : static_cast<int>(pen.Width) == WidthIndex(cell);
}

void ChoosePen(Pen& pen, int cell) {
    if (IsColorCell(cell)) {
        pen.Color = static_cast<PenColor>(cell);
    } else {
        pen.Width = static_cast<PenWidth>(WidthIndex(cell));
    }
}

} // namespace tavo::ink

// The row below the paper where pens are chosen.
#pragma once

#include "host/ink/stroke.h"

#include <array>
#include <optional>

namespace tavo::ink {

constexpr int kPenCells = static_cast<int>(kPenColors.size() + kPenWidths.size());

// One cell for each colour, then one for each width; `row` is the bar's place.
Rect PenCell(const Rect& row, int cell);
std::optional<int> PenCellAt(const Rect& row, Point place);

constexpr bool IsColorCell(int cell) {
    return cell < static_cast<int>(kPenColors.size());
}

// Whether the pen is the one that the cell stands for.
bool IsChosen(const Pen& pen, int cell);
void ChoosePen(Pen& pen, int cell);

} // namespace tavo::ink

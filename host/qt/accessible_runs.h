// How painted items belong together for assistive technology: cells to a table, rows to a list, tabs to a tab list.
#pragma once

#include "platform/drawing.h"

#include <QString>

#include <cstddef>
#include <vector>

namespace tavo::qt {

enum class RunKind { Single, Table, List, Tabs };

constexpr int kTableColumns = 7; // of a month: an item's number counts row by row

struct ItemRun {
    RunKind Kind = RunKind::Single;
    std::size_t First = 0;
    std::size_t Count = 1;

    bool Holds(std::size_t item) const { return item >= First && item < First + Count; }
};

// All items, in their order.
std::vector<ItemRun> FindRuns(const std::vector<PaintedItem>& items);

// True for the row of a form: its cells are values, and itself is what they are called.
bool IsFormRow(const std::vector<PaintedItem>& items, std::size_t item);

// What the value in a form is called, "Start"; empty of everything else.
QString LabelOf(const std::vector<PaintedItem>& items, std::size_t item);

} // namespace tavo::qt

// By the roles of neighbours.
#include "host/qt/accessible_runs.h"

namespace tavo::qt {
namespace {

std::size_t CountAlike(const std::vector<PaintedItem>& items, std::size_t first) {
    std::size_t end = first;
    while (end < items.size() && items[end].Role == items[first].Role) {
        ++end;
    }
    return end - first;
}

bool IsCell(const std::vector<PaintedItem>& items, std::size_t item) {
    return item < items.size() && items[item].Role == PaintedRole::Cell;
}

RunKind KindOf(const std::vector<PaintedItem>& items, std::size_t first, std::size_t count) {
    switch (items[first].Role) {
    case PaintedRole::Cell:
        return count >= kTableColumns ? RunKind::Table : RunKind::Single;
    case PaintedRole::Row:
        return IsCell(items, first + count) ? RunKind::Single : RunKind::List;
    case PaintedRole::Tab:
        return RunKind::Tabs;
    default:
        return RunKind::Single;
    }
}

} // namespace

std::vector<ItemRun> FindRuns(const std::vector<PaintedItem>& items) {
    std::vector<ItemRun> runs;
    for (std::size_t first = 0; first < items.size();) {
        ItemRun run{RunKind::Single, first, CountAlike(items, first)};
        run.Kind = KindOf(items, first, run.Count);
        run.Count = run.Kind == RunKind::Single ? 1 : run.Count;
        runs.push_back(run);
        first += run.Count;
    }
    return runs;
}

bool IsFormRow(const std::vector<PaintedItem>& items, std::size_t item) {
    return item < items.size() && items[item].Role == PaintedRole::Row && IsCell(items, item + 1);
}

QString LabelOf(const std::vector<PaintedItem>& items, std::size_t item) {
    if (!IsCell(items, item)) {
        return {};
    }
    // A row without a name belongs to the one above it.
    for (std::size_t row = item; row-- > 0;) {
        if (!IsCell(items, row) && items[row].Role != PaintedRole::Row && items[row].Role != PaintedRole::Button) {
            return {};
        }
        if (items[row].Role == PaintedRole::Row && !items[row].Name.empty()) {
            QString label = QString::fromStdU16String(items[row].Name);
            while (label.endsWith(QLatin1Char(':')) || label.endsWith(QLatin1Char(' '))) {
                label.chop(1);
            }
            return label;
        }
    }
    return {};
}

} // namespace tavo::qt

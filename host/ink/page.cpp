// Changing and searching the strokes of a memo.
#include "host/ink/page.h"

#include <utility>

namespace tavo::ink {

Edit Edit::Reversed() const {
    // Strokes that are added and moved at once do not occur, nor do removed and moved ones.
    return {Added, Removed, Moved, -Right, -Down};
}

void Page::Reset(std::vector<PlacedStroke> strokes) {
    All = std::move(strokes);
    Points = 0;
    SelectedStrokes = 0;
    for (const PlacedStroke& stroke : All) {
        Points += stroke.Body->Points.size();
    }
}

void Page::Remove(std::span<const NumberedStroke> removed, Box& changed) {
    std::size_t kept = removed.front().Index;
    auto next = removed.begin();
    for (std::size_t i = kept; i < All.size(); ++i) {
        if (next != removed.end() && next->Index == i) {
            changed = changed.United(All[i].Bounds);
            Points -= All[i].Body->Points.size();
            SelectedStrokes -= All[i].Selected ? 1 : 0;
            ++next;
        } else {
            All[kept++] = std::move(All[i]);
        }
    }
    All.resize(kept);
}

void Page::Add(std::span<const NumberedStroke> added, Box& changed) {
    std::vector<PlacedStroke> behind;
    const std::size_t first = added.front().Index;
    if (first < All.size()) {
        behind.assign(std::make_move_iterator(All.begin() + static_cast<std::ptrdiff_t>(first)),
                      std::make_move_iterator(All.end()));
        All.resize(first);
    }
    auto nextBehind = behind.begin();
    for (const NumberedStroke& stroke : added) {
        while (All.size() < stroke.Index && nextBehind != behind.end()) {
            All.push_back(std::move(*nextBehind++));
        }
        changed = changed.United(stroke.Stroke.Bounds);
        Points += stroke.Stroke.Body->Points.size();
        SelectedStrokes += stroke.Stroke.Selected ? 1 : 0;
        All.push_back(stroke.Stroke);
    }
    All.insert(All.end(), std::make_move_iterator(nextBehind), std::make_move_iterator(behind.end()));
}

Box Page::Apply(const Edit& edit) {
    Box changed;
    if (!edit.Removed.empty()) {
        Remove(edit.Removed, changed);
    }
    if (!edit.Added.empty()) {
        Add(edit.Added, changed);
    }
    for (const std::size_t index : edit.Moved) {
        changed = changed.United(All[index].Bounds);
        All[index] = All[index].Moved(edit.Right, edit.Down);
        changed = changed.United(All[index].Bounds);
    }
    return changed;
}

void Page::Select(std::size_t index, bool selected) {
    if (All[index].Selected != selected) {
        All[index].Selected = selected;
        SelectedStrokes = selected ? SelectedStrokes + 1 : SelectedStrokes - 1;
    }
}

Box Page::Bounds() const {
    Box bounds;
    for (const PlacedStroke& stroke : All) {
        bounds = bounds.United(stroke.Bounds);
    }
    return bounds;
}

std::vector<std::size_t> Page::SelectedIndices() const {
    std::vector<std::size_t> selected;
    for (std::size_t i = 0; i < All.size(); ++i) {
        if (All[i].Selected) {
            selected.push_back(i);
        }
    }
    return selected;
}

Box Page::SelectedBounds() const {
    Box bounds;
    if (SelectedStrokes == 0) {
        return bounds; // asked for at every sample of the pen
    }
    for (const PlacedStroke& stroke : All) {
        bounds = stroke.Selected ? bounds.United(stroke.Bounds) : bounds;
    }
    return bounds;
}

std::size_t Page::FindAt(double x, double y, double within) const {
    for (std::size_t i = All.size(); i-- > 0;) {
        if (PassesNear(All[i], x, y, x, y, within)) {
            return i;
        }
    }
    return kNone;
}

std::vector<std::size_t> Page::FindMostlyIn(const Box& area) const {
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < All.size(); ++i) {
        if (LiesMostlyIn(All[i], area)) {
            found.push_back(i);
        }
    }
    return found;
}

} // namespace tavo::ink

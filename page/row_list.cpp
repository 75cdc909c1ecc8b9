// Painting a list.
#include "page/row_list.h"

#include <algorithm>

namespace tavo {

namespace {

constexpr Color kBackground = Color::FromRgb(255, 255, 255);
constexpr Pen kSeparatorPen{Color::FromRgb(0, 0, 0), 1};

} // namespace

CRowList::CRowList(CMessagePump& pump, CProgramState& state, const RowListLook& look)
    : CPaintedWindow(pump, look.Extent), State(state), OwnLook(look) {}

bool CRowList::CreateOn(WindowHandle parent, const Rect& bounds) {
    WindowDescription description;
    description.Kind = WindowKind::Child;
    description.Parent = parent;
    description.Bounds = bounds;
    return Create(description);
}

int CRowList::MaximumTop() const {
    return std::max(Count() - OwnLook.VisibleRows, 0);
}

void CRowList::Paint() {
    const Rect whole = Rect::Whole(OwnLook.Extent);
    DropPainted();
    Surface().FillRect(whole, kBackground);
    if (Records.empty()) {
        Surface().DrawTextW(OwnLook.EmptyText, whole,
                            {State.Fonts.FontArial10, OwnLook.EmptyInk, DT_CENTER | DT_VCENTER | DT_SINGLELINE});
        Declare({whole, PaintedRole::Text, std::u16string(OwnLook.EmptyText)});
    }
    const int shown = std::min(OwnLook.VisibleRows, Count() - TopRow);
    for (int place = 0; place < shown; ++place) {
        PaintRow(TopRow + place, Rect::FromSize(0, place * OwnLook.RowHeight, OwnLook.Extent.Width, OwnLook.RowHeight));
    }
    PresentSurface();
}

void CRowList::DrawSeparators(const Rect& area) {
    Surface().DrawLine({area.Left, area.Top}, {area.Right, area.Top}, kSeparatorPen);
    Surface().DrawLine({area.Left, area.Bottom}, {area.Right, area.Bottom}, kSeparatorPen);
}

} // namespace tavo

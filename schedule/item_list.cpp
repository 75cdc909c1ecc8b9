// Rows, selection, keys and the menu of the item lists.
#include "schedule/item_list.h"

#include "store/text_tables.h"

#include <algorithm>
#include <utility>

namespace tavo {

namespace {

constexpr int kMiddle = 120; // taps right of it open the menu to their left
constexpr int kMenuGap = 5;
constexpr Color kEmptyTextColor{0xCCCCCC};

} // namespace

CItemList::CItemList(CMessagePump& pump, CProgramState& state, IItemListOwner& owner, ItemKind kind,
                     const ItemListLook& look)
    : CRowList(pump, state,
               {look.Extent(), look.RowHeight, look.VisibleRows, kEmptyListTexts[IndexOf(kind)], kEmptyTextColor}),
      Owner(owner), OwnKind(kind), Look(look) {}

const MessageMap& CItemList::Messages() {
    static constexpr MessageEntry entries[] = {
        On<&CItemList::TakeStylusDown>(WM_LBUTTONDOWN),
        On<&CItemList::TakeWheel>(WM_MOUSEWHEEL),
        On<&CItemList::TakeKey>(WM_KEYDOWN),
    };
    static const MessageMap map{entries, &CRowList::Messages()};
    return map;
}

const AppointmentData* CItemList::GetSelected() const {
    const bool exists = SelectedRow >= 0 && SelectedRow < Count();
    return exists ? &Records[static_cast<std::size_t>(SelectedRow)] : nullptr;
}

void CItemList::SelectItem(const AppointmentData& record) {
    const auto same = std::find_if(Records.begin(), Records.end(), [&](const AppointmentData& row) {
        return row.Oid == record.Oid && row.Start == record.Start;
    });
    SelectedRow = same == Records.end() ? FindRow(record.Oid) : static_cast<int>(same - Records.begin());
    Invalidate();
}

int CItemList::FindRow(Oid oid) const {
    const auto found =
        std::find_if(Records.begin(), Records.end(), [&](const AppointmentData& row) { return row.Oid == oid; });
    return found == Records.end() ? kNoSelection : static_cast<int>(found - Records.begin());
}

void CItemList::SetTop(int index) {
    const int top = std::clamp(index, 0, MaximumTop());
    if (top == TopRow) {
        return;
    }
    const int distance = SelectedRow - TopRow;
    if (distance >= 0) {
        SelectedRow = distance + top;
    }
    SelectedRow = std::min(SelectedRow, Count() - 1);
    TopRow = top;
    Invalidate();
}

bool CItemList::MoveSelection(int key) {
    if (key != VK_UP && key != VK_DOWN) {
        return false;
    }
    const int top = TopRow;
    if (key == VK_UP && SelectedRow > 0) {
        --SelectedRow;
        TopRow = std::min(TopRow, SelectedRow);
    } else if (key == VK_DOWN && SelectedRow < Count() - 1) {
        ++SelectedRow;
        TopRow += SelectedRow > TopRow + Look.VisibleRows - 1 ? 1 : 0;
    }
    if (TopRow != top) {
        Owner.OnListScrolled();
    }
    Invalidate();
    return true;
}

void CItemList::SetRows(std::vector<AppointmentData> records) {
    Records = std::move(records);
    SelectedRow = kNoSelection;
    TopRow = 0;
    Invalidate();
}

void CItemList::InsertRow(int index, AppointmentData record) {
    Records.insert(Records.begin() + index, std::move(record));
}

void CItemList::RemoveRow(int index) {
    Records.erase(Records.begin() + index);
    TopRow = std::min(TopRow, MaximumTop());
    Invalidate();
}

void CItemList::SelectFirst() {
    SelectedRow = 0;
    TopRow = 0;
    Invalidate();
}

void CItemList::TakeStylusDown(Point point) {
    Host().Windows().SetFocus(Handle());
    PressedRow = TopRow + point.Y / Look.RowHeight;
    if (PressedRow >= Count()) {
        PressedRow = kNoSelection;
        return;
    }
    SelectedRow = PressedRow;
    Current = Records[static_cast<std::size_t>(PressedRow)];
    Invalidate();
    OpenMenu(point);
}

// As if the row were tapped in its middle; one that is scrolled out of sight, at the edge where it lies.
Point CItemList::MiddleOfSelected() const {
    const int row = std::clamp(SelectedRow - TopRow, 0, Look.VisibleRows - 1);
    return {kMiddle, row * Look.RowHeight + Look.RowHeight / 2};
}

Point CItemList::PlaceOfMenu(Point point) const {
    return {point.X >= kMiddle ? point.X - kMenuGap : point.X + kMenuGap, point.Y + Look.MenuDrop};
}

Point CItemList::PlaceOfSelectedMenu() const {
    return PlaceOfMenu(MiddleOfSelected());
}

void CItemList::OpenSelectedMenu() {
    const AppointmentData* selected = GetSelected();
    if (selected == nullptr) {
        return;
    }
    Current = *selected;
    OpenMenu(MiddleOfSelected());
}

void CItemList::OpenMenu(Point point) {
    const int command = Pump().TrackPopupMenu(Owner.MenuOwner(), MakeMenu(Current), PlaceOfMenu(point),
                                              point.X >= kMiddle ? MenuAlign::Right : MenuAlign::Left);
    if (command != 0) {
        SelectItem(Current); // the list may have been filled anew while the menu was open
        Owner.TakeListCommand(command);
    }
}

void CItemList::TakeWheel(const Message& wheel) {
    Owner.ScrollListBy(-wheel.Code);
}

void CItemList::TakeKey(const Message& key) {
    Owner.TakeListKey(key);
}

} // namespace tavo

// The scrolling lists of the Schedule page: what those of all kinds have in common.
#pragma once

#include "page/row_list.h"
#include "schedule/item_row_text.h"

#include <string_view>
#include <vector>

namespace tavo {

// Who shows a list, and acts on its rows.
class IItemListOwner {
  public:
    // The list shows other rows than before.
    virtual void OnListScrolled() = 0;
    // To be scrolled by so many rows; downwards is positive.
    virtual void ScrollListBy(int rows) = 0;
    // A command of the list's menu, chosen for its selected row.
    virtual void TakeListCommand(int command) = 0;
    // A key, which a list itself has no use for.
    virtual void TakeListKey(const Message& key) = 0;
    virtual WindowHandle MenuOwner() const = 0;

  protected:
    ~IItemListOwner() = default;
};

// What tells the lists apart to the eye.
struct ItemListLook {
    int RowHeight = 0; // pixels
    int VisibleRows = 0;
    int LinesBelow = 0; // below a row's heading
    int MenuDrop = 0;   // from a tap in the list to the menu on the screen

    constexpr Size Extent() const { return {240, RowHeight * VisibleRows}; }
};

constexpr int kNoSelection = -1;

class CItemList : public CRowList {
  public:
    CItemList(CMessagePump& pump, CProgramState& state, IItemListOwner& owner, ItemKind kind, const ItemListLook& look);

    ItemKind Kind() const { return OwnKind; }

    // May point past the end after a deletion.
    int Selected() const { return SelectedRow; }

    // The selected record, or null.
    const AppointmentData* GetSelected() const;
    // Selects the row of this item, the same occurrence if it is there. None when it is gone.
    void SelectItem(const AppointmentData& record);
    // Scrolls; the selection keeps its distance to the top row.
    void SetTop(int index);
    // Up and Down. False for other keys.
    bool MoveSelection(int key);
    // Opens the menu of the selected row, beside it; nothing without one.
    void OpenSelectedMenu();
    // Where on the screen such a menu opens.
    Point PlaceOfSelectedMenu() const;
    // Removes the selected row and deletes its appointment. Kept on purpose: the selected index stays. False when the
    // store refuses, or nothing is selected.
    virtual bool DeleteSelected() = 0;

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

  protected:
    void PaintRow(int row, const Rect& area) override;

    void SetRows(std::vector<AppointmentData> records);
    void InsertRow(int index, AppointmentData record);
    void RemoveRow(int index);
    // The row of this OID, or kNoSelection.
    int FindRow(Oid oid) const;
    void SelectFirst();

    virtual ItemRowText Describe(const AppointmentData& record) = 0;
    // The list's menu for this row.
    virtual std::vector<MenuItem> MakeMenu(const AppointmentData& record) = 0;

  private:
    void DrawLine(const std::u16string& words, const std::u16string& shorter, Rect area, Color color);
    void TakeStylusDown(Point point);
    void TakeWheel(const Message& wheel);
    void TakeKey(const Message& key);
    Point MiddleOfSelected() const;
    Point PlaceOfMenu(Point point) const;
    void OpenMenu(Point point);

    IItemListOwner& Owner;
    ItemKind OwnKind;
    ItemListLook Look;
    int SelectedRow = kNoSelection;
    int PressedRow = kNoSelection;
    AppointmentData Current; // of the row pressed last
};

} // namespace tavo

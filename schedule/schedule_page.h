// The Schedule page: the items of one kind at a time, and what can be done with them.
#pragma once

#include "framework/drawn_button.h"
#include "page/item_page.h"
#include "schedule/appointment_item_list.h"
#include "schedule/category_item_list.h"

#include <string_view>

namespace tavo {

class CSchedulePage : public CItemPage, public IListOwner, private IItemListOwner {
  public:
    CSchedulePage(CMessagePump& pump, CProgramState& state, IMainView& view);

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

    // Comes on show, with what changed while it was hidden.
    void Open();
    // Appointments or category lists changed. A hidden page follows when it comes on show.
    void RefillLists();
    // Opens the editor on a new item of this kind, whatever kind is shown.
    void MakeItem(ItemKind kind);
    // The same, beginning on this day at first.
    void MakeItemOn(ItemKind kind, const SYSTEMTIME& day);
    // Opens the editor with what an earlier run of the program left of it. False when the item cannot be read now: then
    // nothing is done.
    [[nodiscard]] bool ContinueEdit(const FoundDraft& draft);
    // Opens the view on an item, whatever is shown, and does what is asked there. Nothing when the item is gone.
    void OpenItem(Oid oid);

    // The edit dialog saved the item that this page opened it for.
    void UpdateOwnerList(const AppointmentData& record, bool isNew, Oid oid) override;

  protected:
    void OnInitDialog() override;
    void Paint() override;

  private:
    // schedule_page.cpp: kinds and lists
    CItemList& ListOf(ItemKind kind);

    CItemList& CurrentList() { return ListOf(Kind); }

    CCategoryItemList* CategoryListOf(ItemKind kind); // null for appointments
    void ShowKind(ItemKind kind);
    void ShowNextKind(int step);
    void FillLists();
    bool FillAppointments();
    void SetScrollBar();

    // schedule_page_period.cpp
    SYSTEMTIME PeriodStart() const;
    SYSTEMTIME PeriodEnd() const;
    void SetPicker(int picker, const SYSTEMTIME& date);
    void StartWithMonthAhead();
    void TakeStartPicked();
    void TakeEndPicked();
    void ValidateFromStart();
    void ValidateFromEnd();
    void SayPeriodTooLong();
    void ShowPeriod(const SYSTEMTIME& start, const SYSTEMTIME& end);

    // schedule_page_paint.cpp
    void DeclareHeader();

    // schedule_page_input.cpp
    void TakeStylusDown(Point point);
    void TakeStylusMove(Point point);
    void TakeStylusUp(Point point);
    void TakeKeyDown(const Message& key);
    void TakeRowKey(const Message& key);
    void FocusList();
    bool IsPickerFocused() const;
    void TakeScroll(const Message& scroll);
    void ScrollTo(int top);
    void OnListScrolled() override;
    void ScrollListBy(int rows) override;
    void TakeListCommand(int command) override;
    void TakeListKey(const Message& key) override;

    WindowHandle MenuOwner() const override { return Handle(); }

    // schedule_page_commands.cpp
    void PrepareMenus() override;
    void ViewSelected();
    TimesOf TimesOfRows() const;
    ChosenDay DayOfRow(const AppointmentData& record) const;
    MenuPlace PlaceOfMenu() override;
    void ModifySelected();
    void DeleteSelected();
    void PauseSelected();
    void CopyToCategory(int command);
    void CopyAppointment(const AppointmentData& record, CCategoryItemList& target);
    void TellMissingRow();
    bool IsIn(ItemKind kind, Oid oid);
    void RunEditor(EditRequest request) override;

    IListOwner* ListOwner() override { return this; }

    void TakeUpDay(EditRequest& request, const SYSTEMTIME& start);
    // The same for a new item or one that is gone; what was made is then on show.
    void RunMaking(EditRequest request);
    // The selected record of the list on show; without one says so in these words and gives null.
    const AppointmentData* SelectedOr(const std::u16string_view (&texts)[4]);

    ItemKind Kind = ItemKind::Alarm;
    bool NewPressed = false;
    bool NewTracking = false;
    DrawnButton NewButton;
    bool Filled = false; // the lists, at least once
    ItemKind EditedKind = ItemKind::Alarm;
    Oid EditedOid = 0;       // of the item in the editor; 0: a new one
    bool ItemSaved = false;  // by the editor that was opened last
    bool RowMissing = false; // of the item saved last: the store gave nothing to show
    CCategoryItemList Alarms;
    CCategoryItemList Holidays;
    CCategoryItemList Anniversaries;
    CAppointmentItemList Appointments;
};

} // namespace tavo

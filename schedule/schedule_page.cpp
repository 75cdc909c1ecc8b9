// The Schedule page's four lists and which of them is on show.
#include "schedule/schedule_page.h"

#include "platform/typing.h"
#include "res/dialog_templates.h"
#include "res/resource_ids.h"
#include "schedule/schedule_page_look.h"

namespace tavo {

namespace {

constexpr int kKindCount = 4;
constexpr ItemKind kKinds[kKindCount] = {ItemKind::Alarm, ItemKind::Holiday, ItemKind::Anniversary,
                                         ItemKind::Appointment};

constexpr Rect PlaceOf(ItemKind kind) {
    return kind == ItemKind::Appointment ? kAppointmentPlace : kListPlace;
}

} // namespace

CSchedulePage::CSchedulePage(CMessagePump& pump, CProgramState& state, IMainView& view)
    : CItemPage(pump, state, view, kSchedulePageTemplate, kMenuSchedulePage),
      NewButton(kBitmapNew, kNewButton, kNewHit, NewPressed, NewTracking), Alarms(pump, state, *this, ItemKind::Alarm),
      Holidays(pump, state, *this, ItemKind::Holiday), Anniversaries(pump, state, *this, ItemKind::Anniversary),
      Appointments(pump, state, *this) {}

const MessageMap& CSchedulePage::Messages() {
    static constexpr MessageEntry entries[] = {
        On<&CSchedulePage::TakeStylusDown>(WM_LBUTTONDOWN),
        On<&CSchedulePage::TakeStylusMove>(WM_MOUSEMOVE),
        On<&CSchedulePage::TakeStylusUp>(WM_LBUTTONUP),
        On<&CSchedulePage::TakeKeyDown>(WM_KEYDOWN),
        OnScroll<&CSchedulePage::TakeScroll>(kScheduleScrollBar),
        OnNotify<&CSchedulePage::ValidateFromStart>(kSchedulePeriodStart, DTN_USERSTRING),
        OnNotify<&CSchedulePage::ValidateFromEnd>(kSchedulePeriodEnd, DTN_USERSTRING),
        OnNotify<&CSchedulePage::TakeStartPicked>(kSchedulePeriodStart, DTN_CLOSEUP),
        OnNotify<&CSchedulePage::TakeEndPicked>(kSchedulePeriodEnd, DTN_CLOSEUP),
        OnCommand<&CSchedulePage::ViewSelected>(kCommandView),
        OnCommand<&CSchedulePage::ModifySelected>(kCommandModify),
        OnCommand<&CSchedulePage::DeleteSelected>(kCommandDelete),
        OnCommand<&CSchedulePage::PauseSelected>(kCommandPause),
        OnCommand<&CSchedulePage::CopyToCategory>(kCommandCopyToAlarm),
        OnCommand<&CSchedulePage::CopyToCategory>(kCommandCopyToHoliday),
        OnCommand<&CSchedulePage::CopyToCategory>(kCommandCopyToAnniversary),
    };
    static const MessageMap map{entries, &CItemPage::Messages()};
    return map;
}

void CSchedulePage::OnInitDialog() {
    for (const ItemKind kind : kKinds) {
        // A list without its window still holds its rows.
        static_cast<void>(ListOf(kind).CreateOn(Handle(), PlaceOf(kind)));
    }
    MoveItem(kSchedulePeriodStart, kPeriodStartPlace);
    MoveItem(kSchedulePeriodEnd, kPeriodEndPlace);
    StartWithMonthAhead();
    ShowItem(kScheduleScrollBar, true);
    ShowKind(Kind);
}

CItemList& CSchedulePage::ListOf(ItemKind kind) {
    CCategoryItemList* tagged = CategoryListOf(kind);
    return tagged != nullptr ? static_cast<CItemList&>(*tagged) : Appointments;
}

CCategoryItemList* CSchedulePage::CategoryListOf(ItemKind kind) {
    switch (kind) {
    case ItemKind::Alarm:
        return &Alarms;
    case ItemKind::Holiday:
        return &Holidays;
    case ItemKind::Anniversary:
        return &Anniversaries;
    default:
        return nullptr;
    }
}

void CSchedulePage::ShowKind(ItemKind kind) {
    Kind = kind;
    for (const ItemKind other : kKinds) {
        ListOf(other).Show(other == kind ? ShowCommand::Show : ShowCommand::Hide);
    }
    const bool hasPeriod = kind == ItemKind::Appointment;
    ShowItem(kSchedulePeriodStart, hasPeriod);
    ShowItem(kSchedulePeriodEnd, hasPeriod);
    const Rect place = PlaceOf(kind);
    MoveItem(kScheduleScrollBar, {place.Right, place.Top, place.Right + kBarWidth, place.Bottom});
    SetScrollBar();
    if (Host().Windows().IsWindowVisible(Handle())) {
        FocusList();
    }
    Invalidate();
}

void CSchedulePage::ShowNextKind(int step) {
    ShowKind(static_cast<ItemKind>((static_cast<int>(Kind) + step + kKindCount) % kKindCount));
}

void CSchedulePage::Open() {
    if (!Filled) {
        FillLists();
    }
    Show(ShowCommand::Maximize);
    FocusList();
}

// Also while the page is hidden: filling takes what is gone out of the lists of the kinds, which others count.
void CSchedulePage::RefillLists() {
    FillLists();
    Invalidate();
}

void CSchedulePage::FillLists() {
    Filled = true;
    Alarms.Fill();
    Holidays.Fill();
    Anniversaries.Fill();
    static_cast<void>(FillAppointments()); // nothing was asked for that could be told of
    SetScrollBar();
}

bool CSchedulePage::FillAppointments() {
    return Appointments.Fill(PeriodStart(), PeriodEnd());
}

void CSchedulePage::SetScrollBar() {
    const CItemList& list = CurrentList();
    Host().Controls().SetScrollInfo(Item(kScheduleScrollBar), {0, list.MaximumTop(), list.Top()});
}

void CSchedulePage::UpdateOwnerList(const AppointmentData& record, bool isNew, Oid oid) {
    AppointmentData saved = record;
    saved.Oid = oid;
    ItemSaved = true;
    if (CCategoryItemList* list = CategoryListOf(EditedKind); list != nullptr) {
        RowMissing = !list->AddOrReplace(saved, isNew, EditedOid);
    } else {
        RowMissing = !FillAppointments();
    }
    SetScrollBar();
}

} // namespace tavo

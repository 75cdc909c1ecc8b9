// The commands on an item of the Schedule page.
#include "schedule/schedule_page.h"

#include "page/series_day.h"
#include "res/resource_ids.h"
#include "res/strings.h"
#include "store/change_group.h"
#include "store/item_deletion.h"

#include <utility>

namespace tavo {

namespace {

// By kind. Kept on purpose: what an anniversary's View says.
constexpr std::u16string_view kSelectToView[] = {u"Select alarm to see", u"Select holiday to see",
                                                 u"Select anniversary to modify", u"Select appointment to see"};
constexpr std::u16string_view kSelectToModify[] = {u"Select alarm to modify", u"Select holiday to modify",
                                                   u"Select anniversary to modify", u"Select appointment to modify"};
constexpr std::u16string_view kSelectToDelete[] = {u"Select alarm to delete", u"Select holiday to delete",
                                                   u"Select anniversary to delete", u"Select appointment to delete"};

constexpr std::u16string_view kRowMissing = u"The item was saved, but the list could not be read.";
constexpr std::u16string_view kRuleLost =
    u"The item is gone, and how it recurred could not be kept. It is made anew without that.";

ItemKind TargetOf(int command) {
    switch (command) {
    case kCommandCopyToHoliday:
        return ItemKind::Holiday;
    case kCommandCopyToAnniversary:
        return ItemKind::Anniversary;
    default:
        return ItemKind::Alarm;
    }
}

} // namespace

const AppointmentData* CSchedulePage::SelectedOr(const std::u16string_view (&texts)[4]) {
    const AppointmentData* selected = CurrentList().GetSelected();
    if (selected == nullptr) {
        MessageBoxDescription box;
        box.Text = texts[IndexOf(Kind)];
        Pump().ShowMessageBox(Handle(), box);
    }
    return selected;
}

// A row of the appointment list stands for one occurrence.
TimesOf CSchedulePage::TimesOfRows() const {
    return Kind == ItemKind::Appointment ? TimesOf::Occurrence : TimesOf::Series;
}

CItemPage::ChosenDay CSchedulePage::DayOfRow(const AppointmentData& record) const {
    return TimesOfRows() == TimesOf::Occurrence ? ChosenDay(record.Start) : std::nullopt;
}

MenuPlace CSchedulePage::PlaceOfMenu() {
    return {CurrentList().PlaceOfSelectedMenu(), MenuAlign::Right};
}

void CSchedulePage::ViewSelected() {
    if (const AppointmentData* selected = SelectedOr(kSelectToView); selected != nullptr) {
        const AppointmentData record = *selected;
        ViewAndAct(Kind, record, TimesOfRows(), DayOfRow(record));
    }
}

void CSchedulePage::ModifySelected() {
    if (const AppointmentData* selected = SelectedOr(kSelectToModify); selected != nullptr) {
        const AppointmentData record = ReadAnew(State.Store, *selected, TimesOfRows());
        ModifyItem(Kind, record, DayOfRow(record));
    }
}

void CSchedulePage::DeleteSelected() {
    const AppointmentData* selected = SelectedOr(kSelectToDelete);
    if (selected == nullptr) {
        return;
    }
    const AppointmentData record = *selected;
    const SeriesPart part = AskPart(record, DayOfRow(record));
    if (part == SeriesPart::Neither || !ConfirmDeletion()) {
        return;
    }
    CItemList& list = CurrentList();
    list.SelectItem(record); // the list may have been filled anew while the question was open
    bool refused = false;
    if (part == SeriesPart::ThisDay) {
        DeleteDay(record, record.Start);
        FillAppointments();
    } else {
        refused = list.GetSelected() != nullptr && !list.DeleteSelected();
    }
    SetScrollBar();
    if (refused) {
        Refuse(kItemNotDeleted);
    }
    View.PostChangeNotice();
}

// Kept on purpose: the command is there and does nothing.
void CSchedulePage::PauseSelected() {}

void CSchedulePage::CopyToCategory(int command) {
    const AppointmentData* selected = Appointments.GetSelected();
    CCategoryItemList& target = *CategoryListOf(TargetOf(command));
    if (selected == nullptr || IsIn(target.Kind(), selected->Oid)) {
        return;
    }
    CopyAppointment(*selected, target);
    SetScrollBar();
    View.PostChangeNotice();
    TellMissingRow();
}

// The tag is a step of its own: taking back the step before must not go past it.
void CSchedulePage::CopyAppointment(const AppointmentData& record, CCategoryItemList& target) {
    ChangeGroup group(State.Store, NameCopy(target.Kind(), record));
    RowMissing = !target.AddOrReplace(record, true, record.Oid);
    static_cast<void>(group.End()); // the category list is the truth, also where the store could not note the step
}

// The item is where it was put, and the next refresh that succeeds shows it.
void CSchedulePage::TellMissingRow() {
    if (std::exchange(RowMissing, false)) {
        Refuse(kRowMissing);
    }
}

bool CSchedulePage::IsIn(ItemKind kind, Oid oid) {
    return State.Categories.ListOf(static_cast<TagList>(IndexOf(kind))).Contains(oid);
}

void CSchedulePage::PrepareMenus() {
    CItemPage::PrepareMenus();
    const AppointmentData* selected = Appointments.GetSelected();
    for (const int command : {kCommandCopyToAlarm, kCommandCopyToHoliday, kCommandCopyToAnniversary}) {
        const bool useful = selected != nullptr && !IsIn(TargetOf(command), selected->Oid);
        Host().Menus().SetMenuItem(MenuBar, command, useful, false);
    }
}

void CSchedulePage::RunEditor(EditRequest request) {
    EditedKind = request.Kind;
    EditedOid = request.Item ? request.Item->Oid : 0;
    ItemSaved = false;
    CItemPage::RunEditor(std::move(request));
    TellMissingRow();
}

// What was made is to be found where it is listed.
void CSchedulePage::RunMaking(EditRequest request) {
    const ItemKind kind = request.Kind;
    RunEditor(std::move(request));
    if (ItemSaved && Kind != kind) {
        ShowKind(kind);
    }
    View.PostChangeNotice();
}

void CSchedulePage::MakeItem(ItemKind kind) {
    RunMaking(RequestFor(kind, std::nullopt));
}

void CSchedulePage::MakeItemOn(ItemKind kind, const SYSTEMTIME& day) {
    EditRequest request = RequestFor(kind, std::nullopt);
    request.FirstDay = day;
    RunMaking(std::move(request));
}

// The same day of the series, or a new item when that is gone.
void CSchedulePage::TakeUpDay(EditRequest& request, const SYSTEMTIME& start) {
    request.Item->Start = start;
    request.Occurrence = FindSeriesDay(State, *request.Item, start);
    if (request.Occurrence) {
        request.Item = RecordOfDay(*request.Item, *request.Occurrence, Host().Locale());
    } else {
        request.Item.reset();
    }
}

bool CSchedulePage::ContinueEdit(const FoundDraft& draft) {
    AppointmentData record;
    const bool isThere = draft.Draft.Item != 0 && State.Store.LoadAppointment(draft.Draft.Item, record) != 0;
    if (!isThere && draft.Draft.Item != 0 && State.Store.LastStoreResult != Status::NotFound) {
        return false;
    }
    if (const FormValues& form = draft.Draft.Now; !isThere && form.Recurrence == kChoiceCustom && !form.Rule) {
        Refuse(kRuleLost);
    }
    // One that is gone is made anew.
    EditRequest request = RequestFor(KindOfMode(draft.Draft.Mode), isThere ? std::optional(record) : std::nullopt);
    if (isThere && draft.Draft.OneDay) {
        TakeUpDay(request, *draft.Draft.OneDay);
    }
    request.Continued = &draft;
    RunMaking(std::move(request));
    return true;
}

void CSchedulePage::OpenItem(Oid oid) {
    if (AppointmentData record; State.Store.LoadAppointment(oid, record) != 0) {
        ViewAndAct(State.Categories.KindOf(oid), record, TimesOf::Series);
    }
}

} // namespace tavo

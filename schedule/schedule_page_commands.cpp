// The commands on an item of the Schedule page.
#include "schedule/schedule_page.h"

#include "edit/appointment_dlg.h"
#include "memo/appointment_view_dlg.h"
#include "res/resource_ids.h"
#include "res/strings.h"
#include "store/change_group.h"
#include "store/item_deletion.h"

namespace tavo {

namespace {

// By kind. Kept on purpose: what an anniversary's View says.
constexpr std::u16string_view kSelectToView[] = {u"Select alarm to see", u"Select holiday to see",
                                                 u"Select anniversary to modify", u"Select appointment to see"};
constexpr std::u16string_view kSelectToModify[] = {u"Select alarm to modify", u"Select holiday to modify",
                                                   u"Select anniversary to modify", u"Select appointment to modify"};
constexpr std::u16string_view kSelectToDelete[] = {u"Select alarm to delete", u"Select holiday to delete",
                                                   u"Select anniversary to delete", u"Select appointment to delete"};

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

bool CSchedulePage::ConfirmDeletion() {
    MessageBoxDescription box;
    box.Text = kDeleteQuestion;
    box.Caption = kDeleteCaption;
    box.Buttons = MessageBoxButtons::YesNo;
    return Pump().ShowMessageBox(Handle(), box) == IDYES;
}

AppointmentData CSchedulePage::ReadAnew(const AppointmentData& record) {
    AppointmentData current;
    if (State.Store.LoadAppointment(record.Oid, current) == 0) {
        return record;
    }
    if (Kind == ItemKind::Appointment && record.IsRecurring && current.IsRecurring) {
        current.Start = record.Start; // a row of a series has the times of its occurrence
        current.End = record.End;
    }
    return current;
}

void CSchedulePage::ViewSelected() {
    if (const AppointmentData* selected = SelectedOr(kSelectToView); selected != nullptr) {
        ViewItem(Kind, ReadAnew(*selected));
    }
}

void CSchedulePage::ViewItem(ItemKind kind, const AppointmentData& record) {
    CAppointmentViewDlg view(Pump(), State);
    view.Oid = record.Oid;
    view.Appointment = record;
    switch (view.DoModal()) {
    case kResultModify:
        EditItem(kind, record);
        break;
    case kResultDelete:
        if (!ConfirmDeletion()) {
            return;
        }
        if (!DeleteItem(State, kind, record)) {
            Refuse(kItemNotDeleted);
        }
        break;
    default:
        return;
    }
    View.PostChangeNotice();
}

void CSchedulePage::ModifySelected() {
    if (const AppointmentData* selected = SelectedOr(kSelectToModify); selected != nullptr) {
        EditItem(Kind, ReadAnew(*selected));
        View.PostChangeNotice();
    }
}

void CSchedulePage::DeleteSelected() {
    const AppointmentData* selected = SelectedOr(kSelectToDelete);
    if (selected == nullptr) {
        return;
    }
    const AppointmentData record = *selected;
    if (!ConfirmDeletion()) {
        return;
    }
    CItemList& list = CurrentList();
    const AppointmentData* still = list.GetSelected();
    if (still == nullptr || still->Oid != record.Oid) {
        list.SelectItem(record); // the list was filled anew while the question was open
    }
    const bool refused = list.GetSelected() != nullptr && !list.DeleteSelected();
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
    CCategoryItemList* target = CategoryListOf(TargetOf(command));
    if (selected == nullptr || target == nullptr || IsIn(target->Kind(), selected->Oid)) {
        return;
    }
    CopyAppointment(*selected, *target);
    SetScrollBar();
    View.PostChangeNotice();
}

// The tag is a step of its own: taking back the step before must not go past it.
void CSchedulePage::CopyAppointment(const AppointmentData& record, CCategoryItemList& target) {
    ChangeGroup group(State.Store, NameCopy(target.Kind(), record));
    target.AddOrReplace(record, true, 0);
    static_cast<void>(group.End()); // the category list is the truth, also where the store could not note the step
}

bool CSchedulePage::IsIn(ItemKind kind, Oid oid) {
    return State.Categories.ListOf(static_cast<TagList>(IndexOf(kind))).Contains(oid);
}

void CSchedulePage::PrepareMenus() {
    CMainPage::PrepareMenus();
    const AppointmentData* selected = Appointments.GetSelected();
    for (const int command : {kCommandCopyToAlarm, kCommandCopyToHoliday, kCommandCopyToAnniversary}) {
        const bool useful = selected != nullptr && !IsIn(TargetOf(command), selected->Oid);
        Host().Menus().SetMenuItem(MenuBar, command, useful, false);
    }
}

void CSchedulePage::EditItem(ItemKind kind, const AppointmentData& record) {
    EditedKind = kind;
    EditedOid = record.Oid;
    CAppointmentDlg editor(Pump(), State);
    editor.Mode = record.Oid == 0 ? ModeOfNew(kind) : ModeOfNew(kind) + 1;
    editor.Item = record;
    editor.Owner = this;
    editor.InkEditor = InkEditor;
    static_cast<void>(editor.DoModal()); // whether it saved anything, it told this page
}

void CSchedulePage::MakeItem(ItemKind kind) {
    EditItem(kind, {});
    View.PostChangeNotice();
}

void CSchedulePage::OpenItem(Oid oid) {
    if (AppointmentData record; State.Store.LoadAppointment(oid, record) != 0) {
        ViewItem(State.Categories.KindOf(oid), record);
    }
}

} // namespace tavo

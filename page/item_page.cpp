// Viewing, changing and deleting one item.
#include "page/item_page.h"

#include "edit/appointment_dlg.h"
#include "res/resource_ids.h"
#include "res/strings.h"
#include "store/item_deletion.h"

#include <utility>

namespace tavo {

void CItemPage::ViewAndAct(ItemKind kind, const AppointmentData& record, TimesOf times) {
    const ViewedItem viewed = ViewAppointment(State, record, times);
    if (viewed.Result == kResultModify) {
        ModifyItem(kind, viewed.Record);
    } else if (viewed.Result == kResultDelete) {
        AskAndDelete(kind, viewed.Record);
    }
}

void CItemPage::ModifyItem(ItemKind kind, const AppointmentData& record) {
    RunEditor(RequestFor(kind, record));
    View.PostChangeNotice(); // whatever it did
}

EditRequest CItemPage::RequestFor(ItemKind kind, std::optional<AppointmentData> item) {
    EditRequest request;
    request.Kind = kind;
    request.Item = std::move(item);
    request.Owner = ListOwner();
    request.InkEditor = InkEditor;
    return request;
}

void CItemPage::RunEditor(EditRequest request) {
    CAppointmentDlg editor(Pump(), State, std::move(request));
    static_cast<void>(editor.DoModal()); // the page follows what was saved, not how it ended
}

void CItemPage::AskAndDelete(ItemKind kind, const AppointmentData& record) {
    if (!ConfirmDeletion()) {
        return;
    }
    if (!DeleteItem(State, kind, record)) {
        Refuse(kItemNotDeleted);
    }
    View.PostChangeNotice();
}

} // namespace tavo

// From the command to the saved and listed item.
#include "app/item_maker.h"

#include "edit/appointment_dlg.h"

namespace tavo {

bool ItemMaker::Make(ItemKind kind) {
    Kind = kind;
    CAppointmentDlg editor(Pump, State);
    editor.Mode = ModeOfNew(kind);
    editor.Owner = this;
    return editor.DoModal() == IDOK;
}

void ItemMaker::UpdateOwnerList(const AppointmentData& /*record*/, bool isNew, Oid oid) {
    if (!isNew) {
        return;
    }
    switch (Kind) {
    case ItemKind::Alarm:
        State.Categories.AlarmList.Append(oid);
        break;
    case ItemKind::Holiday:
        State.Categories.HolidayList.Append(oid);
        break;
    case ItemKind::Anniversary:
        State.Categories.AnniversaryList.Append(oid);
        break;
    default:
        break;
    }
}

} // namespace tavo

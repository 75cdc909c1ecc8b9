// What whoever opens the edit dialog asks of it.
#pragma once

#include "edit/draft_file.h"
#include "edit/edit_mode.h"
#include "edit/ink_note_editor.h"
#include "edit/list_owner.h"
#include "store/appointment_data.h"

#include <cstdint>
#include <optional>

namespace tavo {

struct EditRequest {
    ItemKind Kind = ItemKind::Appointment;
    std::optional<AppointmentData> Item; // none: a new one is made
    ComPtr<IAppointment> Occurrence;     // only this day of the series Item is changed; null: all of the item
    IListOwner* Owner = nullptr; // told of what was saved; absent: the opener looks for itself, as the month does
    IInkNoteEditor* InkEditor = nullptr; // absent: the memo row does nothing
    // The day on which a new item begins at first; without one it is today.
    std::optional<SYSTEMTIME> FirstDay;
    const FoundDraft* Continued = nullptr; // what an earlier editor on this item left; may be absent
};

constexpr std::int32_t ModeOf(const EditRequest& request) {
    return request.Item ? ModeOfExisting(request.Kind) : ModeOfNew(request.Kind);
}

} // namespace tavo

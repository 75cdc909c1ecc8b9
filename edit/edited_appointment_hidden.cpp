// What an existing item has and the form cannot show, put back after what the form says.
#include "edit/edited_appointment.h"

#include <cmath>

namespace tavo {

void EditedAppointment::TakeStoredRule() {
    StoredRule.reset();
    if (OwnPattern && Succeeded(OwnPattern->get_PatternStartDate(StoredFirstDay))) {
        StoredRule = ReadRule(*OwnPattern);
    }
}

// The form has no rows for these, so a save must not decide them.
void EditedAppointment::PutBackHidden(const AppointmentInput& input) {
    Oid oid = 0;
    Note(Item->get_Oid(oid));
    if (oid == 0) {
        return; // a new item has nothing that was not put just now
    }
    ComPtr<IAppointment> stored;
    const Status found = Store.OutlookApp ? Store.OutlookApp->GetItemFromOid(oid, stored) : Status::Unexpected;
    Note(found);
    if (Failed(found) || !stored) {
        return;
    }
    Copy(*stored, &IAppointment::get_Location, &IAppointment::put_Location);
    Copy(*stored, &IAppointment::get_Categories, &IAppointment::put_Categories);
    Copy(*stored, &IAppointment::get_Sensitivity, &IAppointment::put_Sensitivity);
    Copy(*stored, &IAppointment::get_BusyStatus, &IAppointment::put_BusyStatus);
    PutBackReminder(*stored, input);
}

// The form shows whether there is a reminder and, of the sounds in the folder, which; not how else it makes itself
// known, nor a sound that lies elsewhere.
void EditedAppointment::PutBackReminder(IAppointment& stored, const AppointmentInput& input) {
    bool reminded = false;
    Note(stored.get_ReminderSet(reminded));
    if (!reminded || !input.HasReminder) {
        return;
    }
    if (!input.SoundChosen) {
        Copy(stored, &IAppointment::get_ReminderOptions, &IAppointment::put_ReminderOptions);
        Copy(stored, &IAppointment::get_ReminderSoundFile, &IAppointment::put_ReminderSoundFile);
        return;
    }
    std::int32_t options = 0;
    Note(stored.get_ReminderOptions(options));
    const std::int32_t sound = input.ReminderSound.empty() ? 0 : kReminderSound;
    Note(Item->put_ReminderOptions((options & ~kReminderSound) | sound));
}

template <class Value, class Given> void
EditedAppointment::Copy(IAppointment& stored, Status (IAppointment::*get)(Value&), Status (IAppointment::*put)(Given)) {
    Value value{};
    const Status status = (stored.*get)(value);
    Note(status);
    if (Succeeded(status)) {
        Note((Item.Get()->*put)(value));
    }
}

// Nobody chose another rule, and another one would take the moved and cancelled occurrences with it. On another day it
// follows the day.
void EditedAppointment::PutBackRule(const ItemTimes& times) {
    if (StoredRule && std::floor(times.StartDate) == StoredFirstDay) {
        Note(tavo::PutRule(*OwnPattern, *StoredRule));
    }
}

} // namespace tavo

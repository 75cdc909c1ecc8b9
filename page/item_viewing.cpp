// Reading before the view and after it.
#include "page/item_viewing.h"

#include "memo/appointment_view_dlg.h"

namespace tavo {

AppointmentData ReadAnew(OutlookSession& store, const AppointmentData& record, TimesOf times) {
    AppointmentData current;
    if (store.LoadAppointment(record.Oid, current) == 0) {
        return record;
    }
    if (times == TimesOf::Occurrence && record.IsRecurring && current.IsRecurring) {
        current.Start = record.Start;
        current.End = record.End;
    }
    return current;
}

ViewedItem ViewAppointment(CProgramState& state, const AppointmentData& record, TimesOf times) {
    CAppointmentViewDlg view(state.Pump, state);
    view.Oid = record.Oid;
    view.Appointment = ReadAnew(state.Store, record, times);
    const int result = view.DoModal();
    return {result, ReadAnew(state.Store, record, times)};
}

} // namespace tavo

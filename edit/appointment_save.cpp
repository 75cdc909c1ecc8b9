// OK: the checks in their order, the store's item, and the record for the opener.
#include "edit/appointment_dlg.h"
#include "framework/format.h"
#include "framework/message_pump.h"
#include "res/resource_ids.h"
#include "res/strings.h"

#include <algorithm>

namespace tavo {

namespace {

constexpr int kDaysTooMany = 31;
constexpr std::u16string_view kNoSubject = u"No Subject";
constexpr std::u16string_view kSubjectEmpty = u"Subject is empty...";
constexpr std::u16string_view kTooLong = u"Cannot save. Appointments cannot be longer than 31 days.";
constexpr std::u16string_view kRefused = u"Cannot save. Please check the Start/End date and Recurrence pattern.";

// Said beside it: the lists of intervals may be left empty.
constexpr std::u16string_view kNoInterval = u"The recurrence pattern has no interval.";

constexpr bool IsHighSurrogate(char16_t character) {
    return character >= 0xD800 && character < 0xDC00;
}

} // namespace

void CAppointmentDlg::OnOK() {
    if (ReadSubject().empty()) {
        MessageBoxDescription box;
        box.Text = kSubjectEmpty;
        box.Caption = kProgramTitle;
        Pump().ShowMessageBox(Handle(), box);
        return;
    }
    if (PatternDue && !EditPattern()) {
        return; // no rule was chosen
    }
    if (SaveAppointment()) {
        EndDialog(IDOK);
    }
}

void CAppointmentDlg::OnCancel() {
    NoteUnsavedInk();
    Edited.Release();
    Draft.Remove();
    EndDialog(IDCANCEL);
}

std::u16string CAppointmentDlg::ReadSubject() const {
    std::u16string subject = ItemText(kEditSubject).substr(0, kSubjectLimit);
    if (!subject.empty() && IsHighSurrogate(subject.back())) {
        subject.pop_back(); // the limit may fall within a character
    }
    return subject;
}

// All but the reminder's lead, which may be refused.
AppointmentInput CAppointmentDlg::ReadInput() const {
    const ItemKind kind = Kind();
    AppointmentInput input;
    input.Subject = ReadSubject();
    if (input.Subject.empty()) {
        input.Subject = kNoSubject;
    } else if (!IsNew() && input.Subject == ShownSubject) {
        input.Subject = Item.Subject; // its row may not hold all of it
    }
    input.Times = ReadTimes();
    input.HasEnd = kind == ItemKind::Appointment;
    input.AllDay = IsDayKind(kind) || (kind == ItemKind::Appointment && IsAllDayChecked());
    input.HasReminder = kind == ItemKind::Alarm || HasReminder();
    if (HasSound()) {
        input.ReminderSound = ItemText(kEditSound);
    }
    input.SoundChosen = IsNew() || SoundChosen;
    input.RecurChoice = std::max(Choice(kEditRecurrence), kChoiceOnce);
    input.StoredChoice = IsNew() ? kChoiceOnce : Item.RecurChoice;
    return input;
}

bool CAppointmentDlg::SaveAppointment() {
    AppointmentInput input = ReadInput();
    if (static_cast<int>(input.Times.SpanInDays()) >= kDaysTooMany) {
        ShowRefusal(kTooLong);
        return false;
    }
    if (input.HasReminder && Kind() != ItemKind::Alarm) {
        const std::optional<std::int32_t> lead = ReadLeadMinutes();
        if (!lead) {
            GoToStop(kEditReminderValue);
            return false;
        }
        input.ReminderMinutes = *lead;
    }
    Edited.PutProperties(input);
    Edited.PutRecurrence(input);
    if (!Edited.Save()) {
        ShowRefusal(Edited.LacksInterval(input) ? FormatText(u"%s\n\n%s", kRefused, kNoInterval)
                                                : std::u16string(kRefused));
        return false;
    }
    // It is in the store: whatever ends the program while the owner follows must not offer it once more.
    Draft.Remove();
    Waiting.LetGo();
    AppointmentData record = Edited.MakeRecord(input);
    record.ReminderSound = ItemText(kEditSound);
    Edited.Release();
    if (!OpenedFromCalendar()) {
        Request.Owner->UpdateOwnerList(record, IsNew(), record.Oid);
    }
    return true;
}

} // namespace tavo

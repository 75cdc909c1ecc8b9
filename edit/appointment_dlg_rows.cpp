// Which row's control is shown: by tap and by key.
#include "edit/appointment_dlg.h"
#include "res/resource_ids.h"

namespace tavo {

namespace {

// Over the painted form; all of them hide before one is shown.
constexpr int kEditingControls[] = {
    kEditSubject,  kEditStartDate,     kEditStartTime,    kEditEndDate, kEditEndTime, kEditAllDay, kEditRecurrence,
    kEditReminder, kEditReminderValue, kEditReminderUnit, kEditSound,   kEditPreview, kEditMemo};

constexpr int kStopTapLeft = 214; // the row's second icon begins here

constexpr bool IsDateControl(int control) {
    return control == kEditStartDate || control == kEditEndDate;
}

constexpr bool IsTimeControl(int control) {
    return control == kEditStartTime || control == kEditEndTime;
}

} // namespace

void CAppointmentDlg::TakeStylusDown(Point point) {
    HideFields();
    if (PatternDue) {
        static_cast<void>(EditPattern()); // the tap left the list; its row shows what came of it
        return;
    }
    const int row = Layout().RowAt(point.Y);
    if (row < 0) {
        return;
    }
    const FormRow& fields = Layout().Rows[static_cast<std::size_t>(row)];
    const FormField* field = AppointmentForm::FieldAt(fields, point.X);
    if (field == nullptr) {
        return; // the label column
    }
    if (IsOneDay() && !IsUsable(field->Control)) {
        return; // it is the series'
    }
    if (field->Control == kEditMemo) {
        LastField = kEditMemo;
        OpenMemo();
    } else if (field->Control == kEditPreview) {
        LastField = kEditPreview;
        TakeSoundRowTap(point.X);
    } else if (IsTimeControl(field->Control) && IsAllDayChecked()) {
        ShowField(row, fields.Fields.front()); // a day has no times: its date is widened over their place
    } else {
        ShowField(row, *field);
    }
}

void CAppointmentDlg::TakeSoundRowTap(int x) {
    if (x < kStopTapLeft) {
        PlaySelected();
    } else {
        StopPreview();
    }
}

void CAppointmentDlg::HideFields() {
    for (const int control : kEditingControls) {
        ShowItem(control, false);
    }
    ShownField = 0;
    Invalidate();
}

// Does not give the control the focus.
void CAppointmentDlg::ShowField(int row, const FormField& field) {
    HideFields();
    MoveItem(field.Control, PlaceOf(row, field));
    if (field.Control != kEditMemo) {
        ShowItem(field.Control, true);
    }
    ShownField = field.Control;
    LastField = field.Control;
}

Rect CAppointmentDlg::PlaceOf(int row, const FormField& field) const {
    FormField wide = field;
    if (Kind() == ItemKind::Appointment && IsDateControl(field.Control) && IsAllDayChecked()) {
        wide.Width = FormField{}.Width;
    }
    return Layout().FieldBounds(row, wide);
}

void CAppointmentDlg::TakeAllDayClick() {
    HideFields();
}

bool CAppointmentDlg::TakeKey(const Message& key) {
    if (key.Id == VK_RETURN && PatternDue) {
        static_cast<void>(EditPattern()); // the list shows what came of it
        return true;
    }
    if (key.Id == VK_SPACE && FocusedStop() == kEditMemo) {
        OpenMemo(); // its row is painted: no control takes the key
        return true;
    }
    return false;
}

// Whoever types before choosing a row means the subject; a blank after the box of "All day", which hides itself at
// every change, means the box once more.
void CAppointmentDlg::TakeCharacter(const Message& character) {
    if (ShownField == 0 && LastField == kEditAllDay && character.Id == u' ') {
        Host().Controls().SetCheck(Control(kEditAllDay), !IsAllDayChecked());
        TakeAllDayClick();
        return;
    }
    std::u16string subject = ItemText(kEditSubject);
    // Of characters that come together only the first finds no row chosen: the others follow it.
    const bool meansSubject = ShownField == 0 || ShownField == kEditSubject;
    if (!meansSubject || character.Id < u' ' || subject.size() >= kSubjectLimit) {
        return;
    }
    subject += static_cast<char16_t>(character.Id);
    GoToStop(kEditSubject);
    SetItemText(kEditSubject, subject);
    const int end = static_cast<int>(subject.size());
    Host().Controls().SetTextSelection(Control(kEditSubject), end, end);
}

// Every control that can be used now, row by row, then the buttons.
std::vector<int> CAppointmentDlg::RowStops() const {
    std::vector<int> stops;
    for (const FormRow& row : Layout().Rows) {
        for (const FormField& field : row.Fields) {
            const bool isCovered = IsTimeControl(field.Control) && Kind() == ItemKind::Appointment && IsAllDayChecked();
            if (!isCovered && Host().Windows().IsWindowEnabled(Control(field.Control))) {
                stops.push_back(field.Control);
            }
        }
    }
    stops.push_back(IDOK);
    stops.push_back(IDCANCEL);
    return stops;
}

// The control with the focus, else the one whose row is or was shown.
int CAppointmentDlg::FocusedStop() const {
    const WindowHandle focus = Host().Windows().GetFocus();
    for (const int stop : RowStops()) {
        if (Control(stop) == focus) {
            return stop;
        }
    }
    return ShownField;
}

void CAppointmentDlg::WalkFocus(int step) {
    const int from = FocusedStop();
    if (PatternDue && !EditPattern()) {
        return; // where one sees that the choice is what it was
    }
    GoToStop(NextStop(RowStops(), from != 0 ? from : LastField, step));
}

void CAppointmentDlg::GoToStop(int stop) {
    if (stop == IDOK || stop == IDCANCEL) {
        HideFields();
        LastField = stop;
        Host().Windows().SetFocus(Control(stop));
        return;
    }
    const AppointmentForm& form = Layout();
    for (int row = 0; row < static_cast<int>(form.Rows.size()); ++row) {
        for (const FormField& field : form.Rows[static_cast<std::size_t>(row)].Fields) {
            if (field.Control == stop) {
                ShowField(row, field);
            }
        }
    }
    // The memo row is painted: the dialog itself takes the keys for it.
    Host().Windows().SetFocus(stop == kEditMemo ? Handle() : Control(stop));
}

void CAppointmentDlg::RaisePanel() {
    Host().InputPanel().SHSipPreference(Handle(), true);
}

void CAppointmentDlg::LowerPanel() {
    Host().InputPanel().SHSipPreference(Handle(), false);
}

} // namespace tavo

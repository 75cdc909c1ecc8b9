// Opening the edit dialog: what its controls hold at first.
#include "edit/appointment_dlg.h"

#include "res/dialog_templates.h"
#include "res/resource_ids.h"

#include <utility>

namespace tavo {

namespace {

constexpr Rect kOkPlace = Rect::FromSize(45, 232, 70, 24);
constexpr Rect kCancelPlace = Rect::FromSize(125, 232, 70, 24);

// Nothing where the property cannot be read.
SYSTEMTIME ReadTime(IRecurrencePattern& pattern, Status (IRecurrencePattern::*get)(DATE&), ILocale& locale) {
    DATE date = kLowestDate;
    SYSTEMTIME time;
    if (Failed((pattern.*get)(date)) || !locale.VariantTimeToSystemTime(date, time)) {
        return {};
    }
    return time;
}

} // namespace

CAppointmentDlg::CAppointmentDlg(CMessagePump& pump, CProgramState& state, EditRequest request)
    : CDialog(pump, kAppointmentTemplate, NavigationButtons::None), State(state), Request(std::move(request)),
      Mode(ModeOf(Request)), Item(Request.Item.value_or(AppointmentData())), Edited(state.Store),
      Preview(pump.Host().Sound()), Waiting(pump.Host()), Draft(pump.Host()) {}

const MessageMap& CAppointmentDlg::Messages() {
    static constexpr MessageEntry entries[] = {
        On<&CAppointmentDlg::TakeStylusDown>(WM_LBUTTONDOWN),
        On<&CAppointmentDlg::TakeKey>(WM_KEYDOWN),
        On<&CAppointmentDlg::TakeCharacter>(WM_CHAR),
        OnTimer<&CAppointmentDlg::LayAside>(kTimerDraft),
        OnControl<&CAppointmentDlg::RebuildRecurrenceList>(kEditRecurrence, CBN_DROPDOWN),
        OnControl<&CAppointmentDlg::TakeRecurrenceChange>(kEditRecurrence, CBN_SELCHANGE),
        OnControl<&CAppointmentDlg::TakeRecurrenceCloseUp>(kEditRecurrence, CBN_CLOSEUP),
        OnControl<&CAppointmentDlg::TakeSoundChange>(kEditSound, CBN_SELCHANGE),
        OnControl<&CAppointmentDlg::TakeReminderChange>(kEditReminder, CBN_SELCHANGE),
        OnControl<&CAppointmentDlg::RaisePanel>(kEditSubject, EN_SETFOCUS),
        OnControl<&CAppointmentDlg::LowerPanel>(kEditSubject, EN_KILLFOCUS),
        OnCommand<&CAppointmentDlg::TogglePreview>(kEditPreview),
        OnCommand<&CAppointmentDlg::TakeAllDayClick>(kEditAllDay),
        OnCommand<&CAppointmentDlg::OpenMemo>(kEditMemo),
        OnNotify<&CAppointmentDlg::TakeStartChange>(kEditStartDate, DTN_DATETIMECHANGE),
        OnNotify<&CAppointmentDlg::TakeStartChange>(kEditStartTime, DTN_DATETIMECHANGE),
        OnNotify<&CAppointmentDlg::TakeEndChange>(kEditEndDate, DTN_DATETIMECHANGE),
        OnNotify<&CAppointmentDlg::TakeEndChange>(kEditEndTime, DTN_DATETIMECHANGE),
    };
    static const MessageMap map{entries, &CDialog::Messages()};
    return map;
}

void CAppointmentDlg::OnInitDialog() {
    ResetForm();
    LayOut();
    if (IsNew()) {
        PutNewItem();
    } else {
        OpenStoredItem();
        ShowStoredItem();
    }
    if (Choice(kEditRecurrence) == kChoiceOnce) {
        Edited.PresetPattern(ReadTimes());
    }
    RebuildRecurrenceList();
    BeginDraft();
    Host().Controls().SetTextSelection(Control(kEditSubject), 0, -1);
}

void CAppointmentDlg::ResetForm() {
    SetItemText(kEditSubject, u"");
    Host().Controls().SetTextLimit(Control(kEditSubject), kSubjectLimit);
    const SYSTEMTIME now = RoundDownToHalfHour(Host().Clock().GetLocalTime());
    const SYSTEMTIME begin = JoinDateAndTime(Request.FirstDay.value_or(now), now);
    SetStart(begin);
    SetEnd(begin);
    Host().Controls().SetCheck(Control(kEditAllDay), false);
    RebuildRecurrenceList();
    FillSoundList(IsNew() ? std::u16string_view() : Item.ReminderSound);
    SetReminderControls();
}

void CAppointmentDlg::LayOut() {
    const AppointmentForm& form = Layout();
    SetItemText(kEditStartLabel, form.StartLabel);
    SetItemText(kEditEndLabel, form.EndLabel);
    SetItemText(kEditStartTime, form.TimePicture); // one edits what the row shows
    SetItemText(kEditEndTime, form.TimePicture);
    for (int row = 0; row < static_cast<int>(form.Rows.size()); ++row) {
        for (const FormField& field : form.Rows[static_cast<std::size_t>(row)].Fields) {
            MoveItem(field.Control, form.FieldBounds(row, field));
        }
    }
    MoveItem(IDOK, kOkPlace);
    MoveItem(IDCANCEL, kCancelPlace);
}

void CAppointmentDlg::OpenStoredItem() {
    if (IsOneDay()) {
        Edited.OpenOccurrence(Request.Occurrence);
        LockSeriesControls();
    } else {
        Edited.Open(Item.Oid);
    }
}

void CAppointmentDlg::ShowStoredItem() {
    SetItemText(kEditSubject, Item.Subject);
    ShownSubject = ReadSubject();
    if (Kind() == ItemKind::Appointment) {
        Host().Controls().SetCheck(Control(kEditAllDay), Item.AllDay);
    }
    ShowStoredTimes();
}

void CAppointmentDlg::ShowStoredTimes() {
    IRecurrencePattern* pattern = Edited.Pattern();
    if (IsOneDay() || Item.RecurChoice == kChoiceOnce || pattern == nullptr) {
        SetStart(Item.Start);
        if (Kind() == ItemKind::Appointment) {
            SetEnd(Item.End);
        }
        return;
    }
    ILocale& locale = Host().Locale();
    const SYSTEMTIME first = ReadTime(*pattern, &IRecurrencePattern::get_PatternStartDate, locale);
    SetStart(JoinDateAndTime(first, ReadTime(*pattern, &IRecurrencePattern::get_StartTime, locale)));
    const ItemTimes days = MakeItemTimes(locale, MidnightOf(Item.Start), MidnightOf(Item.End));
    const ItemTimes lastDay = MakeItemTimes(locale, MidnightOf(first), {});
    SYSTEMTIME last = first;
    if (locale.VariantTimeToSystemTime(lastDay.StartDate + days.SpanInDays(), last)) {
        SetEnd(JoinDateAndTime(last, ReadTime(*pattern, &IRecurrencePattern::get_EndTime, locale)));
    }
}

void CAppointmentDlg::PutNewItem() {
    Edited.Create();
    AppointmentInput input = ReadInput();
    input.Subject = ReadSubject();
    input.Times = MakeItemTimes(Host().Locale(), input.Times.Start, PickedEnd());
    input.AllDay = IsAllDayChecked();
    input.ReminderMinutes = ReadLeadMinutes().value_or(0);
    Edited.PutProperties(input);
}

bool CAppointmentDlg::IsAllDayChecked() const {
    return Host().Controls().GetCheck(Control(kEditAllDay));
}

} // namespace tavo

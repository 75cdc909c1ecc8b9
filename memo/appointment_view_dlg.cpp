// The appointment view's life, and what the stylus and the keys do in it.
#include "memo/appointment_view_dlg.h"

#include "memo/appointment_view_look.h"
#include "res/dialog_templates.h"
#include "res/resource_ids.h"
#include "store/date_pictures.h"
#include "store/describe_recurrence.h"

#include <utility>
#include <vector>

namespace tavo {

namespace {

constexpr int kNoteZoom = 100;
constexpr int kKeyModify = VK_F1 + 1;

} // namespace

CAppointmentViewDlg::CAppointmentViewDlg(CMessagePump& pump, CProgramState& state)
    : CDialog(pump, kAppointmentViewTemplate), State(state),
      Modify(kBitmapModifyButton, kModifyButton, kModifyHit, ModPressed, ModTracking),
      Delete(kBitmapDeleteButton, kDeleteButton, kDeleteHit, DelPressed, DelTracking) {}

const MessageMap& CAppointmentViewDlg::Messages() {
    static constexpr MessageEntry entries[] = {
        On<&CAppointmentViewDlg::TakeStylusDown>(WM_LBUTTONDOWN),
        On<&CAppointmentViewDlg::TakeStylusMove>(WM_MOUSEMOVE),
        On<&CAppointmentViewDlg::TakeStylusUp>(WM_LBUTTONUP),
        On<&CAppointmentViewDlg::TakeKey>(WM_KEYDOWN),
        OnCommand<&CAppointmentViewDlg::EndWithModify>(kViewModify),
        OnCommand<&CAppointmentViewDlg::EndWithDelete>(kViewDelete),
    };
    static const MessageMap map{entries, &CDialog::Messages()};
    return map;
}

// Kept on purpose: of an item that is gone the times are shown without dates.
void CAppointmentViewDlg::OnInitDialog() {
    ReleaseButtons();
    FirstLine.clear();
    SecondLine.clear();
    Ink = WindowHandle::None;
    TakeRule();
    ComPtr<IAppointment> item;
    if (!State.Store.OutlookApp || Failed(State.Store.OutlookApp->GetItemFromOid(Oid, item)) || !item) {
        return;
    }
    MoveItem(kViewModify, kModifyButton); // its template hides both
    MoveItem(kViewDelete, kDeleteButton);
    TakeDates(*item);
    TakeNote(*item);
    ShowNote();
}

// The words are made from the day of a start. The record may be that of an occurrence on another day than the first.
void CAppointmentViewDlg::TakeRule() {
    AppointmentData series;
    const bool isSeries = State.Store.LoadAppointment(Oid, series) != 0 && series.IsRecurring;
    Rule = DescribeRecurrence(isSeries ? series : Appointment);
}

void CAppointmentViewDlg::TakeDates(IAppointment& item) {
    if (Appointment.RecurType == kRecursOnce) {
        FirstLine = DateText(Appointment.Start, kPictureListDate);
        SecondLine = DateText(Appointment.End, kPictureListDate);
        return;
    }
    const auto dateOf = [this](DATE date) {
        SYSTEMTIME time;
        return Host().Locale().VariantTimeToSystemTime(date, time) ? DateText(time, kPicturePlainDate)
                                                                   : std::u16string();
    };
    ComPtr<IRecurrencePattern> pattern;
    if (Failed(item.GetRecurrencePattern(pattern))) {
        return;
    }
    DATE date = kNoDate;
    if (Succeeded(pattern->get_PatternStartDate(date))) {
        FirstLine = dateOf(date);
    }
    bool noEnd = true;
    if (Succeeded(pattern->get_NoEndDate(noEnd)) && !noEnd && Succeeded(pattern->get_PatternEndDate(date))) {
        SecondLine = dateOf(date);
    }
}

std::u16string CAppointmentViewDlg::DateText(const SYSTEMTIME& date, std::u16string_view picture) const {
    return Host().Locale().GetDateFormatW(LocaleId::User, date, picture, kDateTimeBuffer).value_or(u"");
}

void CAppointmentViewDlg::TakeNote(IAppointment& item) {
    State.Memo.Empty();
    std::vector<std::uint8_t> note;
    if (Succeeded(item.get_BodyInk(note))) {
        State.Memo.Fill(std::move(note));
    }
}

void CAppointmentViewDlg::ShowNote() {
    const Rect client = Host().Windows().GetClientRect(Handle());
    ControlDescription paper;
    paper.Kind = ControlKind::Ink;
    paper.Id = kInkPaper;
    paper.Bounds = {client.Left, kNoteTop, client.Right, client.Bottom - kNoteMargin};
    Ink = AddControl(paper);
    if (Ink == WindowHandle::None) {
        return;
    }
    IInk& ink = Host().Ink();
    // A note that is no ink of ours is shown as the control shows it.
    static_cast<void>(ink.SetData(Ink, State.Memo.Bytes()));
    static_cast<void>(ink.SendMessageW(Ink, kInkSetPageStyle, kInkStyleNone, 0)); // these give no answer
    static_cast<void>(ink.SendMessageW(Ink, kInkSetZoom, 0, kNoteZoom));
    static_cast<void>(ink.SendMessageW(Ink, kInkSetPenMode, kInkPenSelects, 0));
    static_cast<void>(ink.SendMessageW(Ink, kInkSetView, kInkViewTyping, 0));
    static_cast<void>(ink.SendMessageW(Ink, EM_SETREADONLY, 1, 0)); // what was changed here nobody would keep
}

// There is nothing to take over: "ok" closes the view like ×.
void CAppointmentViewDlg::OnOK() {
    OnCancel();
}

void CAppointmentViewDlg::TakeStylusDown(Point point) {
    for (DrawnButton* button : {&Modify, &Delete}) {
        if (button->TakeDown(point)) {
            Invalidate(button->Place());
            return;
        }
    }
    ReleaseButtons();
}

void CAppointmentViewDlg::TakeStylusMove(Point point) {
    for (DrawnButton* button : {&Modify, &Delete}) {
        if (button->TakeMove(point)) {
            Invalidate(button->Place());
        }
    }
}

void CAppointmentViewDlg::TakeStylusUp(Point point) {
    if (Modify.TakeUp(point)) {
        EndWithModify();
    } else if (Delete.TakeUp(point)) {
        EndWithDelete();
    }
    Invalidate(); // whichever was pressed is up
}

// The drawn buttons cannot take the focus, so each has a key.
bool CAppointmentViewDlg::TakeKey(int key) {
    switch (key) {
    case kKeyModify:
        EndWithModify();
        break;
    case VK_DELETE:
        EndWithDelete();
        break;
    default:
        return false;
    }
    return true;
}

void CAppointmentViewDlg::ReleaseButtons() {
    Modify.Release();
    Delete.Release();
}

void CAppointmentViewDlg::EndWithModify() {
    EndDialog(kResultModify);
}

void CAppointmentViewDlg::EndWithDelete() {
    EndDialog(kResultDelete);
}

} // namespace tavo

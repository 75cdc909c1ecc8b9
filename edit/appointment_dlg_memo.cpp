// The item's ink note: to the ink editor and back, and what becomes of ink that the item cannot take.
#include "edit/appointment_dlg.h"

#include "framework/format.h"
#include "memo/memo_files.h"
#include "res/strings.h"
#include "store/date_pictures.h"

namespace tavo {

namespace {

constexpr std::u16string_view kMemoTooLarge = u"Cannot save. Memo exceeded memory limitation.";
constexpr std::u16string_view kMemoOfDayQuestion = u"Keep it as a memo of %s instead?";
constexpr std::u16string_view kNotKept = u"The memo could not be saved.";
constexpr int kDateBuffer = 40; // UTF-16 units, with the end

} // namespace

void CAppointmentDlg::OpenMemo() {
    if (InkEditor == nullptr) {
        return;
    }
    State.Memo.Empty();
    State.Memo.Fill(Edited.InkNote());
    if (InkEditor->EditInkNote() == IDOK && !Edited.PutInkNote(State.Memo.Bytes())) {
        ShowRefusal(kMemoTooLarge);
        OfferMemoOfDay();
    }
}

// The ink editor is closed by now, so only a "No" may lose its ink.
void CAppointmentDlg::OfferMemoOfDay() {
    const SYSTEMTIME day = PickedStart();
    MessageBoxDescription box;
    box.Text =
        FormatText(kMemoOfDayQuestion,
                   Host().Locale().GetDateFormatW(LocaleId::User, day, kPictureListDate, kDateBuffer).value_or(u""));
    box.Caption = kProgramTitle;
    box.Buttons = MessageBoxButtons::YesNo;
    while (true) {
        const int answer = Pump().ShowMessageBox(Handle(), box);
        if (answer == IDNO || KeepAsMemo(day) || answer != IDYES) { // neither: the program quits
            return;
        }
        ShowRefusal(kNotKept);
    }
}

// The ink in the memo buffer becomes a memo of the day, made now.
bool CAppointmentDlg::KeepAsMemo(const SYSTEMTIME& day) {
    SYSTEMTIME moment = Host().Clock().GetLocalTime();
    moment.Year = day.Year;
    moment.Month = day.Month;
    moment.Day = day.Day;
    MemoFiles files(State);
    return files.WriteMemo(files.FreeMemoPath(moment));
}

// Ink that waits for the item to be saved is not lost with it.
void CAppointmentDlg::OnQuit() {
    LayAside();
    if (Edited.HasNewInk()) {
        State.Memo.Empty();
        State.Memo.Fill(Edited.InkNote());
        static_cast<void>(KeepAsMemo(PickedStart())); // nobody is there to be told
    }
}

} // namespace tavo
